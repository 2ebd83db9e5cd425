#!/usr/bin/env bash
# Makes the folder and the zip that run on 64-bit Windows out of a finished cross-build.
#
# usage: bundle.sh BUILD_FOLDER LIBRARIES_FOLDER     (the latter is that of dependencies.sh)
set -euo pipefail
build=$(cd "$1" && pwd)
libraries=$(cd "$2" && pwd)
target=$build/vallorin
sources=$(cd "$(dirname "$0")/../.." && pwd)

# The DLLs that a file asks for by name.
asked_by() {
    x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/^\s*DLL Name: //p'
}

# Where a DLL that is not Windows' own comes from; nothing where it is.
place_of() {
    local folder
    for folder in "$libraries/prefix/bin" /usr/x86_64-w64-mingw32/lib /usr/lib/gcc/x86_64-w64-mingw32/*-posix; do
        [ ! -f "$folder/$1" ] || { echo "$folder/$1"; return; }
    done
}

# Copies what a file asks for beside the programs, and what those files ask for.
add_libraries() {
    local name place
    for name in $(asked_by "$1"); do
        [ ! -e "$target/bin/$name" ] || continue
        place=$(place_of "$name")
        [ -n "$place" ] || continue
        cp "$place" "$target/bin/"
        add_libraries "$place"
    done
}

rm -rf "$target" "$target.zip"
cmake --install "$build" --prefix "$target" --strip >/dev/null
rm -rf "$target/include" "$target/lib/cmake" "$target"/lib/*.a
mkdir -p "$target/bin/platforms" "$target/bin/imageformats" "$target/bin/styles"
for plugin in platforms/qwindows platforms/qoffscreen imageformats/qjpeg imageformats/qgif imageformats/qico \
    styles/qwindowsvistastyle; do
    [ ! -f "$libraries/prefix/plugins/$plugin.dll" ] || cp "$libraries/prefix/plugins/$plugin.dll" "$target/bin/$plugin.dll"
done
while read -r file; do add_libraries "$file"; done < <(find "$target" -name '*.exe' -o -name '*.dll')
# Whoever passes the libraries on passes their licences on.
mkdir -p "$target/licences"
for package in "$libraries"/unpacked/*/; do
    case $(basename "$package") in googletest | rapidcheck) continue ;; esac # the tests alone stand on these
    cp "$package/debian/copyright" "$target/licences/$(basename "$package").txt"
done
cp "$sources/LICENSE" "$target/licences/vallorin.txt"
(cd "$build" && cmake -E tar cf vallorin.zip --format=zip vallorin)
echo "$build/vallorin.zip"
