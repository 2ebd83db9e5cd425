#!/usr/bin/env bash
# Builds the libraries that the programs need on 64-bit Windows, each once, from Debian's source packages, into FOLDER/prefix.
# A library that is there already is left alone; one whose build failed is built again by the next run.
#
# usage: dependencies.sh FOLDER
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "${1:?expected the folder for the libraries}"
folder=$(cd "$1" && pwd)
export VALLORIN_WINDOWS_PREFIX=$folder/prefix
mkdir -p "$folder"/{lists,sources,unpacked,build,done,prefix}

step=preparing
finish() {
    local status=$?
    [ $status -eq 0 ] || echo "dependencies: $step failed; what was finished stays in $folder, and the next run goes on from there" >&2
}
trap finish EXIT

# apt_get RELEASE WORDS...: apt-get with a list of that release's source packages alone, so that the machine's lists stay as they are.
apt_get() {
    local release=$1 lists=$folder/lists/$1
    shift
    mkdir -p "$lists/partial"
    echo "deb-src http://deb.debian.org/debian $release main" >"$lists.list"
    apt-get -qq -o "Dir::Etc::SourceList=$lists.list" -o Dir::Etc::SourceParts=- -o "Dir::State::Lists=$lists" -o APT::Sandbox::User= "$@"
}

# download RELEASE PACKAGE [options of apt-get]: into sources/PACKAGE, whole or not at all. apt compares the digests that Debian signed.
download() {
    local release=$1 package=$2
    shift 2
    step="fetching the sources of $package"
    echo "$step" >&2
    [ -n "$(ls "$folder/lists/$release" 2>/dev/null | grep Sources || true)" ] || apt_get "$release" update
    rm -rf "$folder/sources/$package"
    mkdir "$folder/sources/$package"
    (cd "$folder/sources/$package" && apt_get "$release" source --download-only "$@" "$package")
}

# fetch PACKAGE: its sources, patched as Debian does, in unpacked/PACKAGE.
fetch() {
    [ ! -d "$folder/unpacked/$1" ] || return 0
    download "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$1"
    rm -rf "$folder/unpacked/$1.new"
    dpkg-source --no-check -x "$folder/sources/$1"/*.dsc "$folder/unpacked/$1.new" >/dev/null
    mv "$folder/unpacked/$1.new" "$folder/unpacked/$1"
}

# Debian's changes to RapidCheck concern the packaging alone, so the archive of its authors is enough: that of Debian 13, because not
# every mirror keeps Debian 12's.
fetch_rapidcheck() {
    local target=$folder/unpacked/rapidcheck
    [ ! -d "$target" ] || return 0
    download trixie rapidcheck --tar-only
    rm -rf "$target.new"
    mkdir "$target.new"
    tar -C "$target.new" -xf "$folder"/sources/rapidcheck/*.orig.tar.*
    mv "$target.new" "$target"
}

# with_cmake NAME SOURCE [options]
with_cmake() {
    local name=$1 source=$2
    shift 2
    cmake --fresh -S "$source" -B "$folder/build/$name" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX="$folder/prefix" "$@"
    cmake --build "$folder/build/$name"
    cmake --install "$folder/build/$name"
}

# once NAME COMMAND...: its output goes to a log, whose end is shown when it fails.
once() {
    local name=$1
    shift
    [ ! -e "$folder/done/$name" ] || return 0
    step="building $name"
    echo "$step" >&2
    # In the background, because the shell ignores failing commands inside a condition.
    ("$@") >"$folder/build/$name.log" 2>&1 &
    if ! wait $!; then
        tail -30 "$folder/build/$name.log" >&2
        echo "the whole log is $folder/build/$name.log" >&2
        exit 1
    fi
    touch "$folder/done/$name"
}

# Debian's Qt runs the tools; the libraries that are not needed or that mingw has no headers for are off.
qtbase() {
    local off=(opengl sql network dbus printsupport vulkan tabletevent icu glib)
    local bundled=(zlib png jpeg freetype harfbuzz pcre2) options=(-DINPUT_opengl=no) one
    for one in "${off[@]}"; do options+=("-DFEATURE_$one=OFF"); done
    for one in "${bundled[@]}"; do options+=("-DFEATURE_system_$one=OFF"); done
    with_cmake qtbase "$folder/unpacked/qt6-base" -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
        -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF "${options[@]}"
}

# Qt 6's SVG module is not among Debian's sources; that of Qt 5 is, and needs few changes.
qtsvg() {
    local source=$folder/build/qtsvg-source
    rm -rf "$source"
    cp -r "$folder/unpacked/qtsvg-opensource-src" "$source"
    patch -d "$source" -p1 <"$here/qtsvg/qt6.patch"
    with_cmake qtsvg "$here/qtsvg" "-DSOURCE=$source/src/svg" -DQT_HOST_PATH=/usr
}

# Its headers and its library are what the programs link; its own tests would need more of Windows.
onetbb() {
    with_cmake onetbb "$folder/unpacked/onetbb" -DTBB_TEST=OFF -DTBB_STRICT=OFF -DTBBMALLOC_BUILD=OFF -DTBB_DISABLE_HWLOC_AUTOMATIC_SEARCH=ON
}

imath() {
    with_cmake imath "$folder/unpacked/imath" -DBUILD_TESTING=OFF -DPYTHON=OFF
}

openexr() {
    with_cmake openexr "$folder/unpacked/openexr" -DBUILD_TESTING=OFF -DOPENEXR_BUILD_TOOLS=OFF -DOPENEXR_INSTALL_EXAMPLES=OFF
}

isal() {
    make -C "$folder/unpacked/libisal" -f Makefile.unx arch=mingw programs= HOST=x86_64-w64-mingw32 \
        CC=x86_64-w64-mingw32-gcc-posix AS=nasm AR=x86_64-w64-mingw32-ar STRIP=x86_64-w64-mingw32-strip lib
    install -D -m 644 "$folder/unpacked/libisal/bin/isa-l.a" "$folder/prefix/lib/libisal.a"
    install -D -m 644 -t "$folder/prefix/include/isa-l" "$folder"/unpacked/libisal/include/*.h
}

# Archives as OpenRaster files are: no codecs but zlib, no ciphers.
libzip() {
    local off=(COMMONCRYPTO GNUTLS MBEDTLS OPENSSL WINDOWS_CRYPTO BZIP2 LZMA ZSTD) options=() one
    for one in "${off[@]}"; do options+=("-DENABLE_$one=OFF"); done
    with_cmake libzip "$folder/unpacked/libzip" -DBUILD_TOOLS=OFF -DBUILD_REGRESS=OFF -DBUILD_EXAMPLES=OFF -DBUILD_DOC=OFF "${options[@]}"
}

# The tests stand on these two. Static, because they link them into one program each.
googletest() {
    with_cmake googletest "$folder/unpacked/googletest" -DBUILD_SHARED_LIBS=OFF
}

rapidcheck() {
    with_cmake rapidcheck "$folder/unpacked/rapidcheck" -DBUILD_SHARED_LIBS=OFF -DRC_ENABLE_GTEST=ON
}

# Of Highway the headers alone are used.
highway() {
    mkdir -p "$folder/prefix/include"
    cp -r "$folder/unpacked/highway/hwy" "$folder/prefix/include/"
}

for package in qt6-base qtsvg-opensource-src onetbb imath openexr libisal libzip highway googletest; do fetch "$package"; done
fetch_rapidcheck
once qtbase qtbase
once qtsvg qtsvg
once onetbb onetbb
once imath imath
once openexr openexr
once isal isal
once libzip libzip
once highway highway
once googletest googletest
once rapidcheck rapidcheck
echo "The libraries are in $folder/prefix"
