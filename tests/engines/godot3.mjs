// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Godot 3, which is no page in a browser: Debian's runner plays the project in the folder godot3, on a virtual screen.
// It draws all views of a sprite, and writes their pixels into a file.
import { execFileSync } from "node:child_process";
import { existsSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

const PROJECT = join(dirname(fileURLToPath(import.meta.url)), "godot3");
const SCREEN = ["-a", "-s", "-screen 0 640x480x24"];

/** What is missing to run it, with the package that has it; nothing when all is there. */
export function missing() {
  if (!existsSync("/usr/bin/godot3-runner")) return "godot3-runner is missing; it is in Debian's package godot3-runner";
  if (!existsSync("/usr/bin/xvfb-run")) return "xvfb-run is missing; it is in Debian's package xvfb";
}

/** Runs the project with a list of work, and returns the bytes that it writes. */
function play(folder, work) {
  const [list, output] = [join(folder, "godot3.json"), join(folder, "godot3.bytes")];
  writeFileSync(list, JSON.stringify({ ...work, output }));
  execFileSync("xvfb-run", [...SCREEN, "godot3-runner", "--path", PROJECT, "--audio-driver", "Dummy"], {
    env: { ...process.env, VALLORIN_VIEWS: list, HOME: folder, LANG: "C.UTF-8" },
    stdio: ["ignore", "ignore", "pipe"],
    timeout: 300_000,
  });
  if (!existsSync(output)) throw new Error("Godot 3 wrote nothing");
  return readFileSync(output);
}

/** Draws a sprite in every view: the pixels of each, R G B A bytes. */
export function draw(folder, { drawing, map, width, height }, views) {
  const bytes = play(folder, { drawing: join(folder, drawing), map: join(folder, map), width, height, views });
  const size = 4 * width * height;
  return views.map((_, i) => bytes.subarray(i * size, (i + 1) * size));
}
