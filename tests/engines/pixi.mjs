// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PixiJS has no lights: the shader below is the simplest light, and reads both textures as PixiJS loads them.
import { Application, Assets, Geometry, Mesh, Shader, GlProgram } from "pixi.js";

export const vertex = `
in vec2 aPosition; in vec2 aUV; out vec2 vUV;
uniform mat3 uProjectionMatrix; uniform mat3 uWorldTransformMatrix; uniform mat3 uTransformMatrix;
void main() {
  vUV = aUV;
  gl_Position = vec4((uProjectionMatrix * uWorldTransformMatrix * uTransformMatrix * vec3(aPosition, 1.0)).xy, 0.0, 1.0);
}`;
export const fragment = `
in vec2 vUV;
uniform sampler2D uDrawing; uniform sampler2D uMap; uniform vec3 uLight; uniform vec4 uTurn;
void main() {
  vec4 colour = texture(uDrawing, vUV);
  vec3 normal = normalize(texture(uMap, vUV).rgb * 2.0 - 1.0);
  normal.xy = mat2(uTurn.xy, uTurn.zw) * normal.xy;
  gl_FragColor = vec4(colour.rgb * max(0.0, dot(normal, uLight)), colour.a);
}`;

export async function setUp({ drawing, map, width, height, parent }) {
  const app = new Application();
  await app.init({ width, height, background: 0x000000, preference: "webgl", antialias: false });
  parent.append(app.canvas);
  const [colours, normals] = await Promise.all([Assets.load(drawing), Assets.load(map)]);
  const [x, y] = [width / 2, height / 2];
  const geometry = new Geometry({
    attributes: { aPosition: [-x, -y, x, -y, x, y, -x, y], aUV: [0, 0, 1, 0, 1, 1, 0, 1] },
    indexBuffer: [0, 1, 2, 0, 2, 3],
  });
  const light = { uLight: { value: new Float32Array(3), type: "vec3<f32>" }, uTurn: { value: new Float32Array(4), type: "vec4<f32>" } };
  const shader = new Shader({
    glProgram: GlProgram.from({ vertex, fragment }),
    resources: { uDrawing: colours.source, uMap: normals.source, light },
  });
  const mesh = new Mesh({ geometry, shader });
  mesh.position.set(x, y);
  app.stage.addChild(mesh);
  return {
    canvas: () => app.canvas,
    show({ turn, flip, light: to }) {
      mesh.angle = turn;
      mesh.scale.x = flip ? -1 : 1;
      const angle = (turn * Math.PI) / 180;
      const side = flip ? -1 : 1;
      shader.resources.light.uniforms.uLight.set(to);
      shader.resources.light.uniforms.uTurn.set([side * Math.cos(angle), -side * Math.sin(angle), Math.sin(angle), Math.cos(angle)]);
      app.render();
    },
  };
}
