// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Lights a drawing by its normals, in the model of lit pictures:
//
//     lit = colour (ambient + sum of light_i f_i max(0, n . l_i)) + sum of light_i f_i highlight max(0, n . h_i)^sharpness
//
// in linear light, encoded as sRGB; coverage stays the drawing's. l_i is the direction to light i and h_i that of
// l_i + (0, 0, 1). A light from far away has one direction and f = 1; one at a place (x, y, height), in units of half
// the picture's shorter side, has f = 1 / (1 + (r / reach)^2) at the distance r from its foot. x is right, y up, z
// towards the viewer.
"use strict";

const LINEAR_OF_SRGB = Float32Array.from({ length: 65536 }, (_, code) => {
  const encoded = code / 65535;
  return encoded <= 0.04045 ? encoded / 12.92 : Math.pow((encoded + 0.055) / 1.055, 2.4);
});

const STEPS = 4096;
const SRGB_BYTES = Float32Array.from({ length: STEPS + 2 }, (_, i) => {
  const linear = Math.min(i / STEPS, 1);
  return 255 * (linear <= 0.0031308 ? linear * 12.92 : 1.055 * Math.pow(linear, 1 / 2.4) - 0.055);
});

// The byte of an amount of light; the array that it is stored in rounds it.
function encoded(linear) {
  if (!(linear > 0)) return 0;
  if (linear >= 1) return 255;
  const position = linear * STEPS;
  const index = Math.floor(position);
  return SRGB_BYTES[index] + (position - index) * (SRGB_BYTES[index + 1] - SRGB_BYTES[index]);
}

// A component of a vector. Zero lies halfway between two codes and is stored as the upper one.
function component(code) {
  return code === 32768 ? 0 : code / 32767.5 - 1;
}

/**
 * What light falls on: the covered pixels of a drawing, one after the other, with their vectors.
 *
 * drawing and normals: of readPng(), of one size; isYUp: where the green of the normals points.
 */
function makeSurface(drawing, normals, isYUp) {
  const { width, height, samples } = drawing;
  let count = 0;
  for (let at = 3; at < samples.length; at += 4) count += samples[at] > 0 ? 1 : 0;
  const surface = {
    width, height, count,
    pixel: new Uint32Array(count),
    vectors: new Float32Array(3 * count),
    colours: new Uint16Array(3 * count),
    coverage: new Uint8ClampedArray(count),
  };
  for (let at = 0, i = 0; at < samples.length; at += 4) {
    if (samples[at + 3] === 0) continue;
    const x = component(normals.samples[at]);
    const y = (isYUp ? 1 : -1) * component(normals.samples[at + 1]);
    const z = component(normals.samples[at + 2]);
    const length = Math.hypot(x, y, z) || 1;
    surface.pixel[i] = at / 4;
    surface.vectors.set([x / length, y / length, z / length], 3 * i);
    surface.colours.set(samples.subarray(at, at + 3), 3 * i);
    surface.coverage[i] = samples[at + 3] / 257;
    i++;
  }
  return surface;
}

function directionOf({ azimuth, height }) {
  const [around, above] = [(azimuth * Math.PI) / 180, (height * Math.PI) / 180];
  return [Math.cos(above) * Math.cos(around), Math.cos(above) * Math.sin(around), Math.sin(above)];
}

// What a light is at a pixel: two directions and how much of it is left.
class Ray {
  constructor(light, { width, height }) {
    this.light = light;
    this.unit = 2 / Math.min(width, height);
    this.halfWidth = width / 2;
    this.halfHeight = height / 2;
    this.fall = 1;
    if (!light.place) this.aim(...directionOf(light));
  }

  aim(x, y, z) {
    [this.x, this.y, this.z] = [x, y, z];
    const length = Math.sqrt(x * x + y * y + (z + 1) * (z + 1));
    const scale = length < 1e-6 ? 0 : 1 / length;
    [this.hx, this.hy, this.hz] = [x * scale, y * scale, (z + 1) * scale];
  }

  // Only for a light at a place.
  moveTo(column, row) {
    const { place } = this.light;
    const x = place.x - (column + 0.5 - this.halfWidth) * this.unit;
    const y = place.y - (this.halfHeight - (row + 0.5)) * this.unit;
    const flat = x * x + y * y;
    const length = Math.sqrt(flat + place.height * place.height);
    this.aim(x / length, y / length, place.height / length);
    this.fall = 1 / (1 + flat / (place.reach * place.reach));
  }
}

/**
 * Lights a surface.
 *
 * lighting: { ambient, lights, highlight, sharpness }, colours as three linear amounts; relief: how much the vectors
 * lean, 1 as they are; bytes: R G B A of the whole picture, straight; what is not covered is left alone.
 */
function shade(surface, lighting, relief, bytes) {
  const { width, vectors, colours, pixel, coverage, count } = surface;
  const rays = lighting.lights.map((light) => new Ray(light, surface));
  const { ambient, highlight, sharpness } = lighting;
  for (let i = 0; i < count; i++) {
    const at = pixel[i];
    const index = 3 * i;
    let x = vectors[index] * relief;
    let y = vectors[index + 1] * relief;
    let z = vectors[index + 2];
    if (relief !== 1) {
      const scale = 1 / (Math.sqrt(x * x + y * y + z * z) || 1);
      x *= scale;
      y *= scale;
      z *= scale;
    }
    // Light and highlights in red, green and blue.
    let [lightR, lightG, lightB, shineR, shineG, shineB] = [ambient[0], ambient[1], ambient[2], 0, 0, 0];
    for (const ray of rays) {
      if (ray.light.place) ray.moveTo(at % width, Math.floor(at / width));
      const cosine = x * ray.x + y * ray.y + z * ray.z;
      if (cosine <= 0) continue;
      const { colour } = ray.light;
      const amount = ray.fall * cosine;
      lightR += amount * colour[0];
      lightG += amount * colour[1];
      lightB += amount * colour[2];
      const halfway = highlight > 0 ? x * ray.hx + y * ray.hy + z * ray.hz : 0;
      if (halfway <= 0) continue;
      const strength = ray.fall * highlight * Math.pow(Math.min(halfway, 1), sharpness);
      shineR += strength * colour[0];
      shineG += strength * colour[1];
      shineB += strength * colour[2];
    }
    bytes[4 * at] = encoded(LINEAR_OF_SRGB[colours[index]] * lightR + shineR);
    bytes[4 * at + 1] = encoded(LINEAR_OF_SRGB[colours[index + 1]] * lightG + shineG);
    bytes[4 * at + 2] = encoded(LINEAR_OF_SRGB[colours[index + 2]] * lightB + shineB);
    bytes[4 * at + 3] = coverage[i];
  }
}
