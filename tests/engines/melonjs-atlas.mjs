// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// melonJS's texture atlases with their normal page, in its own light.
import * as me from "melonjs";

const FAR = 1e5;
const REACH = 1e9;

export async function setUp({ page, map, atlas, width, height, parent }) {
  const app = new me.Application(width, height, { parent, renderer: me.video.WEBGL, antiAlias: true, backgroundColor: "#000000" });
  await app.init();
  const load = (name, type, src) => new Promise((done, failed) => me.loader.load({ name, type, src }, done, failed));
  await Promise.all([load("page", "image", page), load("page_n", "image", map), load("sprites", "json", atlas)]);
  const sprites = new me.TextureAtlas(me.loader.getJSON("sprites"), me.loader.getImage("page"), { normalMap: me.loader.getImage("page_n") });
  const lamp = new me.Light2d(0, 0, REACH, REACH, "#ffffff", 1);
  lamp.illuminationOnly = true;
  app.world.addChild(lamp);
  let shown = null;
  return {
    canvas: () => app.renderer.getCanvas(),
    names: () => Object.keys(sprites.getAtlas()).filter((name) => !name.includes(",")),
    animations: () => ({}),
    show({ name, light }) {
      if (shown) app.world.removeChildNow(shown);
      shown = sprites.createSpriteFromName(name);
      shown.anchorPoint.set(0, 0);
      app.world.addChild(shown);
      lamp.pos.x = width / 2 + FAR * light[0];
      lamp.pos.y = height / 2 - FAR * light[1];
      lamp.lightHeight = FAR * light[2];
      const frame = () => new Promise((drawn) => {
        me.event.once(me.event.GAME_AFTER_DRAW, drawn);
        app.repaint();
      });
      // A sprite that was just added is seen from the next frame on.
      return frame().then(frame);
    },
  };
}
