// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What "quarvel help render" prints.
#include "RenderOptions.h"

QString renderHelp()
{
    return QStringLiteral(R"(quarvel render - renders frames of a scene

  quarvel render SCENE -o FILE [options]

SCENE is a scene's folder. Each frame goes into a file of its own, which appears whole or not at all.

Files
  -o, --output FILE     where the frames go: out/n.####.exr or out/n.%04d.exr, where the number is filled up with zeros,
                        or out/n.%d.exr; n.$F4.exr and n.<frame04>.exr mean the same. The ending says the format:
                        .exr (OpenEXR) or .png (16 bits a channel)
      --lit FILE        also writes the lit frames: lit/n.####.png
      --drawing FILE    also writes the drawing that belongs to the maps: flat/n.####.png
      --height FILE     also writes heights: OpenEXR files in pixels, others from black to white, the highest place of all
                        frames; --height-range H makes white H pixels instead
      --occlusion FILE  also writes ambient occlusion: ao/n.####.png
      --numbers FILE    also writes the numbers of the objects
      --gloss C=G       with --gloss-file FILE also writes masks of gloss: colour C, such as '#9aa' or all, has the gloss G,
                        from 0 (dull, the default) to 1
      --half            16-bit floats in OpenEXR files instead of 32-bit ones: enough to light by, and much smaller
      --exr map|signed  the normal map as the default layer of OpenEXR files, from 0 to 1 or from -1 to 1, instead of the
                        drawing with the map in layers; --exr numbers adds the layer object.id
      --preview FILE    also makes a film of the lit frames, at most 960 pixels wide: .mp4 or .gif where ffmpeg is
                        installed, and .png (an animated PNG) everywhere
      --html FILE       also makes a page for browsers that plays the frames in a light which follows the pointer, at most
                        960 pixels wide where there are several: one file to pass on
      --fps N           how many frames a second the preview and the page show; default: as many as the scene says
      --light A,H       the light of lit frames, preview and page instead of the scene's own lights: degrees around
                        (0 right, 90 above) and above the picture

What is rendered
      --frames RANGE    1-10, 1-10x2 (every second), 1,3,7-9, -5--1; also 1..10, 1-10:2 and blanks between them, as
                        schedulers write it. Default: all of the scene
      --node NAME       the node whose picture is rendered; default: what the scene's display shows
      --as KIND         what its picture is taken for: normals, elevation or colours. Default: what the graph says,
                        normals for a Vallorin node and colours for anything else
      --resolution WxH  the size in pixels; W alone takes the height from the scene's shape. Default: 1920 wide
      --proxy 1/N       divides both sides by N. Bevels are measured in the scene, so that a proxy looks like the final
      --float           renders everything in 32-bit float; without it only wide forms, where 16 bits would leave grain

How normals are written
      --layout tangent  vectors of unit length (default). OpenEXR files get the drawing as R G B A, linear and multiplied
                        by coverage, and the layers N.X N.Y N.Z, from -1 to 1, elevation.Y and coverage.A; others x, y and
                        z in the range of colours
      --layout node     the node's own four channels as they are
      --for NAME        as the program wants it that takes the maps: sets --y, --alpha, --bits and --pad where they are not
                        given. quarvel help normalmap lists the names. Without it PNG maps are right in most of them, and a
                        line at the end says in which
      --y up|down       where the y of the vectors points (up)
      --alpha coverage|opaque|hard   what the alpha of PNG maps holds (opaque)
      --bits 16|8       of a channel of PNG files (16); 8 are dithered
      --pad N           grows the colours N pixels past the silhouette, in files that have no layers (PNG maps: 4;
                        others: 0)

OpenEXR files keep what spreads beyond the frame: their data window may be larger than their display window.

How it runs
      --jobs N          how many frames are rendered at once; default: as many as the job has threads (affinity,
                        control groups and SLURM_CPUS_PER_TASK count)
      --memory SIZE     how much memory the frames may take together, such as 4G; fewer are rendered at once where it
                        takes more. Default: half of what the job may use (available memory, control groups,
                        SLURM_MEM_PER_NODE)
      --resume          leaves alone frames that are complete and made of the same: scene at that frame, settings, program.
                        Files say a digest of it (quarvel inspect shows it); their times do not matter
      --shard I/N       only every N-th frame from the I-th on, for N machines that share the work; counted
                        from 1 or from 0. auto: as SLURM_ARRAY_TASK_ID and SLURM_ARRAY_TASK_COUNT say
      --progress STYLE  bar (with the time left), lines (one for every percent), json (one object for every frame) or
                        none, on standard error. Default: bar on a terminal, none elsewhere. On standard output:
                        percent (12% and so on) and openjd (openjd_progress: 12, openjd_status:, openjd_fail:)
      --json            results, warnings and errors as JSON on standard output
  -q, --quiet           neither results nor progress, only warnings and errors
  -h, --help            this text

Ctrl-C stops in order: no file is left half-written. Again: at once.

Examples
  quarvel render bounce.scene -o out/n.####.exr --frames 1-48x2,60 --jobs 2
  quarvel render bounce.scene -o look/n.%04d.png --proxy 1/4 --preview look.png
  quarvel render bounce.scene -o out/n.####.exr --resume
  quarvel render bounce.scene -o out/n.####.exr --shard 3/8 --progress json
  quarvel render bounce.scene -o out/line.####.png --node Composite --resolution 3840x2160

Exit code: 0 when every frame was done, 1 when one was not (the others are), 2 when the command line made no sense, 130
when Ctrl-C stopped the run, 143 when the system did (SIGTERM).
)");
}
