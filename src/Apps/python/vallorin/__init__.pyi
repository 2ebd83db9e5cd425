# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
import os
from typing import Iterable, Iterator, List, Literal, Mapping, Sequence, Union

import numpy as np
import numpy.typing as npt

class Error(RuntimeError):
    """What does not work, in the words of the command line."""

class Maps:
    """The maps of one drawing or frame. Rows run downwards."""

    @property
    def normals(self) -> npt.NDArray[np.float32]:
        """height x width x 3: unit vectors, x right, y up, z towards the viewer, each from -1 to 1."""
    @property
    def elevation(self) -> npt.NDArray[np.float32]:
        """height x width: 0 where nothing is raised, 1 the highest place of an object."""
    @property
    def coverage(self) -> npt.NDArray[np.float32]:
        """height x width: how much of a pixel is covered, 0 to 1."""
    @property
    def height(self) -> npt.NDArray[np.float32]:
        """height x width: how far each place lies above the picture's plane, in pixels; with also=["height"]."""
    @property
    def occlusion(self) -> npt.NDArray[np.float32]:
        """height x width: how much of the light of all sides reaches a place, 0 to 1; with also=["occlusion"]."""
    @property
    def numbers(self) -> npt.NDArray[np.int32]:
        """height x width: the number of the object, 0 where there is none; with also=["numbers"]."""
    @property
    def gloss(self) -> npt.NDArray[np.float32]:
        """height x width: the gloss of the drawing's colours, 0 to 1; with gloss={...}."""
    @property
    def warnings(self) -> List[str]:
        """What was simplified in reading the drawing."""

def normal_map(
    drawing: Union[npt.NDArray[np.uint8], str, os.PathLike[str]],
    *,
    objects: Literal["auto", "layers", "groups", "shapes", "one"] = "auto",
    shape: Literal["auto", "rim", "pillow", "off"] = "auto",
    volume: float = 1.0,
    width: int = 0,
    also: Sequence[Literal["height", "occlusion", "numbers"]] = (),
    gloss: Mapping[str, float] = {},
) -> Maps:
    """The maps of a drawing: an array of height x width x 4 bytes (straight alpha), or the path of a drawing's file.

    width: of the maps in pixels; 0 for the drawing's own. Other threads of Python run meanwhile.
    also: what is made beside normals, elevation and coverage.
    gloss: colours such as "#9aa", and "all" for the others, each with its gloss from 0 (dull) to 1.
    """

class Scene:
    """A scene, open to be rendered."""

    @staticmethod
    def open(folder: Union[str, os.PathLike[str]]) -> Scene: ...
    @property
    def first_frame(self) -> int: ...
    @property
    def last_frame(self) -> int: ...
    @property
    def warnings(self) -> List[str]: ...
    def render(
        self,
        frames: Iterable[int],
        *,
        width: int = 1920,
        also: Sequence[Literal["height", "occlusion", "numbers"]] = (),
        gloss: Mapping[str, float] = {},
    ) -> Iterator[Maps]:
        """The maps of frames, each rendered when it is asked for; the height follows from the scene's shape."""
