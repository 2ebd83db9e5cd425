// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A page with three sprites and the atlases that name them: one as it is, one trimmed, one trimmed and turned clockwise
// on the page. Each sprite is a drawing of its own too, for comparison.
import { execFileSync } from "node:child_process";
import { writeFileSync } from "node:fs";
import { join } from "node:path";

const BALL = `<circle cx="24" cy="24" r="19.3" fill="#fff"/>`;
// No two sides of this one are alike. It covers 44 x 32 of 56 x 44 pixels, from 4, 6 on.
const HAND = `<g transform="translate(4 6)"><rect x="0" y="4" width="26" height="28" fill="#fff"/><circle cx="32" cy="12" r="12" fill="#c8c8c8"/></g>`;
const svg = (width, height, content) => `<svg xmlns="http://www.w3.org/2000/svg" width="${width}" height="${height}">${content}</svg>`;

const TRIMMED = { spriteSourceSize: { x: 4, y: 6, w: 44, h: 32 }, sourceSize: { w: 56, h: 44 } };
const WHOLE = { spriteSourceSize: { x: 0, y: 0, w: 48, h: 48 }, sourceSize: { w: 48, h: 48 } };
const FRAMES = [
  { filename: "ball_0", frame: { x: 0, y: 0, w: 48, h: 48 }, rotated: false, trimmed: false, ...WHOLE },
  { filename: "hand_0", frame: { x: 52, y: 2, w: 44, h: 32 }, rotated: false, trimmed: true, ...TRIMMED },
  { filename: "hand_1", frame: { x: 100, y: 2, w: 44, h: 32 }, rotated: true, trimmed: true, ...TRIMMED },
];
const PAGE = { width: 136, height: 52 };

/** The frames of an atlas in their order: their names, and which picture each of them is. */
export const frameNames = (format) => FORMATS[format].frames.length ? FORMATS[format].frames.map(({ filename }) => filename) : Object.keys(FORMATS[format].frames);
export const SPRITES = ["ball", "hand", "hand"];
export const TURNED = 2;

// Exporters write durations and tags; without them there is nothing to play.
const FORMATS = {
  array: { frames: FRAMES },
  hash: { frames: Object.fromEntries(FRAMES.map(({ filename, ...frame }) => [filename, frame])) },
  // Aseprite's tags count frames, so its frames are called by their places.
  aseprite: { frames: FRAMES.map((frame, i) => ({ ...frame, filename: `${i}`, duration: 100 })) },
};

/** Draws the page with its sprites alone, and makes the maps of all. Returns the atlases' names by their formats. */
export function makeAtlases(program, folder, target) {
  const quarvel = (...words) => execFileSync(program, ["normalmap", "-q", ...words], { cwd: folder });
  // The hand's first pixels are cut off by the trimming, so they are drawn from 0, 0 on, and turned clockwise about there.
  const hand = HAND.replace("translate(4 6)", "translate(52 2)");
  const turned = HAND.replace("translate(4 6)", "translate(132 2) rotate(90)");
  const meta = { image: "page.png", size: { w: PAGE.width, h: PAGE.height }, scale: "1", frameTags: [{ name: "wave", from: 1, to: 2, direction: "forward" }] };
  for (const [name, drawing] of Object.entries({ ball: svg(48, 48, BALL), hand: svg(56, 44, HAND), page: svg(PAGE.width, PAGE.height, BALL + hand + turned) })) {
    writeFileSync(join(folder, `${name}.svg`), drawing);
    quarvel(`${name}.svg`, "-o", `${name}_drawn_n.png`, "--drawing", `${name}.png`);
  }
  for (const sprite of ["ball", "hand"]) quarvel(`${sprite}.png`, "--for", target, "-o", `${sprite}_n.png`);
  const atlases = {};
  for (const [format, content] of Object.entries(FORMATS)) {
    atlases[format] = `${format}.json`;
    writeFileSync(join(folder, atlases[format]), JSON.stringify({ ...content, meta: { ...meta, app: format === "aseprite" ? "aseprite" : "texturepacker" } }));
    quarvel("--atlas", atlases[format], "--for", target);
  }
  return atlases;
}
