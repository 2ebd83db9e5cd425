// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Phaser's atlases with their normal page, in its own light.
import * as Phaser from "phaser";

const FAR = 1e5;
const REACH = 1e9;

export function setUp({ page, map, atlas, format, width, height, parent }) {
  return new Promise((ready) => {
    const scene = {
      preload() {
        const files = { key: "sprites", textureURL: page, normalMap: map, atlasURL: atlas };
        if (format === "aseprite") this.load.aseprite(files);
        else this.load.atlas(files);
      },
      create() {
        this.lights.enable().setAmbientColor(0x000000);
        const lamp = this.lights.addLight(0, 0, REACH, 0xffffff, 1);
        const sprite = this.add.sprite(0, 0, "sprites").setOrigin(0, 0).setLighting(true);
        const played = format === "aseprite" ? this.anims.createFromAseprite("sprites").map(({ key, frames }) => [key, frames.map(({ frame }) => frame.name)]) : [];
        const { game } = this;
        ready({
          canvas: () => game.canvas,
          names: () => this.textures.get("sprites").getFrameNames(),
          animations: () => Object.fromEntries(played),
          show({ name, light }) {
            sprite.setFrame(name, true, false);
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
