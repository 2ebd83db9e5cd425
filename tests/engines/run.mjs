// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Draws a white disc and the example in every engine, lit from eight sides, unturned, turned and mirrored, and compares
// every pixel with the result of the same light on the map's own vectors.
//
//     node run.mjs QUARVEL EXAMPLES NODE_MODULES [ENGINE...]
//
// Exit code: 0 when all pixels agree, 1 when one does not, 77 when a requirement is missing.
import { execFileSync } from "node:child_process";
import { existsSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createServer } from "node:http";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { dirname, extname, join, normalize } from "node:path";
import { fileURLToPath } from "node:url";
import { frameNames, makeAtlases, SPRITES, TURNED } from "./atlases.mjs";
import { expectedPicture } from "./expected.mjs";
import * as godot3 from "./godot3.mjs";
import { readPng } from "./png.mjs";

const HERE = dirname(fileURLToPath(import.meta.url));
const CHROMIUM = "/usr/bin/chromium";
const FLAGS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
  "--disable-component-update", "--disable-sync", "--use-angle=swiftshader", "--enable-unsafe-swiftshader", "--force-color-profile=srgb"];
const LIMIT = 2 / 255;
// Hardware filters linearly with weights of 8 bits between pixels, and a browser drops the lower 8 of 16 bits: each may
// cost one more step.
const LIMIT_COARSE = 3 / 255;

// turns: vectors turn with a turned sprite; mirrors: vectors are mirrored with a mirrored one. An engine need not do
// these: the test checks that it does what is listed here, and docs/targets.md says so. freely: sprites can be compared
// at any angle; melonJS draws them a fraction of a pixel off at angles other than right ones. unturns: sprites that lie
// turned on the page of an atlas are drawn upright; Phaser 4.2 draws them mirrored and out of shape, with or without light.
// atlases: the formats that belong to the engine. runner: what runs the engine instead of a browser.
//
// Godot 3 takes maps with y down, works out z from x and y, and lets the cosine between vector and light count twice: it
// multiplies the colour and the coverage with which a lamp's light is added. It filters straight colours, which darkens
// edges at angles other than right ones, whatever the map is.
const ENGINES = {
  phaser: { turns: true, mirrors: false, freely: true, unturns: false, atlases: ["array", "hash", "aseprite"] },
  pixi: { turns: true, mirrors: true, freely: true, unturns: true, atlases: ["hash"] },
  melonjs: { turns: false, mirrors: false, freely: false, unturns: true, atlases: ["array"] },
  three: { turns: true, mirrors: true, freely: true, unturns: true, atlases: [] },
  godot3: { turns: true, mirrors: false, freely: false, atlases: [], runner: godot3, readsDown: true, infersZ: true, power: 2 },
};

const [program, examples, modules, ...chosen] = process.argv.slice(2);

// What is missing to run an engine; nothing when all is there.
function missingFor(engine) {
  if (ENGINES[engine].runner) return ENGINES[engine].runner.missing();
  if (!existsSync(CHROMIUM)) return `${CHROMIUM} is missing; it is in Debian's package chromium`;
  const name = ["melonjs", "phaser", "pixi.js", "playwright-core", "three"].find((name) => !existsSync(join(modules, name)));
  return name && `the npm package ${name} is missing in ${modules}`;
}

const TYPES = { ".json": "application/json", ".html": "text/html", ".mjs": "text/javascript", ".js": "text/javascript", ".png": "image/png" };

function serve(folder) {
  const server = createServer((request, response) => {
    const path = normalize(decodeURIComponent(new URL(request.url, "http://here").pathname));
    const places = path.startsWith("/node_modules/") ? [join(modules, path.slice(14))] : [join(HERE, path), join(folder, path)];
    const file = places.find((place) => existsSync(place));
    if (!file) return response.writeHead(404).end();
    response.writeHead(200, { "content-type": TYPES[extname(file)] ?? "application/octet-stream" }).end(readFileSync(file));
  });
  return new Promise((ready) => server.listen(0, "127.0.0.1", () => ready(server)));
}

const DISC = `<svg xmlns="http://www.w3.org/2000/svg" width="128" height="128"><circle cx="64" cy="64" r="50.3" fill="#fff"/></svg>`;

// The pictures of a drawing for an engine: written with --for and, unless it takes other maps than most, without.
function makeSprites(folder, engine) {
  const ways = ENGINES[engine].readsDown ? [["--for", engine]] : [["--for", engine], []];
  writeFileSync(join(folder, "disc.svg"), DISC);
  const sprites = [];
  for (const [name, file, size] of [["disc", join(folder, "disc.svg"), "128"], ["example", join(examples, "hero.svg"), "160"]])
    // The default options are tested on the disc, which shows every possible fault.
    for (const words of name === "disc" ? ways : ways.slice(0, 1)) {
      const base = `${engine}-${name}${words.length ? "" : "-default"}`;
      const [map, drawing] = [`${base}_n.png`, `${base}.png`];
      execFileSync(program, ["normalmap", file, "-q", "--size", size, "-o", join(folder, map), "--drawing", join(folder, drawing), ...words]);
      const { width, height } = readPng(join(folder, map));
      sprites.push({ name: base, isSmooth: name === "disc", map, drawing, width, height });
    }
  return sprites;
}

// Free angles are compared on the disc alone: where vectors of two parts meet, the filter's weights dominate.
function views({ turns, mirrors, freely, readsDown, infersZ, power }, isSmooth) {
  const all = [];
  for (let side = 0; side < 8; side++) {
    const angle = (side * Math.PI) / 4;
    const light = [Math.cos(angle) * Math.SQRT1_2, Math.sin(angle) * Math.SQRT1_2, Math.SQRT1_2];
    all.push({ light, turn: 0, flip: false });
    for (const turn of isSmooth && freely ? [90, 180, 30] : [90, 180]) all.push({ light, turn, flip: false });
    all.push({ light, turn: 0, flip: true });
  }
  return all.map((view) => ({ ...view, turnsVectors: turns, turnsMirrored: mirrors, readsDown, infersZ, power }));
}

function compare(shown, expected, drawing) {
  const found = { inside: 0, edge: 0 };
  for (let i = 0; i < expected.length / 3; i++)
    for (let c = 0; c < 3; c++) {
      const off = Math.abs(shown[4 * i + c] / 255 - expected[3 * i + c]);
      const coverage = drawing.samples[4 * i + 3];
      const where = coverage === 1 ? "inside" : "edge";
      found[where] = Math.max(found[where], off);
    }
  return found;
}

async function openPage(browser, port) {
  const page = await browser.newPage();
  const messages = [];
  page.on("pageerror", (error) => messages.push(String(error)));
  page.on("console", (message) => message.type() === "error" && messages.push(message.text()));
  await page.goto(`http://127.0.0.1:${port}/page.html`);
  await page.waitForFunction("window.ready");
  return { page, messages };
}

// Draws a sprite in every view, in a page of the browser: the pixels of each, R G B A bytes.
async function drawInPage(browser, port, engine, sprite, all) {
  const { page, messages } = await openPage(browser, port);
  const { width, height } = sprite;
  await page.evaluate(([name, what]) => window.setUp(name, what), [engine, { drawing: `/${sprite.drawing}`, map: `/${sprite.map}`, width, height }])
    .catch((error) => { throw new Error(`${engine}: ${error.message}\n${messages.join("\n")}`); });
  const pictures = [];
  for (const view of all) pictures.push(Buffer.from(await page.evaluate((v) => window.draw(v), view), "base64"));
  for (const message of messages) console.log(`  the page says: ${message}`);
  await page.close();
  return pictures;
}

async function check(folder, engine, draw) {
  let wrong = 0;
  for (const sprite of makeSprites(folder, engine)) {
    const all = views(ENGINES[engine], sprite.isSmooth);
    const pictures = await draw(sprite, all);
    const [drawing, map] = [readPng(join(folder, sprite.drawing)), readPng(join(folder, sprite.map))];
    const worst = {};
    for (const [i, view] of all.entries()) {
      const found = compare(pictures[i], expectedPicture(drawing, map, view), drawing);
      const kind = view.flip ? "mirrored" : view.turn === 0 ? "straight" : `turned ${view.turn}`;
      worst[kind] = { inside: Math.max(worst[kind]?.inside ?? 0, found.inside), edge: Math.max(worst[kind]?.edge ?? 0, found.edge) };
    }
    for (const [kind, { inside, edge }] of Object.entries(worst)) {
      const limit = kind === "turned 30" || map.bits === 16 ? LIMIT_COARSE : LIMIT;
      const right = inside <= limit && edge <= limit;
      wrong += right ? 0 : 1;
      console.log(`${right ? "right" : "WRONG"}  ${sprite.name}, ${kind}: inside ${(255 * inside).toFixed(2)}, edge ${(255 * edge).toFixed(2)} of 255`);
    }
  }
  return wrong;
}

// The largest size of a sprite of the page.
const SCREEN = { width: 64, height: 64 };

// A sprite alone, in the upper left corner of the screen.
function onScreen(picture) {
  const screen = { ...SCREEN, bits: picture.bits, samples: new Float64Array(SCREEN.width * SCREEN.height * 4) };
  for (let y = 0; y < picture.height; y++)
    screen.samples.set(picture.samples.subarray(4 * picture.width * y, 4 * picture.width * (y + 1)), 4 * SCREEN.width * y);
  return screen;
}

// Every frame of an atlas is lit as the sprite alone, however it lies on the page.
async function checkAtlas(browser, port, folder, engine, format, atlas) {
  const { page, messages } = await openPage(browser, port);
  await page.evaluate(([name, what]) => window.setUp(name, what), [`${engine}-atlas`, { page: "/page.png", map: "/page_n.png", atlas: `/${atlas}`, format, ...SCREEN }])
    .catch((error) => { throw new Error(`${engine}: ${error.message}\n${messages.join("\n")}`); });
  let wrong = 0;
  const tell = (right, text) => {
    wrong += right ? 0 : 1;
    console.log(`${right ? "right" : "WRONG"}  ${engine}, ${format} atlas, ${text}`);
  };
  const names = await page.evaluate(() => window.stage.names());
  const expected = frameNames(format);
  tell(expected.every((name) => names.includes(name)), `frames: ${names.join(" ")}`);
  const animations = await page.evaluate(() => window.stage.animations());
  for (const [name, frames] of Object.entries(animations)) tell(frames.join(" ") === expected.slice(1).join(" "), `${name} plays ${frames.join(" ")}`);
  for (const [i, sprite] of SPRITES.entries()) {
    const name = expected[i];
    if (i === TURNED && !ENGINES[engine].unturns) continue;
    const drawing = onScreen(readPng(join(folder, `${sprite}.png`)));
    const map = onScreen(readPng(join(folder, `${sprite}_n.png`)));
    let worst = 0;
    for (let side = 0; side < 8; side++) {
      const angle = (side * Math.PI) / 4;
      const view = { name, turn: 0, flip: false, light: [Math.cos(angle) * Math.SQRT1_2, Math.sin(angle) * Math.SQRT1_2, Math.SQRT1_2] };
      const shown = Buffer.from(await page.evaluate((v) => window.draw(v), view), "base64");
      const { inside, edge } = compare(shown, expectedPicture(drawing, map, view), drawing);
      worst = Math.max(worst, inside, edge);
    }
    // It was painted turned, so its antialiased edge differs a little from that of the sprite alone.
    tell(worst <= (i === TURNED ? LIMIT_COARSE : LIMIT), `${name}: ${(255 * worst).toFixed(2)} of 255`);
  }
  for (const message of messages) console.log(`  the page says: ${message}`);
  await page.close();
  return wrong;
}

// The frames of an atlas of the engine's own, in a runner.
function checkRunnersAtlas(folder, engine) {
  makeAtlases(program, folder, engine);
  let wrong = 0;
  for (const sprite of SPRITES.slice(0, TURNED)) {
    const drawing = onScreen(readPng(join(folder, `${sprite}.png`)));
    const map = onScreen(readPng(join(folder, `${sprite}_n.png`)));
    const all = views({ ...ENGINES[engine], freely: false }, false).filter(({ turn, flip }) => turn === 0 && !flip);
    const pictures = ENGINES[engine].runner.drawAtlas(program, folder, sprite, SCREEN, all);
    let worst = 0;
    for (const [i, view] of all.entries()) {
      const { inside, edge } = compare(pictures[i], expectedPicture(drawing, map, view), drawing);
      worst = Math.max(worst, inside, edge);
    }
    const right = worst <= LIMIT;
    wrong += right ? 0 : 1;
    console.log(`${right ? "right" : "WRONG"}  ${engine}, .tres atlas, ${sprite}: ${(255 * worst).toFixed(2)} of 255`);
  }
  return wrong;
}

async function checkInBrowser(folder, engines) {
  const { chromium } = createRequire(join(modules, "playwright-core/package.json"))("playwright-core");
  const server = await serve(folder);
  const browser = await chromium.launch({ executablePath: CHROMIUM, args: FLAGS });
  let wrong = 0;
  try {
    const { port } = server.address();
    for (const engine of engines) {
      wrong += await check(folder, engine, (sprite, all) => drawInPage(browser, port, engine, sprite, all));
      const atlases = ENGINES[engine].atlases.length ? makeAtlases(program, folder, engine) : {};
      for (const format of ENGINES[engine].atlases) wrong += await checkAtlas(browser, port, folder, engine, format, atlases[format]);
    }
  } finally {
    await browser.close();
    server.close();
  }
  return wrong;
}

const wanted = chosen.length ? chosen : Object.keys(ENGINES);
const engines = wanted.filter((engine) => {
  const reason = missingFor(engine);
  if (reason) console.log(`skipped: ${engine}: ${reason}`);
  return !reason;
});
if (engines.length === 0) process.exit(77);
const inBrowser = engines.filter((engine) => !ENGINES[engine].runner);
const folder = mkdtempSync(join(tmpdir(), "engines-"));
let wrong = 0;
try {
  for (const engine of engines.filter((engine) => ENGINES[engine].runner)) {
    wrong += await check(folder, engine, (sprite, all) => ENGINES[engine].runner.draw(folder, sprite, all));
    wrong += checkRunnersAtlas(folder, engine);
  }
  if (inBrowser.length) wrong += await checkInBrowser(folder, inBrowser);
} finally {
  rmSync(folder, { recursive: true });
}
process.exit(wrong ? 1 : 0);
