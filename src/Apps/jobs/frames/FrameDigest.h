// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a frame is made of, as one digest: the modules and links of the scene, the values of all attributes and the
// drawings that are shown at the frame, the camera, the light of lit frames, the settings of the render and of the
// file, and the code that makes the pixels. Equal digests are equal pixels. So a run renders such frames once (a film
// on twos, a pause and a cycle cost what they show, not how long they last), and a file that says its digest is known
// to be the frame or not, however the scene came to be what it is, whatever the files' times are.
//
// Names that change no pixel do not count: the folder of the scene, and where the files go.
#pragma once

#include "jobs/frames/RenderFrames.h"

#include <map>

class CELVEC_Kvd;
class MO_Module;
class MO_Scene;

/// The key of the text in which a frame's file says its digest.
extern const QString kFrameDigestKey;

/// Digests of the frames of one module. The scene and the settings must not change while the object lives.
class FrameDigests
{
public:
    FrameDigests(const MO_Module& shown, const RenderFramesSettings& settings);

    /// The digest of a frame, to the last bit of every value: 64 hexadecimal digits. Nodes render what their attributes
    /// and inputs say and nothing else; one that looked at the number of the frame itself would not be seen.
    ///
    /// @return empty when nobody can tell: the module is in no scene, or holds a drawing that no file can hold
    QByteArray of(double frame);

private:
    QByteArray drawingAt(const MO_Module& module, double frame, bool& isKnown);

    const MO_Module& _shown;
    const RenderFramesSettings& _settings;
    const MO_Scene* _scene;
    QByteArray _allFrames; ///< what is the same for all frames
    std::map<const CELVEC_Kvd*, QByteArray> _drawings;
};
