#!/usr/bin/env bash
# Installs the build into a temporary prefix and uses it from there, as an integrator and as a user
# of the command, after the tree was moved.
# usage: install_test.sh BUILDFOLDER   with CXX and CXXFLAGS from the environment
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/first place" >/dev/null
mv "$work/first place" "$work/prefix" # nothing may depend on the place of the installation
prefix=$work/prefix

"$here/consumer/check" "$prefix" "$work"

echo "ymap: the installed command"
(cd "$prefix/share/doc/ymap/examples" &&
    env -u LD_LIBRARY_PATH "$prefix/bin/ymap" map edit-description.xml --format xml) |
    grep -q '<description>'
env -u LD_LIBRARY_PATH "$prefix/bin/ymap" table --format deviations |
    cmp - "$prefix/share/yang/modules/ymap/ymap-ietf-interfaces-deviations.yang"

# The undefined-behaviour sanitizer names the source of each of its checks.
if [[ ${CXXFLAGS:-} != *-fsanitize=* ]]; then
    echo "no file names the folder it was built in"
    ! grep -rlF -e "$build" -e "${here%/tests}" "$prefix" || exit 1
fi

echo "ymap: without its library it says which it would load"
find "$prefix" -name 'libymap_ietf_if.so*' -delete
! env -u LD_LIBRARY_PATH "$prefix/bin/ymap" table >"$work/told" 2>&1 || exit 1
grep -F "$prefix/lib" "$work/told" | grep -q libymap_ietf_if.so
