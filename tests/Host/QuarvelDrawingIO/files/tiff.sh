#!/bin/sh
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#
# Makes the files of TiffReaderTest.cpp with ImageMagick 6 and the tools of libtiff (Debian's imagemagick, libtiff-tools):
#
#     sh tiff.sh FOLDER
set -eu
cd "$1"

# Two by two pixels: red, and green of half the coverage; blue of an eighth of it, and nothing.
four() {
    convert -size 1x1 \
        '(' 'xc:rgba(255,0,0,1)' 'xc:rgba(0,255,0,0.5)' +append ')' \
        '(' 'xc:rgba(0,0,255,0.125)' 'xc:rgba(0,0,0,0)' +append ')' -append -alpha on "$@"
}

for bits in 8 16; do
    four -depth "$bits" -define tiff:alpha=unassociated "tiff$bits-straight.tif"
    four -depth "$bits" -define tiff:alpha=associated "tiff$bits-premultiplied.tif"
done
convert tiff8-straight.tif '(' tiff8-straight.tif -flop ')' -define tiff:alpha=unassociated tiff-pages.tif
convert -size 1x1 'xc:gray(25%)' -depth 16 -colorspace Gray -alpha off tiff16-grey.tif
tiffcp -p separate -c lzw:2 tiff8-straight.tif tiff8-planes.tif
tiffcp -B tiff16-straight.tif tiff16-big-endian.tif
tiffcp -t -w 16 -l 16 -c lzw tiff16-straight.tif tiff16-tiles.tif
