// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What an engine should show: the plain formula, computed from the samples of the files. A sprite is turned about its
// middle; its textures are filtered linearly, the drawing with its colours multiplied by coverage; the light comes from
// far away and is white; the result is colour times the cosine between vector and light, on black.

function texel(picture, x, y, channel) {
  const inside = x >= 0 && y >= 0 && x < picture.width && y < picture.height;
  return inside ? picture.samples[4 * (y * picture.width + x) + channel] : null;
}

// Linear filtering at a position in pixels, with repeated edges: four samples with weights.
function filtered(picture, x, y, read) {
  const [left, top] = [Math.floor(x - 0.5), Math.floor(y - 0.5)];
  const [fx, fy] = [x - 0.5 - left, y - 0.5 - top];
  const clamp = (value, size) => Math.min(Math.max(value, 0), size - 1);
  let sum = 0;
  for (const [dx, dy, weight] of [[0, 0, (1 - fx) * (1 - fy)], [1, 0, fx * (1 - fy)], [0, 1, (1 - fx) * fy], [1, 1, fx * fy]])
    if (weight > 0) sum += weight * read(clamp(left + dx, picture.width), clamp(top + dy, picture.height));
  return sum;
}

/**
 * The picture, 0 to 1: width x height pixels of three.
 *
 * turn: degrees clockwise; flip: mirrored left to right before it is turned; light: a unit vector, x right, y up, z towards the viewer.
 * turnsVectors and turnsMirrored: whether the engine turns vectors with a turned sprite, and mirrors those of a mirrored one.
 * readsDown: whether it takes maps with y down. infersZ: whether it works out z from x and y instead of reading it.
 * power: of the cosine between vector and light; 1 for a surface with diffuse reflection.
 */
export function expectedPicture(drawing, map, { turn, flip, light, turnsVectors = true, turnsMirrored = true, readsDown = false, infersZ = false, power = 1 }) {
  const { width, height } = drawing;
  const angle = (turn * Math.PI) / 180;
  const [cos, sin] = [Math.round(Math.cos(angle) * 1e12) / 1e12, Math.round(Math.sin(angle) * 1e12) / 1e12];
  const shown = new Float64Array(width * height * 3);
  for (let y = 0; y < height; y++)
    for (let x = 0; x < width; x++) {
      const [dx, dy] = [x + 0.5 - width / 2, y + 0.5 - height / 2];
      // Rotates back into the sprite: y points down here, so clockwise is positive.
      const u = (flip ? -1 : 1) * (cos * dx + sin * dy) + width / 2;
      const v = -sin * dx + cos * dy + height / 2;
      if (u < 0 || v < 0 || u > width || v > height) continue;
      const coverage = filtered(drawing, u, v, (i, j) => texel(drawing, i, j, 3));
      if (coverage === 0) continue;
      const n = [0, 1, 2].map((c) => 2 * filtered(map, u, v, (i, j) => texel(map, i, j, c)) - 1);
      if (readsDown) n[1] = -n[1];
      if (infersZ) n[2] = Math.sqrt(Math.max(0, 1 - n[0] * n[0] - n[1] * n[1]));
      const length = Math.hypot(...n);
      const nx = ((flip && turnsMirrored ? -1 : 1) * n[0]) / length;
      const ny = n[1] / length;
      const turned = !turnsVectors ? [nx, ny, n[2] / length] : [cos * nx + sin * ny, -sin * nx + cos * ny, n[2] / length];
      const lit = Math.max(0, turned[0] * light[0] + turned[1] * light[1] + turned[2] * light[2]) ** power;
      for (let c = 0; c < 3; c++) {
        const colour = filtered(drawing, u, v, (i, j) => texel(drawing, i, j, c) * texel(drawing, i, j, 3));
        shown[3 * (y * width + x) + c] = Math.min(1, colour * lit);
      }
    }
  return shown;
}
