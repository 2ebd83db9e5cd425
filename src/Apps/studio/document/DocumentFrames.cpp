// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Scenes other than the open one have nobody who looks at them; their first frame stands for them.
#include "studio/document/DocumentFrames.h"

#include "studio/document/StudioDocument.h"

DocumentFrames::DocumentFrames(StudioDocument& document, QObject* parent) : QObject(parent), _document(document)
{
    if (!PLUG_Services::getCurrentFrameInterface())
        PLUG_Services::setCurrentFrameInterface(this);
    connect(&_document, &StudioDocument::currentFrameChanged, this, [this] { tell(); });
}

DocumentFrames::~DocumentFrames()
{
    if (PLUG_Services::getCurrentFrameInterface() == this)
        PLUG_Services::setCurrentFrameInterface(nullptr);
}

int DocumentFrames::currentFrame(const MO_SceneCommon* scene) const
{
    if (!scene)
        return 0;
    return scene == &_document.scene() ? _document.currentFrame() : scene->firstFrame();
}
