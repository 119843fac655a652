#!/usr/bin/env bash
# Installs Debian packages with dpkg into a root folder that has no more than the packages declare
# as their dependencies, and runs the command there, confined to that root. Then builds the consumer
# projects against the development files in it, and removes the packages again.
# usage: package_test.sh PACKAGE.deb...   as root, or where user namespaces are allowed
set -euo pipefail
tests=$(cd "$(dirname "$0")" && pwd)
[ "$(id -u)" -eq 0 ] || exec unshare --map-root-user "$0" "$@"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates" "$root"/usr/{bin,sbin,lib,lib64}
touch "$root/var/lib/dpkg/status"
for folder in bin sbin lib lib64; do
    ln -s "usr/$folder" "$root/$folder"
done

# depends_of PACKAGE-OR-FILE: the names in its dependencies, the first where there is a choice.
depends_of()
{
    { case $1 in
        *.deb) dpkg-deb -f "$1" Depends Pre-Depends | sed 's/^[A-Za-z-]*: //' ;;
        *) dpkg-query -W -f '${Depends}, ${Pre-Depends}\n' "$(here "$1")" ;;
    esac; } | tr ',' '\n' | sed 's/|.*//; s/(.*//; s/:any//; s/ //g' | sed '/^$/d'
}

# here NAME: the package for this machine's architecture, which may not be the only one installed.
here()
{
    dpkg-query -W -f '${Architecture} ${binary:Package}\n' "$1" |
        sed -nE "s/^(all|$(dpkg --print-architecture)) //p"
}

# What the machine has installed of the packages that these need, and those in turn.
own=()
for package in "$@"; do
    own+=("$(dpkg-deb -f "$package" Package)")
done
needed=(dash libc-bin) # of every Debian system, for the scripts of packages
queue=("$@")
while [ ${#queue[@]} -gt 0 ]; do
    for name in $(depends_of "${queue[0]}"); do
        [[ " ${own[*]} ${needed[*]} " == *" $name "* ]] && continue
        needed+=("$name")
        queue+=("$name")
    done
    queue=("${queue[@]:1}")
done
echo "package: a root folder with ${needed[*]}"
for name in "${needed[@]}"; do
    name=$(here "$name")
    { dpkg-query -s "$name" && echo; } >>"$root/var/lib/dpkg/status"
    list=$root/var/lib/dpkg/info/$name.list
    dpkg-query -L "$name" | grep '^/' >"$list"
    while read -r file; do
        [ -d "$file" ] || [ ! -e "$file" ] || printf '%s\n' "${file#/}"
    done <"$list" | tar -C / -cf - -T - | tar -C "$root" --no-same-owner -xf -
done

echo "package: install"
on_root()
{
    dpkg --root="$root" --log=/dev/null "$@" >"$work/dpkg.log" 2>&1 ||
        { cat "$work/dpkg.log" && exit 1; }
}
on_root --install "$@"

echo "package: run"
# The loader asks there where the program lies. A real /proc would have to be mounted, and whoever is
# in a chroot already may not do that.
mkdir -p "$root/proc/self"
ln -s /usr/bin/ymap "$root/proc/self/exe"
chroot "$root" /usr/bin/ymap map --format xml /usr/share/doc/ymap/examples/edit-description.xml |
    diff <(sed '1,/^\$ ymap map --format xml examples\/edit-description.xml$/d; /^\$/,$d' \
        "$tests/transcripts/map.txt") -
"$tests/consumer/check" "$root/usr" "$work"

echo "package: pages"
python3 "$tests/links.py" "$root/usr/share/doc/ymap"
for package in "${own[@]}"; do
    [ -s "$root/usr/share/doc/$package/copyright" ] && [ -s "$root/usr/share/doc/$package/changelog.gz" ]
done

echo "package: remove"
on_root --purge "${own[@]}"
! find "$root" -iname '*ymap*' ! -path '*/dpkg/*' | grep . || exit 1
echo "package: passed"
