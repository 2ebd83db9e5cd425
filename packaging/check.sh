#!/usr/bin/env bash
# Installs what packaging/build.sh made into a bare Debian 12, uses it there, and takes it away again. For ./dev package check;
# needs root, because it changes into another root folder.
set -euo pipefail
cd "$(dirname "$0")/.."
packages=$PWD/build/packages
compgen -G "$packages/quarvel_*.deb" >/dev/null || {
    echo "package check: there are no packages in $packages; ./dev package makes them" >&2
    exit 1
}

# In /tmp, because the user that apt downloads as has to reach it.
work=$(mktemp -d "${TMPDIR:-/tmp}/vallorin-root.XXXXXX")
chmod 755 "$work"
root=$work/root
step="preparing"
finish() {
    local status=$?
    [ $status -eq 0 ] || {
        [ ! -f "$work/log" ] || tail -n 30 "$work/log" >&2
        echo "package check: $step failed" >&2
    }
    rm -rf --one-file-system "$work"
}
trap finish EXIT
logged() { "$@" >"$work/log" 2>&1; }
inside() { logged chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C DEBIAN_FRONTEND=noninteractive "$@"; }

step="making a bare Debian 12 (from the sources of Debian that this machine uses)"
mkdir "$work/sources" "$work/apt"
# A machine has either the list or the folder; grep fails where one of them is missing.
{ grep -lE '^(deb |Suites: ).*bookworm' /etc/apt/sources.list /etc/apt/sources.list.d/* 2>/dev/null || true; } | while read -r file; do
    ! grep -qE '^(Components: main|deb .* bookworm[a-z/-]* main)' "$file" || ! grep -q debian "$file" || cp "$file" "$work/sources/"
done
[ -n "$(ls "$work/sources")" ] || { echo "package check: /etc/apt names no sources of Debian 12 (bookworm)" >&2; exit 1; }
apt-config dump --format '%f "%v";%n' | grep -E '^Acquire::(https?|Retries)' >"$work/apt/acquire.conf" || true
logged mmdebstrap --variant=minbase --mode=root --aptopt="$work/apt/acquire.conf" bookworm "$root" "$work"/sources/*
cp /etc/resolv.conf "$root/etc/resolv.conf" 2>/dev/null || true
cp "$packages"/*.deb "$root/tmp/"

# Files, without what apt and dpkg write about themselves.
files() { (cd "$root" && find . -xdev ! -type d ! -path './proc/*' ! -path './tmp/*' ! -path './var/*/apt/*' ! -path './var/log/*' \
    ! -path './var/*/dpkg/*' ! -path './var/cache/*' ! -path './etc/ld.so.cache' | sort); }

# field NAME: what all packages say there.
field() { for package in "$packages"/*.deb; do dpkg-deb --field "$package" "$1"; done; }

step="installing the dependencies"
inside apt-get update
# The dependencies come first: files that appear after them and remain at the end are those of our packages.
depended=$(field Depends | tr ',' '\n' | sed -E 's/\|.*//; s/\(.*//; s/[[:space:]]//g' | grep -vE '^$|^(lib)?quarvel|-vallorin$' | sort -u)
inside apt-get install -y --no-install-recommends $depended
files >"$work/before"

step="installing the packages"
inside sh -c 'apt-get install -y --no-install-recommends /tmp/*.deb'
ours=$(field Package)

step="quarvel normalmap in the bare system"
cp examples/hero.svg "$root/tmp/hero.svg"
inside quarvel normalmap /tmp/hero.svg -o /tmp/hero_n.png --size 320
[ "$(head -c 8 "$root/tmp/hero_n.png" | od -An -tx1 | tr -d ' \n')" = 89504e470d0a1a0a ]
step="comparing the picture with that of the build"
[ ! -x build/release/bin/quarvel ] || {
    logged build/release/bin/quarvel normalmap examples/hero.svg -o "$work/hero_n.png" --size 320
    cmp "$work/hero_n.png" "$root/tmp/hero_n.png"
}
step="./dev demo in the bare system"
mkdir "$root/tmp/tree"
cp -r dev CMakeLists.txt examples "$root/tmp/tree/"
inside /tmp/tree/dev demo
for picture in hero hero_n hero_e hero_lit; do [ -s "$root/tmp/tree/out/demo/$picture.png" ]; done
step="the Python package in the bare system"
inside python3 -c 'import vallorin; maps = vallorin.normal_map("/tmp/hero.svg", width=320); assert maps.normals.shape == (320, 320, 3)'
step="quarvel-studio in the bare system"
inside env QT_QPA_PLATFORM=offscreen quarvel-studio --version
step="quarvel from the tar.zst, in a folder of another name"
mkdir "$root/tmp/unpacked"
tar -C "$root/tmp/unpacked" --strip-components=1 -xf "$packages"/*.tar.zst
inside apt-get remove -y quarvel quarvel-plugin-vallorin libquarvel0 python3-vallorin
# The bare system has no /proc, which tells programs elsewhere where they lie.
inside env LD_ORIGIN_PATH=/tmp/unpacked/bin /tmp/unpacked/bin/quarvel normalmap /tmp/hero.svg -o /tmp/unpacked_n.png --size 320
cmp "$root/tmp/hero_n.png" "$root/tmp/unpacked_n.png"

step="removing the packages"
# dpkg only warns of those that went with the ones removed above, which apt does not know any more.
inside dpkg --purge $ours
files >"$work/after"
step="comparing the files before and after"
diff "$work/before" "$work/after" >"$work/log"
echo "package check: installed in a bare Debian 12, quarvel normalmap draws the same there, ./dev demo and Python work, and $(wc -w <<<"$ours") packages left nothing"
