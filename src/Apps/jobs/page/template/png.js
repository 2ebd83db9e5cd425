// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads the PNG files that the page holds. A browser's own decoder keeps 8 of 16 bits, which are too few for vectors.
"use strict";

async function inflated(parts) {
  const stream = new Blob(parts).stream().pipeThrough(new DecompressionStream("deflate"));
  return new Uint8Array(await new Response(stream).arrayBuffer());
}

// The chunks that matter: the header, and the compressed pixels.
function chunksOf(file) {
  const view = new DataView(file.buffer, file.byteOffset, file.byteLength);
  const parts = [];
  let header = null;
  for (let at = 8; at + 8 <= file.length; at += view.getUint32(at) + 12) {
    const type = String.fromCharCode(...file.subarray(at + 4, at + 8));
    const body = at + 8;
    if (type === "IHDR")
      header = { width: view.getUint32(body), height: view.getUint32(body + 4), bits: file[body + 8], colour: file[body + 9] };
    if (type === "IDAT") parts.push(file.subarray(body, body + view.getUint32(at)));
  }
  return { header, parts };
}

function paeth(left, up, corner) {
  const guess = left + up - corner;
  const [a, b, c] = [Math.abs(guess - left), Math.abs(guess - up), Math.abs(guess - corner)];
  return a <= b && a <= c ? left : b <= c ? up : corner;
}

// Undoes the filters in place. Each row is one byte that names its filter, then its samples.
function unfilter(bytes, height, rowLength, pixelLength) {
  for (let y = 0; y < height; y++) {
    const row = y * (rowLength + 1) + 1;
    const above = row - rowLength - 1;
    const filter = bytes[row - 1];
    if (filter === 0) continue;
    for (let i = 0; i < rowLength; i++) {
      const left = i >= pixelLength ? bytes[row + i - pixelLength] : 0;
      const up = y > 0 ? bytes[above + i] : 0;
      const corner = y > 0 && i >= pixelLength ? bytes[above + i - pixelLength] : 0;
      const guess = filter === 1 ? left : filter === 2 ? up : filter === 3 ? (left + up) >> 1 : paeth(left, up, corner);
      bytes[row + i] += guess;
    }
  }
}

const CHANNELS = { 0: 1, 2: 3, 4: 2, 6: 4 };

/** A PNG file with 8 or 16 bits a channel, without interlacing: { width, height, samples }, four samples of 16 bits a pixel. */
async function readPng(file) {
  const { header, parts } = chunksOf(file);
  const { width, height, bits, colour } = header;
  const channels = CHANNELS[colour];
  const sampleLength = bits / 8;
  const rowLength = width * channels * sampleLength;
  const bytes = await inflated(parts);
  unfilter(bytes, height, rowLength, channels * sampleLength);
  const samples = new Uint16Array(width * height * 4).fill(65535);
  const isGrey = channels < 3;
  for (let y = 0; y < height; y++) {
    let at = y * (rowLength + 1) + 1;
    const next = () => {
      const sample = sampleLength === 2 ? bytes[at] * 256 + bytes[at + 1] : bytes[at] * 257;
      at += sampleLength;
      return sample;
    };
    for (let to = 4 * y * width; to < 4 * (y + 1) * width; to += 4) {
      samples[to] = next();
      for (let c = 1; c < 3; c++) samples[to + c] = isGrey ? samples[to] : next();
      if (channels === 2 || channels === 4) samples[to + 3] = next();
    }
  }
  return { width, height, samples };
}
