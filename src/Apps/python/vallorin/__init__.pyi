# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
import os
from typing import Iterable, List, Literal, Union

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
    def warnings(self) -> List[str]:
        """What was simplified in reading the drawing."""

def normal_map(
    drawing: Union[npt.NDArray[np.uint8], str, os.PathLike[str]],
    *,
    objects: Literal["auto", "layers", "groups", "shapes", "one"] = "auto",
    shape: Literal["auto", "rim", "pillow", "off"] = "auto",
    volume: float = 1.0,
    width: int = 0,
) -> Maps:
    """The maps of a drawing: an array of height x width x 4 bytes (straight alpha), or the path of a drawing's file.

    width: of the maps in pixels; 0 for the drawing's own. Other threads of Python run meanwhile.
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
    def render(self, frames: Iterable[int], *, width: int = 1920) -> List[Maps]:
        """The maps of frames, one after another; the height follows from the scene's shape."""
