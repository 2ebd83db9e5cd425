#!/usr/bin/env bash
# Makes the Debian packages and the folder to unpack anywhere (tar.zst), for ./dev package. Everything is built in a temporary folder
# and checked there; the finished folder then takes the place of build/packages, which never holds half a result.
#
#   packaging/build.sh BUILD_FOLDER     the folder of a finished build as people run it, which the tar.zst is made of
set -euo pipefail
cd "$(dirname "$0")/.."
built=$PWD/$1
result=$PWD/build/packages

step=preparing
mkdir -p build
# Beside the result, so that it can be moved there without copying.
work=$(mktemp -d "$PWD/build/package.XXXXXX")
finish() {
    local status=$?
    [ $status -eq 0 ] || {
        [ ! -f "$work/log" ] || tail -n 60 "$work/log" >&2
        echo "package: $step failed; $result is as it was" >&2
    }
    rm -rf "$work"
}
trap finish EXIT

# logged COMMAND...: what it says is shown where it fails.
logged() { "$@" >"$work/log" 2>&1; }

version=$(sed -n 's/^project(Vallorin VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
step="comparing the versions"
[ "$(dpkg-parsechangelog -S Version)" = "$version" ] || {
    echo "package: debian/changelog does not begin with version $version, which CMakeLists.txt names" >&2
    exit 1
}

step="checking what desktops read"
logged appstreamcli validate --no-net src/Apps/studio/desktop/*.metainfo.xml
logged desktop-file-validate src/Apps/studio/desktop/*.desktop

step="making the folder to unpack"
mkdir "$work/packages"
name=vallorin-$version-linux-$(uname -m)
logged cmake --install "$built" --prefix "$work/$name" --strip
logged tar -C "$work" --owner=0 --group=0 --sort=name -I 'zstd -T0 -10' -cf "$work/packages/$name.tar.zst" "$name"

step="copying the sources"
mkdir "$work/vallorin"
git ls-files -z --cached --others --exclude-standard | tar --null -T - -c | tar -x -C "$work/vallorin"

step="building the packages"
# debhelper hides the home folder, where ccache keeps what was compiled. A build in another folder finds it by relative paths.
if command -v ccache >/dev/null; then
    export CCACHE_DIR=${CCACHE_DIR:-$(ccache --get-config cache_dir)} CCACHE_BASEDIR=$work/vallorin
fi
(cd "$work/vallorin" && logged env DEB_BUILD_OPTIONS="parallel=$(nproc)" dpkg-buildpackage --no-sign --build=binary)

step="lintian"
# The new packages close no report of a bug: they are in no distribution.
lintian_words=(--fail-on warning --suppress-tags initial-upload-closes-no-bugs)
[ "$(id -u)" -ne 0 ] || lintian_words+=(--allow-root)
logged lintian "${lintian_words[@]}" "$work"/*.changes

step="moving the packages"
mv "$work"/*.deb "$work/packages/"
[ ! -e "$result" ] || mv "$result" "$work/before"
mv "$work/packages" "$result" || { mv "$work/before" "$result" && exit 1; }
echo "package: $(ls "$result"/*.deb | wc -l) Debian packages without a warning of lintian, and $name.tar.zst, are in $result"
