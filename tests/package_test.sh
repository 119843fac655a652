#!/usr/bin/env bash
# Installs Debian packages with dpkg into a root folder that has no more than the packages declare
# as their dependencies, and runs the command there, confined to that root. Then builds the consumer
# projects against the development files in it, and removes the packages again.
# usage: package_test.sh PACKAGE.deb...   as root, or where user namespaces are allowed
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
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
        *) dpkg-query -W -f '${Depends}, ${Pre-Depends}\n' "$1" ;;
    esac; } | tr ',' '\n' | sed 's/|.*//; s/(.*//; s/:any//; s/ //g' | sed '/^$/d'
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
    { dpkg-query -s "$name" && echo; } >>"$root/var/lib/dpkg/status"
    list=$root/var/lib/dpkg/info/$(dpkg-query -W -f '${binary:Package}' "$name").list
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
# The mount is gone with the process that made it.
mkdir "$root/proc"
# shellcheck disable=SC2016 # expanded by the inner shell
unshare --mount sh -c 'mount --rbind /proc "$0/proc" && exec chroot "$0" "$@"' "$root" \
    /usr/bin/ymap map --format xml /usr/share/doc/ymap/examples/edit-description.xml |
    diff <(sed '1,/^\$ ymap map --format xml examples\/edit-description.xml$/d; /^\$/,$d' \
        "$here/transcripts/map.txt") -
"$here/consumer/check" "$root/usr" "$work"

echo "package: remove"
on_root --purge "${own[@]}"
! find "$root" -iname '*ymap*' ! -path '*/dpkg/*' | grep . || exit 1
echo "package: passed"
