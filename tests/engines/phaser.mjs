// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Phaser's own lights. A distant light acts like a direction.
import * as Phaser from "phaser";

const FAR = 1e5;
const REACH = 1e9;

export function setUp({ drawing, map, width, height, parent }) {
  return new Promise((ready) => {
    const scene = {
      preload() {
        this.load.image("sprite", [drawing, map]);
      },
      create() {
        this.lights.enable().setAmbientColor(0x000000);
        const lamp = this.lights.addLight(0, 0, REACH, 0xffffff, 1);
        const sprite = this.add.image(width / 2, height / 2, "sprite").setLighting(true);
        const { game } = this;
        ready({
          canvas: () => game.canvas,
          show({ turn, flip, light }) {
            sprite.angle = turn;
            sprite.flipX = flip;
            lamp.setPosition(width / 2 + FAR * light[0], height / 2 - FAR * light[1]);
            lamp.z = FAR * light[2];
            return new Promise((drawn) => game.events.once("postrender", drawn));
          },
        });
      },
    };
    new Phaser.Game({ type: Phaser.WEBGL, width, height, parent, backgroundColor: "#000000", banner: false, audio: { noAudio: true }, scene });
  });
}
