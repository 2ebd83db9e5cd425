// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PixiJS's spritesheets: frames of the page and of the page of maps, each found by name in its own atlas, in the simplest
// light. Vectors of a sprite that lies turned on the page are turned, and turned back here as the pixels are.
import { Application, Assets, Geometry, GlProgram, Mesh, Shader, Spritesheet } from "pixi.js";
import { fragment, vertex } from "./pixi.mjs";

const load = async (page, atlas) => {
  const sheet = new Spritesheet(await Assets.load(page), await (await fetch(atlas)).json());
  await sheet.parse();
  return sheet;
};

export async function setUp({ page, map, atlas, width, height, parent }) {
  const app = new Application();
  await app.init({ width, height, background: 0x000000, preference: "webgl", antialias: false });
  parent.append(app.canvas);
  const [colours, normals] = await Promise.all([load(page, atlas), load(map, atlas.replace(".json", "_n.json"))]);
  const light = { uLight: { value: new Float32Array(3), type: "vec3<f32>" }, uTurn: { value: new Float32Array(4), type: "vec4<f32>" } };
  const meshOf = (name) => {
    const [texture, vectors] = [colours.textures[name], normals.textures[name]];
    const { x0, y0, x1, y1, x2, y2, x3, y3 } = vectors.uvs;
    const { x, y, width: w, height: h } = texture.trim ?? texture.orig;
    const geometry = new Geometry({
      attributes: { aPosition: [x, y, x + w, y, x + w, y + h, x, y + h], aUV: [x0, y0, x1, y1, x2, y2, x3, y3] },
      indexBuffer: [0, 1, 2, 0, 2, 3],
    });
    const shader = new Shader({ glProgram: GlProgram.from({ vertex, fragment }), resources: { uDrawing: texture.source, uMap: vectors.source, light } });
    shader.resources.light.uniforms.uTurn.set(vectors.rotate ? [0, 1, -1, 0] : [1, 0, 0, 1]);
    return new Mesh({ geometry, shader });
  };
  return {
    canvas: () => app.canvas,
    names: () => Object.keys(normals.textures),
    animations: () => Object.fromEntries(Object.entries(normals.animations).map(([name, frames]) => [name, frames.map(({ label }) => label)])),
    show({ name, light: to }) {
      app.stage.removeChildren();
      const mesh = app.stage.addChild(meshOf(name));
      mesh.shader.resources.light.uniforms.uLight.set(to);
      app.render();
    },
  };
}
