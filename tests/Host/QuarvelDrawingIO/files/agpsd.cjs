// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Wrote agpsd.psd, agpsd.psb and agflat.psd, with the npm package ag-psd: node agpsd.cjs
const { writePsdBuffer } = require("ag-psd");
const fs = require("fs");

function pixels(width, height, colour) {
  const data = new Uint8ClampedArray(width * height * 4);
  for (let y = 0; y < height; y++) for (let x = 0; x < width; x++) data.set(colour(x, y), 4 * (y * width + x));
  return { width, height, data };
}

// Pixels that tell where they are.
const ramp = (x, y) => [10 * x, 20 * y, 7 * x + 3 * y, 255 - 9 * x];
const grey = (x, y) => [40 * x + 20 * y, 40 * x + 20 * y, 40 * x + 20 * y, 255];
const children = [
  { name: "ground", left: 0, top: 0, imageData: pixels(16, 12, ramp) },
  { name: "head", opened: true, opacity: 0.6, children: [
    { name: "Auge/é", left: 3, top: -2, opacity: 0.8, imageData: pixels(5, 4, ramp) },
    { name: "hidden", hidden: true, left: 1, top: 1, imageData: pixels(2, 2, ramp) },
    { name: "masked", left: 4, top: 4, imageData: pixels(6, 6, () => [200, 100, 50, 255]),
      mask: { left: 5, top: 5, defaultColor: 0, imageData: pixels(3, 3, grey) } },
  ] },
  { name: "shade", blendMode: "multiply", left: 8, top: 3, imageData: pixels(4, 4, ramp) },
  { name: "empty" },
];
const layered = { width: 16, height: 12, imageData: pixels(16, 12, ramp), children };
fs.writeFileSync("agpsd.psd", writePsdBuffer(layered, { noBackground: true }));
fs.writeFileSync("agpsd.psb", writePsdBuffer(layered, { psb: true, noBackground: true }));
const flat = { width: 16, height: 12, imageData: pixels(16, 12, (x, y) => [...ramp(x, y).slice(0, 3), 255]) };
fs.writeFileSync("agflat.psd", writePsdBuffer(flat, {}));
