#!/usr/bin/env bash
# Sends a film to Deadline 10, as tasks of ten frames. Written after Deadline's documentation of command line jobs; nobody has tried it on
# a farm yet.
#
#   submit.sh SCENE OUTPUT_FOLDER FIRST LAST
#
# <STARTFRAME>, <ENDFRAME> and <QUOTE> are Deadline's words; it replaces them for each task.
set -euo pipefail
scene=$1 output=$2 first=$3 last=$4
deadlinecommand -SubmitCommandLineJob \
    -executable "$(command -v quarvel)" \
    -arguments "render <QUOTE>$scene<QUOTE> -o <QUOTE>$output/n.####.exr<QUOTE> --frames <STARTFRAME>-<ENDFRAME> --resume --progress percent" \
    -frames "$first-$last" \
    -chunksize 10 \
    -name "Normals of $(basename "$scene")"
