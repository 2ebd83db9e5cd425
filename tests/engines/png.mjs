// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Samples of PNG files of 8 and 16 bits a channel, with colours and coverage: a browser would multiply them by
// coverage, and the tests need the samples of the file.
import { readFileSync } from "node:fs";
import { inflateSync } from "node:zlib";

function paeth(left, above, corner) {
  const guess = left + above - corner;
  const [a, b, c] = [Math.abs(guess - left), Math.abs(guess - above), Math.abs(guess - corner)];
  if (a <= b && a <= c) return left;
  return b <= c ? above : corner;
}

function unfilter(data, rowBytes, height, pixelBytes) {
  const rows = Buffer.alloc(rowBytes * height);
  for (let y = 0; y < height; y++) {
    const filter = data[y * (rowBytes + 1)];
    for (let i = 0; i < rowBytes; i++) {
      const at = y * rowBytes + i;
      const left = i >= pixelBytes ? rows[at - pixelBytes] : 0;
      const above = y > 0 ? rows[at - rowBytes] : 0;
      const corner = y > 0 && i >= pixelBytes ? rows[at - rowBytes - pixelBytes] : 0;
      const guess = [0, left, above, (left + above) >> 1, paeth(left, above, corner)][filter];
      rows[at] = (data[y * (rowBytes + 1) + 1 + i] + guess) & 255;
    }
  }
  return rows;
}

/** Reads a file: { width, height, bits, samples }, four samples a pixel, each from 0 to 1. */
export function readPng(path) {
  const file = readFileSync(path);
  const parts = [];
  let header;
  for (let at = 8; at < file.length; ) {
    const length = file.readUInt32BE(at);
    const type = file.toString("latin1", at + 4, at + 8);
    const body = file.subarray(at + 8, at + 8 + length);
    if (type === "IHDR") header = body;
    if (type === "IDAT") parts.push(body);
    at += length + 12;
  }
  const [width, height, bits] = [header.readUInt32BE(0), header.readUInt32BE(4), header[8]];
  if (header[9] !== 6 || header[12] !== 0) throw new Error(`${path} is a PNG file of another kind than R G B A`);
  const pixelBytes = bits / 2;
  const rows = unfilter(inflateSync(Buffer.concat(parts)), width * pixelBytes, height, pixelBytes);
  const samples = new Float64Array(width * height * 4);
  for (let i = 0; i < samples.length; i++) samples[i] = bits === 8 ? rows[i] / 255 : rows.readUInt16BE(2 * i) / 65535;
  return { width, height, bits, samples };
}
