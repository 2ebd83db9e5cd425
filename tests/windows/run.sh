#!/usr/bin/env bash
# The programs for 64-bit Windows under Wine: what they write has to be what the programs of this machine write, byte for byte. Then
# the tests of functions, as far as they do not ask for Linux (left-out.txt).
#
# usage: run.sh LINUX_PROGRAM WINDOWS_ZIP EXAMPLES TEST_PROGRAMS LIBRARIES      exit code 77: Wine does not run here
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
linux=$1 zip=$2 examples=$3 programs=$4 libraries=$5
work=$(mktemp -d)
export WINEPREFIX=$work/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml=" QT_QPA_PLATFORM=offscreen
trap 'wineserver -k 2>/dev/null || true; umount "$work/small" 2>/dev/null || true; rm -rf "$work"' EXIT
timeout 300 wine wineboot --init >/dev/null 2>&1 || { echo "skipped: Wine does not run here"; exit 77; }

# The zip runs in place, from a folder whose name has blanks and letters outside ASCII.
home="$work/Tür und Tor 絵"
mkdir "$home"
(cd "$home" && cmake -E tar xf "$zip")
checks=0
trap 'echo "FAILED: line $LINENO: $BASH_COMMAND" >&2' ERR

quarvel() { wine "$home/vallorin/bin/quarvel.exe" "$@"; }
passed() { checks=$((checks + 1)); echo "  ok: $1"; }
fail() { echo "FAILED: $1" >&2; exit 1; }
# same WHAT FILE FILE
same() { cmp "$2" "$3" || fail "$1"; passed "$1"; }
# says WORDS COMMAND...: the command fails, and its message has the words
says() {
    local words=$1 message status=0
    shift
    message=$("$@" 2>&1 >/dev/null) || status=$?
    [ "$status" -ne 0 ] && grep -qF "$words" <<<"$message" || fail "expected an error with \"$words\", got $status: $message"
    passed "says \"$words\""
}

cd "$work"

# What Windows' own windows show of the programs.
version=$("$linux" --version | sed 's/.* //')
for file in bin/quarvel.exe bin/quarvel-studio.exe lib/quarvel/plugins/Vallorin/libVallorin.dll; do
    [ "$(strings -el "$home/vallorin/$file" | grep -A 1 '^ProductVersion$' | tail -1)" = "$version" ] || fail "$file: its version"
    passed "$file names its version"
done

cp "$examples/hero.svg" .
sed 's/$/\r/' hero.svg >crlf.svg
options=(--size 480 --elevation e.png --lit l.png --drawing d.exr)
mkdir linux windows
for drawing in hero.svg crlf.svg; do
    (cd linux && "$linux" normalmap "../$drawing" -o "n.png" "${options[@]}" >/dev/null)
    (cd windows && quarvel normalmap "..\\$drawing" -o n.png "${options[@]}" >/dev/null)
    for file in n.png e.png l.png d.exr; do same "$drawing: $file" "linux/$file" "windows/$file"; done
done

"$linux" normalmap hero.svg -o exr.exr --size 300 >/dev/null
quarvel normalmap "Z:$(tr / '\\' <<<"$work")\\hero.svg" -o "Z:$(tr / '\\' <<<"$work")\\drive.exr" --size 300 >/dev/null
same "a path with a drive letter" exr.exr drive.exr

"$linux" normalmap linux/l.png -o sprite.png >/dev/null
quarvel normalmap linux/l.png -o sprite-windows.png >/dev/null
same "a sprite" sprite.png sprite-windows.png

"$linux" import hero.svg -o hero.scene >/dev/null
"$linux" set hero.scene Normal-Map.BlurScale 1.5 >/dev/null
cp -r hero.scene copy.scene
"$linux" render hero.scene -o linux/f.png >/dev/null
quarvel render hero.scene -o windows/f.png >/dev/null
for file in linux/f*.png; do same "a frame of a scene from Linux" "$file" "windows/$(basename "$file")"; done
"$linux" set hero.scene Normal-Map.BlurScale 2 >/dev/null
quarvel set copy.scene Normal-Map.BlurScale 2 >/dev/null
same "a scene that Windows saved" hero.scene/scene.xml copy.scene/scene.xml
[ -z "$(find copy.scene -name '.*' -mindepth 1)" ] || fail "a save leaves files behind: $(find copy.scene -name '.*' -mindepth 1)"
passed "a save leaves nothing behind"

deep=$work/$(printf 'long-name-of-a-folder-%s/' {1..12})
mkdir -p "$deep"
"$linux" normalmap hero.svg -o short.png --size 480 >/dev/null
quarvel normalmap hero.svg -o "${deep}n.png" --size 480 >/dev/null
same "a path of ${#deep} letters" short.png "${deep}n.png"
cp -r hero.scene "${deep}h.scene"
"$linux" set hero.scene Normal-Map.BlurScale 2.5 >/dev/null
quarvel set "${deep}h.scene" Normal-Map.BlurScale 2.5 >/dev/null
same "a scene in such a path" hero.scene/scene.xml "${deep}h.scene/scene.xml"

letters="Bär 絵"
cp hero.svg "$letters.svg"
"$linux" normalmap "$letters.svg" -o "$letters.png" --size 300 >said-linux.txt
quarvel normalmap "$letters.svg" -o "$letters-windows.png" --size 300 >said-windows.txt
same "a drawing named $letters" "$letters.png" "$letters-windows.png"
sed -i 's/-windows//' said-windows.txt
same "what is said of $letters" said-linux.txt said-windows.txt

# cmd.exe opens what is read as standard input so that nobody can replace it.
printf '@"%%QUARVEL%%" %%* < %%HELD%%\r\n' >holding.cmd
holding() { HELD=$1 QUARVEL="Z:$(tr / '\\' <<<"$home")\\vallorin\\bin\\quarvel.exe" wine cmd /c holding.cmd "${@:2}"; }
cp short.png held.png
says "close the programs that have it open" holding held.png normalmap hero.svg -o held.png
same "a picture that another program holds open" short.png held.png
[ -z "$(find . -maxdepth 1 -name 'held.png?*')" ] || fail "a refused picture leaves files behind"
# A frame says the name of its scene, so that both have the same.
cp -r hero.scene windows/
"$linux" set hero.scene Normal-Map.BlurScale 3 >/dev/null
holding 'windows\hero.scene\scene.xml' set windows/hero.scene Normal-Map.BlurScale 3 >/dev/null
"$linux" render hero.scene -o linux/held.png >/dev/null
quarvel render windows/hero.scene -o windows/held.png >/dev/null
same "a scene saved while another program holds its file open" linux/held.png windows/held.png
holding 'windows\hero.scene\scene.xml' set windows/hero.scene Normal-Map.BlurScale 4 >/dev/null
says "close the programs that have it open" holding 'windows\hero.scene\scene.xml' set windows/hero.scene Normal-Map.BlurScale 5
"$linux" set hero.scene Normal-Map.BlurScale 2 >/dev/null
quarvel set windows/hero.scene Normal-Map.BlurScale 2 >/dev/null
same "the file when it is free again" hero.scene/scene.xml windows/hero.scene/scene.xml

# Only root can make a disk that is full soon.
if mkdir small && mount -t tmpfs -o size=64k small small 2>/dev/null; then
    says "the disk is full" quarvel normalmap hero.svg -o 'small\n.png'
    [ -z "$(find small -mindepth 1)" ] || fail "a picture that found no room leaves files: $(find small -mindepth 1)"
    passed "a full disk keeps nothing of the picture"
    umount small
fi

echo '{"v":"5.5.0","fr":30,"ip":0,"op":30,"w":100,"h":100,"layers":[]}' >still.json
says "not read on Windows" quarvel import still.json -o still.scene
says "nowhere.svg" quarvel normalmap nowhere.svg
[ ! -e still.scene ] || fail "a refused import left a scene"
passed "a refused import leaves nothing"
timeout 600 wine "$home/vallorin/bin/quarvel-studio.exe" --screenshots "$work/shots" >/dev/null 2>&1 || fail "the desktop application"
[ "$(find shots -name '*.png' | wc -l)" -gt 3 ] || fail "the desktop application's pictures"
passed "the desktop application paints its views"

# The libraries that are not beside the tests are where the cross-build found them.
WINEPATH=$(for folder in "$libraries" /usr/lib/gcc/x86_64-w64-mingw32/*-posix /usr/x86_64-w64-mingw32/lib; do
    printf 'Z:%s;' "$(tr / '\\' <<<"$folder")"
done)
export WINEPATH RC_PARAMS=seed=1
left_out=$(sed -n 's/^\([^ #][^ ]*\) .*/\1/p' "$here/left-out.txt" | paste -sd:)
functions=0
failed=()
for program in "$programs"/test_*.exe; do
    timeout 900 wine "$program" --gtest_brief=1 "--gtest_filter=-$left_out" >said.txt 2>&1 || { cat said.txt >&2; failed+=("$program"); }
    count=$(sed -n 's/^\[  PASSED  \] \([0-9]*\) tests\{0,1\}\..*/\1/p' said.txt)
    functions=$((functions + ${count:-0}))
done
[ "${#failed[@]}" -eq 0 ] || fail "${failed[*]}"
[ "$functions" -gt 1000 ] || fail "expected more than 1000 tests of functions, got $functions"
echo "Windows under $(wine --version): $checks checks of programs and $functions tests of functions passed"
