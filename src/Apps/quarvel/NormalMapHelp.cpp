// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What "quarvel help normalmap" prints.
#include "NormalMapOptions.h"

QString normalMapHelp()
{
    return QStringLiteral(R"(quarvel normalmap - turns flat drawings into normal maps

  quarvel normalmap DRAWING... [options]

Each drawing is an SVG file, a bitmap with transparency (PNG, WebP and others), a file with
layers of pixels (OpenRaster, Krita, PSD, Aseprite), of which the first frame is taken, a folder of
drawings, or - for standard input. Its parts become objects, each with a rounded
volume of its own. The normal map is written beside the drawing as NAME_n.png, pixel for
pixel registered with it.

Files
  -o, --output FILE     where the normal map goes; the ending says the format: .png, .exr (OpenEXR).
                        With several drawings: a folder, which is made where it is missing, and in which drawings of a
                        folder keep their places; - writes PNG to standard output (default for a drawing from there)
      --elevation FILE  also writes the elevation of the same run: 0 the lowest, 1 the highest place of each object
      --lit FILE        also writes the drawing lit by a light
      --drawing FILE    also writes the drawing as a picture
      --html FILE       also writes a page for browsers that shows the drawing in a light which follows the pointer, and
                        holds the drawing, its map and its elevation: one file to pass on. The cells of --animation play
      --height FILE     also writes how high each place lies, all objects in one measure and on top of each other: OpenEXR
                        files in pixels, others from black, the picture's plane, to white, its highest place
      --height-range H  white is H pixels, so that the heights of several pictures fit together
      --occlusion FILE  also writes ambient occlusion: dark where the form keeps light out, such as creases and carved lines
      --numbers FILE    also writes the number of the object that each pixel shows, 0 where there is none
      --gloss C=G       also writes a mask of gloss, NAME_gloss.png: colour C has the gloss G, from 0 (dull, the default
                        for every colour) to 1; C is a colour such as '#9aa', or all
      --gloss-file FILE where the mask of gloss goes
                        (with several drawings, all these take folders as well)
      --exr WORDS       OpenEXR files, several words joined by commas: float or half, 32 bits a number (default) or 16;
                        layers (default): the drawing as R G B A, linear and multiplied by coverage, so that every
                        program shows it, and the layers N.X N.Y N.Z, from -1 to 1, elevation.Y and coverage.A;
                        map: the map as R G B A, opaque, from 0 to 1; signed: the same from -1 to 1;
                        numbers: object.id beside the layers, the number of each pixel's object
      --canvas          with --for godot: also writes NAME_canvas.tres, a CanvasTexture of the drawing, the map and the
                        gloss, and with an .tres atlas NAME_lit.tres, whose frames show all of them
      --suffix S        what the map's name adds to the drawing's (_n)

For whom
      --for NAME        as the program wants it that takes the map: blender, compositor, gamemaker, gltf, godot,
                        godot3, melonjs, phaser, pixi, three, unity or unreal. Sets --y, --alpha, --bits, --pad and
                        --suffix where they are not given, and the names of the pictures beside the map. Without it the
                        map is right in most of them, and the last line says in which
      --y up|down       where the y of the vectors points; up (default) is what most engines call OpenGL, down DirectX
      --alpha opaque    the map's alpha is full (default of PNG files). Many engines multiply by alpha, which bends vectors
      --alpha coverage  the map's alpha is how much of a pixel is covered
      --alpha hard      full where anything is covered, nothing elsewhere
      --bits 16|8       of a channel of PNG files (16); 8 are dithered, so that wide slopes have no steps
      --pad N           grows the vectors N pixels past the silhouette, for texture filtering (4)

The picture
      --size WxH        its size in pixels; W alone takes the height from the drawing's shape. Default: the drawing's own
                        size. A drawing of another shape is centred
      --float           renders everything in 32-bit float; without it only wide forms, where 16 bits would leave grain
      --layout tangent  x, y and z, what game engines and lighting tools take (default)
      --layout node     the node's own four channels as they are
      --light AROUND,ABOVE   the light of --lit, in degrees; AROUND runs counter-clockwise from the right.
                        Default 135,45: from the upper left
      --truck F         magnifies the drawing F times about the picture's centre, as a camera that trucks in would

Sheets: pages of many sprites, each rendered alone, in its own frame's measure
      --cells WxH       the page is cut into cells of this size; those that show nothing are left out
      --margin N        pixels around all cells (0)
      --spacing N       pixels between two cells (0)
      --animation       all cells are frames of one animation and share one set of values; without it each has its own
      --connected       the cells are tiles that may touch each other: what reaches a cell's border goes on beyond it
                        instead of being rounded there, and all tiles share one set of values
      --atlas FILE      says where sprites lie, instead of drawings: .json of Aseprite or TexturePacker, .atlas of libGDX or
                        Spine, .tres of Godot. Frames of one animation share one set of values. The atlas of the maps is
                        written beside them
      --tile x|y|both   the drawing repeats: left meets right, top meets bottom
      --flips           also writes NAME_n_flipx and NAME_n_flipy, the map for engines that mirror a sprite left to right or
                        upside down and leave its vectors as they are

Objects, numbered from the lowest, 1 up, and their form
      --objects auto    what the drawing suggests (default): the layers that the file declares, where there are two or more;
                        else its parts, found by how shapes, colours and lines lie on each other
      --objects layers  each layer that the file declares is an object; without layers the whole drawing is one
      --objects groups  each top-level group is an object
      --objects shapes  each painted area is an object
      --objects one     the whole drawing is one object
      --shape auto      each object is rounded as far as its own breadth suggests (default)
      --shape rim       a narrow rim on every object: bevel 24, elevation 1, smoothness 1
      --shape pillow    each object is rounded over all of its breadth
      --shape off       no volume
      --volume V        how strong the form is, 0 to 2 (1): 0.5 for a flatter look
      --bevel B         how far the rounding reaches in from the edge, for all objects; the picture is 720 wide in this
                        measure, whatever its size in pixels. Chosen for each object where it is not given
      --object N:...    sets one object's values, joined by colons; N is its number, its name or a pattern such as
                        'eye*' (quarvel inspect hero.svg lists them), or all for every object:
                          bevel=B        as above
                          elevation=E    how high it rises
                          smoothness=S   the shape of the rise: 1 straight, above 1 rounder, below 1 hollower
                          level=L        its own level, 0 to 1 (1)
                          coverage       multiplies the levels of its colours by its coverage
                          cutout         makes no volume: it cuts a hole into what lies below
                          hidden         leaves it out
                          tilt=X,Y       faces X degrees to the right and Y degrees upwards instead of at the viewer (0,0);
                                         below 0 to the left and down
                          rim=B[,H]      a second, narrow bevel at its outline: B wide, and H times as high (1)
                          role=crease    is not seen: its strokes are grooves in what lies below; role=ridge: ridges;
                                         role=object: none. Layers called crease or ridge have this role
                          relief=R       the same, R halves of a stroke's width high, below 0 deep (crease: -0.5)
      --level C=L       the level of a colour, from 0 (carves) to 255 (adds, the default for every colour);
                        C is a colour such as '#1b1b1b', or all

The node's other attributes
      --quality low|medium|high      how normals are derived: from four neighbours, from eight, or from eight and
                                     smoothed (low)
      --bevel-multiplier M           multiplies every bevel, 0 to 10 (1)
      --elevation-multiplier M       multiplies every elevation, 0 to 10 (1)
      --smoothness-multiplier M      multiplies every smoothness, 0.1 to 128 (1)
      --no-clip                      lets the blur reach beyond the drawing's outline
      --no-normals                   outputs the elevation instead of normals
      --depth-in-blue                layout node: the elevation in the blue channel
      --use-truck-factor             bevels and elevations grow with --truck

How it runs
      --jobs N          how many drawings are worked on at once; default: as many as the job has threads (affinity,
                        control groups and SLURM_CPUS_PER_TASK count). Pages of sprites come one after the other
      --resume          leaves alone the maps that are complete and made of the same: drawing, options and program. The
                        times of files do not count. A single drawing needs it in the first run, too
      --progress        a line for every percent on standard error; without it, a line that is rewritten, on a terminal
      --json            results, warnings and errors as JSON on standard output
  -q, --quiet           nothing on standard output, and no progress
  -h, --help            this text

Examples
  quarvel normalmap hero.svg
  quarvel normalmap hero.svg -o out/hero_n.exr --size 3840x2160 --float --quality high --bevel 24 \
          --object 2:bevel=60:elevation=0.5 --level '#1b1b1b=0'
  quarvel normalmap walk_*.svg -o maps --pad 4 --y down
  quarvel normalmap art -o maps
  curl https://example.org/hero.svg | quarvel normalmap - > hero_n.png
  quarvel normalmap hero.svg --volume 0.5 --object 7:cutout --lit hero_lit.png --elevation hero_e.png

Exit code: 0 when every drawing was done, 1 when one was not (the others are), 2 when the command line made no
sense, 130 when Ctrl-C stopped the run, 143 when the system did (SIGTERM).
)");
}
