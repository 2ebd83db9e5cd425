// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// melonJS's own lights. A distant light with an even larger radius acts like a direction.
import * as me from "melonjs";

const FAR = 1e5;
const REACH = 1e9;

export async function setUp({ drawing, map, width, height, parent }) {
  const app = new me.Application(width, height, { parent, renderer: me.video.WEBGL, antiAlias: true, backgroundColor: "#000000" });
  await app.init();
  const load = (name, src) => new Promise((done, failed) => me.loader.load({ name, type: "image", src }, done, failed));
  await Promise.all([load("sprite", drawing), load("sprite_n", map)]);
  const sprite = new me.Sprite(width / 2, height / 2, { image: "sprite", normalMap: "sprite_n" });
  const lamp = new me.Light2d(0, 0, REACH, REACH, "#ffffff", 1);
  lamp.illuminationOnly = true;
  app.world.addChild(sprite);
  app.world.addChild(lamp);
  return {
    canvas: () => app.renderer.getCanvas(),
    show({ turn, flip, light }) {
      sprite.currentTransform.identity();
      sprite.rotate((turn * Math.PI) / 180);
      sprite.flipX(flip);
      lamp.pos.x = width / 2 + FAR * light[0];
      lamp.pos.y = height / 2 - FAR * light[1];
      lamp.lightHeight = FAR * light[2];
      const frame = () => new Promise((drawn) => {
        me.event.once(me.event.GAME_AFTER_DRAW, drawn);
        app.repaint();
      });
      // What was just added or changed is seen from the next frame on, which on a busy machine is the first one.
      return frame().then(frame);
    },
  };
}
