// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What of a scene may differ from frame to frame, as a key: frames of equal keys have equal pictures, so that one of
// them needs to be rendered. A film on twos, a pause and a cycle cost what they show, not how long they last.
#pragma once

#include <QByteArray>

#include <functional>

class MO_Module;
class MO_Scene;

/// The values of all attributes of all modules and of the camera at a frame, to the last bit. Drawings count by name:
/// two names are two drawings even where they look the same. Nodes render what their attributes and inputs say and
/// nothing else; one that looked at the number of the frame itself would not be seen.
///
/// @return equal for two frames of one scene only when everything is equal
///
/// @param counts says which modules count; all, unless set
QByteArray frameStateOf(const MO_Scene& scene, double frame,
                        const std::function<bool(const MO_Module& module)>& counts = {});
