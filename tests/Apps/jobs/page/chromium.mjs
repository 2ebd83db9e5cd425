// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A browser without a window, driven by its own protocol over a pipe: messages are JSON texts that end in a zero.
import { spawn } from "node:child_process";

const FLAGS = ["--headless", "--no-sandbox", "--disable-gpu", "--no-first-run", "--disable-background-networking",
  "--disable-component-update", "--disable-sync", "--force-color-profile=srgb", "--window-size=1200,800", "--remote-debugging-pipe"];

/** The browser. listen(method, function) tells of events; send(method, parameters) returns what comes of a command. */
export class Chromium {
  constructor(program, folder) {
    this.process = spawn(program, [...FLAGS, `--user-data-dir=${folder}`, "about:blank"],
      { stdio: ["ignore", "ignore", "ignore", "pipe", "pipe"], env: { ...process.env, HOME: folder } });
    this.waiting = new Map();
    this.listeners = new Map();
    this.last = 0;
    let rest = Buffer.alloc(0);
    this.process.stdio[4].on("data", (bytes) => {
      rest = Buffer.concat([rest, bytes]);
      for (let end = rest.indexOf(0); end >= 0; end = rest.indexOf(0)) {
        this.take(JSON.parse(rest.subarray(0, end).toString()));
        rest = rest.subarray(end + 1);
      }
    });
    this.process.on("exit", (code) => {
      for (const { fail } of this.waiting.values()) fail(new Error(`the browser ended with ${code}`));
    });
  }

  take({ id, method, params, result, error }) {
    if (id === undefined) return this.listeners.get(method)?.(params);
    const { done, fail } = this.waiting.get(id);
    this.waiting.delete(id);
    return error ? fail(new Error(error.message)) : done(result);
  }

  listen(method, listener) {
    this.listeners.set(method, listener);
  }

  send(method, params = {}) {
    const id = ++this.last;
    this.process.stdio[3].write(JSON.stringify({ id, method, params, sessionId: this.session }) + "\0");
    return new Promise((done, fail) => this.waiting.set(id, { done, fail }));
  }

  /** Attaches to a new, empty page, to which all further commands go. */
  async openPage() {
    this.session = undefined;
    const { targetId } = await this.send("Target.createTarget", { url: "about:blank" });
    this.session = (await this.send("Target.attachToTarget", { targetId, flatten: true })).sessionId;
    for (const domain of ["Page", "Runtime", "Network", "Accessibility", "Log"]) await this.send(`${domain}.enable`);
  }

  /** The value of an expression in the page, when it has come. */
  async evaluate(expression) {
    const { result, exceptionDetails } = await this.send("Runtime.evaluate", { expression, awaitPromise: true, returnByValue: true });
    if (exceptionDetails) throw new Error(exceptionDetails.exception?.description ?? exceptionDetails.text);
    return result.value;
  }

  async close() {
    this.session = undefined;
    const ended = new Promise((done) => this.process.once("exit", done));
    await this.send("Browser.close").catch(() => {});
    await ended;
  }
}
