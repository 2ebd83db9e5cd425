// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DocumentFrames: tells plug-ins and editor panels which frame of the open scene people look at.
#pragma once

#include "QuarvelPlugInManager/PLUG_Services.h"

#include <QObject>

class StudioDocument;

/// The service for one document. Offers itself when it is made, unless there is one, and takes itself back at its end.
class DocumentFrames : public QObject, public PLUG_CurrentFrameInterface
{
    Q_OBJECT

public:
    explicit DocumentFrames(StudioDocument& document, QObject* parent = nullptr);
    ~DocumentFrames() override;

    int currentFrame(const MO_SceneCommon* scene) const override;

private:
    StudioDocument& _document;
};
