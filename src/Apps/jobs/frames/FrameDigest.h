// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A digest of all that determines a frame: the modules and links of the scene, the values of all attributes and the
// drawings at the frame, the camera, the light of lit frames, the settings of the render and of the file, and the code
// that makes the pixels. Equal digests mean equal pixels. So a run renders equal frames once (holds, pauses and cycles
// cost only their different frames), and the digest in a file tells whether the file is up to date, whatever the
// history of the scene or the times of the files are.
//
// Names that do not change pixels do not count: the folder of the scene and the paths of the files.
#pragma once

#include "jobs/frames/RenderFrames.h"

#include <map>

class CELVEC_Kvd;
class MO_Module;
class MO_Scene;

/// The metadata key of a frame's digest.
extern const QString kFrameDigestKey;

/// Digests of the frames of one module. The scene and the settings must not change while the object lives.
class FrameDigests
{
public:
    FrameDigests(const MO_Module& shown, const RenderFramesSettings& settings);

    /// The digest of a frame, from all bits of every value: 64 hexadecimal digits. It assumes that nodes depend only on
    /// their attributes and inputs, not on the frame number itself.
    ///
    /// @return empty if there is no digest: the module is not in a scene, or the scene shows a drawing that cannot be
    /// saved
    QByteArray of(double frame);

private:
    QByteArray drawingAt(const MO_Module& module, double frame, bool& isKnown);

    const MO_Module& _shown;
    const RenderFramesSettings& _settings;
    const MO_Scene* _scene;
    QByteArray _allFrames; ///< the part that is the same for all frames
    std::map<const CELVEC_Kvd*, QByteArray> _drawings;
};
