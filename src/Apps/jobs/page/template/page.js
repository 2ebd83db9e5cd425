// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The page: what its controls say is shown on the canvas. One drawing is under way at a time; what changes meanwhile is
// shown by the next.
"use strict";

const byId = (id) => document.getElementById(id);
const data = JSON.parse(byId("data").textContent);
const [canvas, stage, lamp] = [byId("picture"), byId("stage"), byId("lamp")];
const context = canvas.getContext("2d");
const KINDS = { drawing: ["Drawing", "_drawing"], normals: ["Normal map", "_n"], elevation: ["Elevation", "_e"] };
const SLIDERS = ["across", "up", "height", "ambient", "relief"];

// What a person has chosen; null: as it was rendered.
const chosen = { light: null, ambient: null };
let frame = 0;

function fileOf(index) {
  return Uint8Array.from(atob(byId(`picture-${index}`).textContent.trim()), (letter) => letter.charCodeAt(0));
}

function shownKind() {
  return document.querySelector("input[name=view]:checked").value;
}

// Surfaces are kept as long as they fit in this many bytes; those that were not shown for longest go first.
const MOST_KEPT = 400e6;
const surfaces = new Map();

async function surfaceOf({ drawing, normals }) {
  const key = `${drawing} ${normals}`;
  const known = surfaces.get(key) ?? makeSurface(await readPng(fileOf(drawing)), await readPng(fileOf(normals)), data.isYUp);
  surfaces.delete(key);
  surfaces.set(key, known);
  const bytesOf = ({ count }) => 23 * count;
  let kept = 0;
  for (const surface of surfaces.values()) kept += bytesOf(surface);
  for (const [oldest, surface] of surfaces) {
    if (kept <= MOST_KEPT || oldest === key) break;
    kept -= bytesOf(surface);
    surfaces.delete(oldest);
  }
  return known;
}

function lightingOf({ lighting }) {
  const rendered = data.lightings[lighting];
  const ambient = chosen.ambient === null ? rendered.ambient : [chosen.ambient, chosen.ambient, chosen.ambient];
  return { ...rendered, ambient, lights: chosen.light ? [chosen.light] : rendered.lights };
}

async function pixelsOf(shown, kind) {
  const pixels = new ImageData(data.width, data.height);
  if (kind === "lit") {
    shade(await surfaceOf(shown), lightingOf(shown), byId("relief").value / 100, pixels.data);
    return pixels;
  }
  const { samples } = await readPng(fileOf(shown[kind]));
  for (let i = 0; i < samples.length; i++) pixels.data[i] = samples[i] / 257;
  return pixels;
}

let isDrawing = false;
let isWanted = false;

async function draw() {
  isWanted = true;
  if (isDrawing) return;
  isDrawing = true;
  try {
    while (isWanted) {
      isWanted = false;
      context.putImageData(await pixelsOf(data.frames[frame], shownKind()), 0, 0);
      await new Promise((next) => (document.hidden ? setTimeout(next, 0) : requestAnimationFrame(next)));
    }
  } catch (error) {
    byId("trouble").textContent = `The picture cannot be shown: ${error.message}`;
  }
  isDrawing = false;
}

// The light's place, in units of half the picture's shorter side.

function placeOf(light) {
  if (!light) return { x: 0, y: 0, height: 1 };
  if (light.place) return light.place;
  const [x, y, height] = directionOf(light);
  return { x, y, height };
}

function lightAt({ x, y, height }) {
  const colour = [1, 1, 1];
  if (document.querySelector("input[name=kind]:checked").value === "near") return { colour, place: { x, y, height, reach: 1.5 } };
  const degrees = 180 / Math.PI;
  return { colour, azimuth: Math.atan2(y, x) * degrees, height: Math.atan2(height, Math.hypot(x, y)) * degrees };
}

function showPlace({ x, y }) {
  const [halfWidth, halfHeight] = [data.width / 2, data.height / 2];
  const unit = Math.min(halfWidth, halfHeight);
  lamp.style.left = `${50 + (50 * x * unit) / halfWidth}%`;
  lamp.style.top = `${50 - (50 * y * unit) / halfHeight}%`;
}

function showValues() {
  for (const id of SLIDERS) {
    const isPercent = id === "ambient" || id === "relief";
    const text = isPercent ? `${byId(id).value} %` : Number(byId(id).value).toFixed(2);
    byId(`${id}-value`).textContent = text;
    byId(id).setAttribute("aria-valuetext", text);
  }
}

// Sets the controls to how the frame was rendered, but for those that a person has set.
function showRendered() {
  const { lights, ambient } = data.lightings[data.frames[frame].lighting];
  if (!chosen.light) {
    const place = placeOf(lights[0]);
    document.querySelector(`input[name=kind][value=${lights[0]?.place ? "near" : "far"}]`).checked = true;
    byId("across").value = place.x;
    byId("up").value = place.y;
    byId("height").value = place.height;
    showPlace(place);
  }
  if (chosen.ambient === null) byId("ambient").value = (100 * (ambient[0] + ambient[1] + ambient[2])) / 3;
  showValues();
}

function reset() {
  [chosen.light, chosen.ambient] = [null, null];
  byId("relief").value = 100;
  showRendered();
  draw();
}

function moveLight() {
  const place = { x: Number(byId("across").value), y: Number(byId("up").value), height: Number(byId("height").value) };
  chosen.light = lightAt(place);
  showPlace(place);
  showValues();
  draw();
}

function follow(event) {
  const box = stage.getBoundingClientRect();
  const unit = Math.min(box.width, box.height) / 2;
  byId("across").value = (event.clientX - box.left - box.width / 2) / unit;
  byId("up").value = (box.top + box.height / 2 - event.clientY) / unit;
  moveLight();
}

function connectLight() {
  const area = document.querySelector("main");
  area.addEventListener("pointermove", (event) => {
    if (!byId("held").checked || event.pointerType === "touch") follow(event);
  });
  area.addEventListener("pointerdown", (event) => {
    follow(event);
    if (event.pointerType !== "touch") byId("held").checked = !byId("held").checked;
  });
  for (const id of ["across", "up", "height"]) byId(id).addEventListener("input", moveLight);
  for (const radio of document.querySelectorAll("input[name=kind]")) radio.addEventListener("change", moveLight);
  byId("ambient").addEventListener("input", () => {
    chosen.ambient = byId("ambient").value / 100;
    showValues();
    draw();
  });
  byId("relief").addEventListener("input", () => {
    showValues();
    draw();
  });
  byId("reset").addEventListener("click", reset);
}

function connectViews() {
  for (const radio of document.querySelectorAll("input[name=view]")) {
    radio.parentElement.hidden = radio.value !== "lit" && data.frames[0][radio.value] === undefined;
    radio.addEventListener("change", () => {
      lamp.hidden = byId("light").disabled = shownKind() !== "lit";
      draw();
    });
  }
}

// Files are made when they are asked for: a film has hundreds.
function download(kind, suffix) {
  const number = data.frames.length > 1 ? `_${String(data.frames[frame].number).padStart(4, "0")}` : "";
  const link = document.createElement("a");
  link.download = `${data.name}${number}${suffix}.png`;
  link.href = URL.createObjectURL(new Blob([fileOf(data.frames[frame][kind])], { type: "image/png" }));
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 10000);
}

function connectDownloads() {
  for (const [kind, [title, suffix]] of Object.entries(KINDS)) {
    if (data.frames[0][kind] === undefined) continue;
    const button = document.createElement("button");
    button.type = "button";
    button.textContent = title;
    button.addEventListener("click", () => download(kind, suffix));
    byId("downloads").append(button);
  }
}

function showFrame(index) {
  frame = index;
  byId("frame").value = index + 1;
  const text = `${index + 1} / ${data.frames.length}`;
  byId("frame-value").textContent = text;
  byId("frame").setAttribute("aria-valuetext", text);
  showRendered();
  draw();
}

let playing = null;

// Frames follow the clock: where a browser cannot keep up, some are left out and the time stays right.
function play(isOn) {
  cancelAnimationFrame(playing?.request);
  playing = isOn ? { from: frame, since: performance.now() } : null;
  byId("play").textContent = isOn ? "Pause" : "Play";
  byId("play").setAttribute("aria-pressed", String(isOn));
  const step = (now) => {
    const passed = Math.floor((Math.max(0, now - playing.since) / 1000) * data.framesPerSecond);
    const index = (playing.from + passed) % data.frames.length;
    if (index !== frame && !isDrawing) showFrame(index);
    playing.request = requestAnimationFrame(step);
  };
  if (isOn) playing.request = requestAnimationFrame(step);
}

function connectFilm() {
  if (data.frames.length < 2) return;
  byId("film").hidden = false;
  byId("downloads-title").textContent = "Downloads of this frame";
  byId("frame").max = data.frames.length;
  byId("frame").addEventListener("input", () => {
    play(false);
    showFrame(byId("frame").value - 1);
  });
  byId("play").addEventListener("click", () => play(!playing));
  showFrame(0);
  if (!matchMedia("(prefers-reduced-motion: reduce)").matches) play(true);
}

// The picture is as large as it fits; small ones grow in whole steps and keep their pixels.
function fit() {
  const area = document.querySelector("main");
  const room = Math.min((area.clientWidth - 48) / data.width, (area.clientHeight - 48) / data.height);
  const scale = room >= 2 ? Math.floor(room) : Math.min(room, 1);
  const grown = Math.max(data.width, data.height) <= 128 ? scale : Math.min(room, Math.max(1, 640 / Math.max(data.width, data.height)));
  canvas.classList.toggle("coarse", Math.max(data.width, data.height) <= 128);
  stage.style.width = `${data.width * grown}px`;
  stage.style.height = `${data.height * grown}px`;
}

[canvas.width, canvas.height] = [data.width, data.height];
addEventListener("resize", fit);
fit();
connectLight();
connectViews();
connectDownloads();
connectFilm();
reset();
