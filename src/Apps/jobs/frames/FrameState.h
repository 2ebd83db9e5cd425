// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A key of all that may differ between the frames of a scene: frames with equal keys have equal pictures, so only one
// of them needs to be rendered. Holds, pauses and cycles cost only their different frames.
#pragma once

#include <QByteArray>

#include <functional>

class AT_Attr;
class MO_Module;
class MO_Scene;

/// The values of all attributes of all modules and of the camera at a frame, with all bits. Drawings count by name: two
/// drawings with different names differ even if they look the same. The key assumes that nodes depend only on their
/// attributes and inputs, not on the frame number itself.
///
/// @return a key that is equal for two frames of one scene only if all these values are equal
///
/// @param counts tells which attributes count; all if empty
QByteArray frameStateOf(const MO_Scene& scene, double frame,
                        const std::function<bool(const MO_Module& module, const AT_Attr& attr)>& counts = {});
