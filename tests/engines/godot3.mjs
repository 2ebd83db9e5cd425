// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Godot 3, which is no page in a browser: Debian's runner plays the project in the folder godot3, on a virtual screen.
// It draws all views of a sprite or an atlas, and writes their pixels into a file.
//
// The runner imports nothing, so pictures that a resource names are put where the editor would put them: as a texture
// file, which is a header and the PNG file.
import { execFileSync } from "node:child_process";
import { copyFileSync, existsSync, mkdirSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { readPng } from "./png.mjs";

const PROJECT = join(dirname(fileURLToPath(import.meta.url)), "godot3");
const SCREEN = ["-a", "-s", "-screen 0 640x480x24"];

/** What is missing to run it, with the package that has it; nothing when all is there. */
export function missing() {
  if (!existsSync("/usr/bin/godot3-runner")) return "godot3-runner is missing; it is in Debian's package godot3-runner";
  if (!existsSync("/usr/bin/xvfb-run")) return "xvfb-run is missing; it is in Debian's package xvfb";
}

function importPicture(folder, name) {
  const FILTERED = 4;
  const PNG_INSIDE = 1 << 20;
  const { width, height } = readPng(join(folder, name));
  const png = readFileSync(join(folder, name));
  const header = Buffer.alloc(32);
  header.write("GDST", 0, "latin1");
  header.writeUInt16LE(width, 4);
  header.writeUInt16LE(height, 8);
  header.writeUInt32LE(FILTERED, 12);
  header.writeUInt32LE(PNG_INSIDE, 16);
  header.writeUInt32LE(1, 20); // picture
  header.writeUInt32LE(png.length + 4, 24);
  header.write("PNG ", 28, "latin1");
  mkdirSync(join(folder, ".import"), { recursive: true });
  const place = `.import/${name}.stex`;
  writeFileSync(join(folder, place), Buffer.concat([header, png]));
  writeFileSync(join(folder, `${name}.import`), `[remap]\n\nimporter="texture"\ntype="StreamTexture"\npath="res://${place}"\n`);
}

/** Plays the project in a folder with a list of work: the pixels of each view, R G B A bytes. */
function play(folder, work) {
  for (const file of readdirSync(PROJECT)) copyFileSync(join(PROJECT, file), join(folder, file));
  const [list, output] = [join(folder, "godot3.json"), join(folder, "godot3.bytes")];
  rmSync(output, { force: true });
  writeFileSync(list, JSON.stringify({ ...work, output }));
  execFileSync("xvfb-run", [...SCREEN, "godot3-runner", "--path", folder, "--audio-driver", "Dummy"], {
    env: { ...process.env, VALLORIN_VIEWS: list, HOME: folder, LANG: "C.UTF-8" },
    stdio: ["ignore", "ignore", "pipe"],
    timeout: 300_000,
  });
  if (!existsSync(output)) throw new Error("Godot 3 wrote nothing");
  const bytes = readFileSync(output);
  const size = 4 * work.width * work.height;
  return work.views.map((_, i) => bytes.subarray(i * size, (i + 1) * size));
}

/** Draws a sprite in every view. */
export function draw(folder, { drawing, map, width, height }, views) {
  return play(folder, { drawing: join(folder, drawing), map: join(folder, map), width, height, views });
}

const FRAMES = `[gd_resource type="SpriteFrames" load_steps=4 format=2]

[ext_resource path="res://page.png" type="Texture" id=1]

[sub_resource type="AtlasTexture" id=1]
atlas = ExtResource( 1 )
region = Rect2( 0, 0, 48, 48 )

[sub_resource type="AtlasTexture" id=2]
atlas = ExtResource( 1 )
region = Rect2( 52, 2, 44, 32 )
margin = Rect2( 4, 6, 12, 12 )

[resource]
animations = [ {
"frames": [ SubResource( 1 ) ],
"loop": true,
"name": "ball",
"speed": 5.0
}, {
"frames": [ SubResource( 2 ) ],
"loop": true,
"name": "hand",
"speed": 5.0
} ]
`;

/** Makes the maps of an atlas of Godot's own over the page, and draws one of its animations, "ball" or "hand". */
export function drawAtlas(program, folder, animation, { width, height }, views) {
  writeFileSync(join(folder, "hero.tres"), FRAMES);
  execFileSync(program, ["normalmap", "-q", "--atlas", "hero.tres", "--for", "godot3"], { cwd: folder });
  for (const name of ["page.png", "page_n.png"]) importPicture(folder, name);
  return play(folder, { frames: "res://hero.tres", maps: "res://hero_n.tres", animation, width, height, views });
}
