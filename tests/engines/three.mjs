// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// three.js: a plane with diffuse reflection, and a light from one direction. Colours are multiplied by coverage when
// they are loaded, and blended as such, because linear filtering of straight colours darkens every edge.
import * as THREE from "three";

export async function setUp({ drawing, map, width, height, parent }) {
  const renderer = new THREE.WebGLRenderer({ antialias: false });
  renderer.outputColorSpace = THREE.LinearSRGBColorSpace;
  renderer.setSize(width, height);
  parent.append(renderer.domElement);
  const loader = new THREE.TextureLoader();
  const texture = async (file, premultiplyAlpha) => {
    const loaded = await loader.loadAsync(file);
    return Object.assign(loaded, { premultiplyAlpha, generateMipmaps: false, minFilter: THREE.LinearFilter, magFilter: THREE.LinearFilter });
  };
  const material = new THREE.MeshLambertMaterial({
    map: await texture(drawing, true),
    normalMap: await texture(map, false),
    transparent: true,
    side: THREE.DoubleSide,
    blending: THREE.CustomBlending,
    blendSrc: THREE.OneFactor,
    blendDst: THREE.OneMinusSrcAlphaFactor,
  });
  const plane = new THREE.Mesh(new THREE.PlaneGeometry(width, height), material);
  // With diffuse reflection, a light of this strength gives a surface that faces it its own colour.
  const lamp = new THREE.DirectionalLight(0xffffff, Math.PI);
  const scene = new THREE.Scene();
  scene.add(plane, lamp);
  const camera = new THREE.OrthographicCamera(-width / 2, width / 2, height / 2, -height / 2, -10, 10);
  return {
    canvas: () => renderer.domElement,
    show({ turn, flip, light }) {
      plane.rotation.z = (-turn * Math.PI) / 180;
      plane.scale.x = flip ? -1 : 1;
      lamp.position.set(...light);
      renderer.render(scene, camera);
    },
  };
}
