// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pages of --html in a browser: they show what --lit writes, need no network, tell screen readers what their controls
// are, and hand out the files that they hold.
//
//     node run.mjs QUARVEL EXAMPLES
//
// Exit code: 0 when all is right, 1 when something is not, 77 when a requirement is missing.
import { execFileSync } from "node:child_process";
import { existsSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { pathToFileURL } from "node:url";
import { readPng } from "../../../engines/png.mjs";
import { Chromium } from "./chromium.mjs";

const CHROMIUM = "/usr/bin/chromium";
const [program, examples] = process.argv.slice(2);
if (!existsSync(CHROMIUM)) {
  console.log(`skipped: ${CHROMIUM} is missing; it is in Debian's package chromium`);
  process.exit(77);
}

const folder = mkdtempSync(join(tmpdir(), "pages-"));
const browser = new Chromium(CHROMIUM, join(folder, "profile"));
let wrong = 0;

function expect(isRight, what) {
  console.log(`${isRight ? "right" : "WRONG"}  ${what}`);
  wrong += isRight ? 0 : 1;
}

function quarvel(...words) {
  return execFileSync(program, words, { cwd: folder, stdio: ["ignore", "pipe", "inherit"] }).toString();
}

// Runs before the page's own scripts. The pixels that the page puts on its canvas are noted before the browser
// multiplies them by alpha, and files before they are downloaded.
const NOTING = `
  const put = CanvasRenderingContext2D.prototype.putImageData;
  window.noted = { pictures: 0, files: [] };
  CanvasRenderingContext2D.prototype.putImageData = function (image, ...rest) {
    noted.image = image;
    noted.pictures++;
    put.call(this, image, ...rest);
  };
  URL.createObjectURL = (blob) => { noted.files.push(blob); return "data:,"; };
  window.textOf = (bytes) => { let text = ""; for (const byte of bytes) text += String.fromCharCode(byte); return btoa(text); };
  // Does something and returns the pixels of the picture that the page shows then.
  window.shownAfter = async (change) => {
    while (isDrawing || isWanted) await new Promise((next) => setTimeout(next, 5));
    const before = noted.pictures;
    change();
    while (noted.pictures === before || isDrawing || isWanted) await new Promise((next) => setTimeout(next, 5));
    return textOf(noted.image.data);
  };`;

const requests = [];
const complaints = [];
browser.listen("Network.requestWillBeSent", ({ request }) => requests.push(request.url));
browser.listen("Runtime.exceptionThrown", ({ exceptionDetails }) => complaints.push(exceptionDetails.exception?.description));
browser.listen("Log.entryAdded", ({ entry }) => complaints.push(entry.text));
browser.listen("Page.javascriptDialogOpening", ({ message }) => complaints.push(`a dialog: ${message}`));

async function open(page) {
  await browser.openPage();
  await browser.send("Page.addScriptToEvaluateOnNewDocument", { source: NOTING });
  const loaded = new Promise((done) => browser.listen("Page.loadEventFired", done));
  await browser.send("Page.navigate", { url: pathToFileURL(join(folder, page)).href });
  await loaded;
}

async function shownAfter(change) {
  return Buffer.from(await browser.evaluate(`shownAfter(() => { ${change} })`), "base64");
}

const setTo = (id, value) => `byId("${id}").value = ${value}; byId("${id}").dispatchEvent(new Event("input"));`;

// The largest difference from a lit picture, in steps of 255, where anything is covered; and whether nothing is shown
// where nothing is.
function difference(shown, file) {
  const { samples, width, height } = readPng(join(folder, file));
  if (shown.length !== 4 * width * height) return Infinity;
  let worst = 0;
  for (let i = 0; i < shown.length; i++) {
    const isCovered = samples[4 * Math.floor(i / 4) + 3] > 0;
    worst = Math.max(worst, Math.abs(shown[i] - (isCovered ? 255 * samples[i] : 0)));
  }
  return worst;
}

function expectEqual(shown, file, what) {
  const off = difference(shown, file);
  expect(off <= 1, `${what} equals the lit picture within 1 of 255: ${off.toFixed(3)}`);
}

async function checkDrawings() {
  const hero = join(examples, "hero.svg");
  const soft = `<svg xmlns="http://www.w3.org/2000/svg" width="90" height="61">
    <circle cx="40" cy="30" r="29.3" fill="#183050" opacity="0.4"/><circle cx="50" cy="33" r="19.5" fill="#fffdf5"/></svg>`;
  writeFileSync(join(folder, "soft.svg"), soft);
  const cases = [["as it is", hero, []], ["with y down", hero, ["--y", "down", "--pad", "0", "--alpha", "coverage"]],
    ["in 8 bits", hero, ["--for", "phaser", "--bits", "8"]], ["with a grazing light", hero, ["--light", "20,8"]],
    ["translucent", "soft.svg", ["--light", "250,70"]], ["in float", "soft.svg", ["--float"]]];
  for (const [name, drawing, words] of cases) {
    // The lit picture is not dithered, so that each step is known.
    const light = words.includes("--light") ? words : [];
    quarvel("normalmap", drawing, "-q", "--size", "240", "-o", "map.png", "--html", "page.html", ...words);
    quarvel("normalmap", drawing, "-q", "--size", "240", "-o", "other.png", "--lit", "lit.png", ...light,
      ...words.filter((word) => word === "--float"));
    await open("page.html");
    expectEqual(await shownAfter("draw()"), "lit.png", `a drawing ${name}`);
  }
}

async function checkControls() {
  const hero = join(examples, "hero.svg");
  quarvel("normalmap", hero, "-q", "--size", "200", "-o", "hero_n.png", "--drawing", "hero_drawing.png", "--elevation", "hero_e.png", "--html", "hero.html");
  quarvel("normalmap", hero, "-q", "--size", "200", "-o", "other.png", "--lit", "right.png", "--light", "0,45");
  quarvel("normalmap", hero, "-q", "--size", "200", "-o", "other.png", "--lit", "lit.png");
  await open("hero.html");
  const first = await shownAfter("draw()");
  // The ambient light stays that of the default light, whose height is the same.
  expectEqual(await shownAfter(setTo("across", 1) + setTo("up", 0) + setTo("height", 1)), "right.png", "a light moved by its sliders");
  const pointed = await shownAfter(`
    const box = byId("stage").getBoundingClientRect();
    const at = { clientX: box.left + box.width / 2 + Math.min(box.width, box.height) / 2, clientY: box.top + box.height / 2, bubbles: true };
    byId("stage").dispatchEvent(new PointerEvent("pointermove", at));`);
  expectEqual(pointed, "right.png", "a light moved by the pointer");
  expect(!(await shownAfter(setTo("ambient", 100))).equals(pointed), "the ambient light changes the picture");
  await shownAfter(setTo("relief", 0));
  expect((await shownAfter(setTo("across", -1))).equals(await shownAfter(setTo("across", 1))), "without relief all sides are lit alike");
  expect((await shownAfter(`byId("reset").click()`)).equals(first), "the button shows what was rendered");
  const files = { drawing: "hero_drawing.png", normals: "hero_n.png", elevation: "hero_e.png" };
  for (const [kind, file] of Object.entries(files)) {
    const { samples } = readPng(join(folder, file));
    const shown = await shownAfter(`document.querySelector("input[value=${kind}]").click()`);
    expect(samples.every((sample, i) => Math.abs(255 * sample - shown[i]) <= 0.51), `the view of the ${kind} shows the file`);
  }
  const held = await browser.evaluate(`(async () => {
    for (const button of document.querySelectorAll("#downloads button")) button.click();
    return Promise.all(noted.files.map(async (blob) => textOf(new Uint8Array(await blob.arrayBuffer()))));
  })()`);
  Object.values(files).forEach((file, i) => {
    writeFileSync(join(folder, "held.png"), Buffer.from(held[i] ?? "", "base64"));
    const [mine, theirs] = [readPng(join(folder, "held.png")), readPng(join(folder, file))];
    expect(mine.bits === 16 && mine.samples.length === theirs.samples.length && mine.samples.every((sample, at) => sample === theirs.samples[at]),
      `the download ${file} has the pixels of the written file`);
  });
}

// Every control is reached by the tabulator and has a role and a name.
async function checkAccess() {
  await open("hero.html");
  const { nodes } = await browser.send("Accessibility.getFullAXTree");
  const named = (role) => nodes.filter((node) => !node.ignored && node.role?.value === role).map((node) => node.name?.value ?? "");
  expect(named("image").includes("hero"), "the picture has a name");
  for (const [role, names] of [["slider", ["Across", "Up", "Height", "Ambient", "Relief"]], ["checkbox", ["Hold still"]],
    ["radio", ["In the light", "Drawing", "Normal map", "Elevation", "From far away", "Near the picture"]],
    ["button", ["As it was rendered", "Drawing", "Normal map", "Elevation"]]])
    expect(names.every((name) => named(role).includes(name)) && named(role).every((name) => name), `each ${role} has its name: ${named(role).join(", ")}`);
  const reached = new Set();
  await browser.send("Page.bringToFront");
  for (let i = 0; i < 20; i++) {
    for (const type of ["rawKeyDown", "keyUp"]) await browser.send("Input.dispatchKeyEvent", { type, key: "Tab", code: "Tab", windowsVirtualKeyCode: 9 });
    reached.add(await browser.evaluate(`["id", "name", "textContent"].map((key) => document.activeElement[key]).find((text) => text && text.length < 99) ?? ""`));
  }
  const wanted = ["view", "kind", "held", "across", "up", "height", "ambient", "relief", "reset", "Drawing", "Normal map", "Elevation"];
  expect(wanted.every((id) => reached.has(id)), `the tabulator reaches ${[...reached].join(", ")}`);
  await browser.evaluate(`byId("height").focus()`);
  const before = await browser.evaluate(`byId("height").value`);
  for (const type of ["rawKeyDown", "keyUp"]) await browser.send("Input.dispatchKeyEvent", { type, key: "ArrowRight", code: "ArrowRight", windowsVirtualKeyCode: 39 });
  expect((await browser.evaluate(`byId("height").value`)) > before, "an arrow key moves a slider");
}

async function checkFilm() {
  for (const [i, x] of [20, 34, 34, 50].entries())
    writeFileSync(join(folder, `ball_${i}.svg`), `<svg xmlns="http://www.w3.org/2000/svg" width="72" height="48"><circle cx="${x}" cy="24" r="17" fill="#d95"/></svg>`);
  quarvel("import", "ball_0.svg", "ball_1.svg", "ball_2.svg", "ball_3.svg", "-o", "ball.scene", "-q");
  quarvel("set", "ball.scene", "lights", "torch");
  quarvel("set", "ball.scene", ".Lights.Highlight", "0:0.2", "3:0.8");
  quarvel("render", "ball.scene", "-q", "--resolution", "180", "--html", "film.html", "--lit", "lit.#.png", "--fps", "12");
  await open("film.html");
  for (let i = 0; i < 4; i++) expectEqual(await shownAfter(setTo("frame", i + 1) + "draw();"), `lit.${i}.png`, `frame ${i} of a film`);
  const page = readFileSync(join(folder, "film.html"), "utf8");
  expect(page.match(/id="picture-/g).length === 6, "equal frames are held once");
  const moved = await shownAfter(`play(true)`);
  expect(moved.length > 0 && (await browser.evaluate(`byId("play").getAttribute("aria-pressed")`)) === "true", "the film plays");
}

async function checkNames() {
  const name = `<img src=x onerror=alert(1)> & "{{data}}" `;
  writeFileSync(join(folder, `${name}.svg`), `<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"><circle cx="4" cy="4" r="3"/></svg>`);
  quarvel("normalmap", `./${name}.svg`, "-q", "-o", "other.png", "--html", "odd.html");
  await open("odd.html");
  await shownAfter("draw()");
  expect((await browser.evaluate(`document.querySelector("h1").textContent`)) === name, "a name is shown as it is, whatever it holds");
}

function checkSize() {
  const page = readFileSync(join(folder, "hero.html"), "utf8");
  const bare = page.replace(/<script type="text\/plain"[^]*?<\/script>\n/g, "").length;
  expect(bare < 200_000, `the page takes ${bare} bytes beside its pictures`);
}

try {
  await checkDrawings();
  await checkControls();
  await checkAccess();
  await checkFilm();
  await checkNames();
  checkSize();
  const away = requests.filter((url) => !/^(file:|data:|blob:|about:)/.test(url));
  expect(away.length === 0, `nothing is fetched ${away.join(" ")}`);
  expect(complaints.length === 0, `the browser has no complaints ${complaints.join("\n")}`);
} finally {
  await browser.close();
  rmSync(folder, { recursive: true, force: true, maxRetries: 5 });
}
process.exit(wrong ? 1 : 0);
