// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The values are written so that different ones never give the same key.
#include "jobs/frames/FrameState.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/frames/FrameValues.h"

#include <QDataStream>

QByteArray frameStateOf(const MO_Scene& scene, double frame,
                        const std::function<bool(const MO_Module& module, const AT_Attr& attr)>& counts)
{
    QByteArray state;
    QDataStream out(&state, QIODevice::WriteOnly);
    FrameValueWriter writer(out, frame);
    scene.truckFactorAttr().accept(writer);
    scene.root().forEachModule([&](const MO_Module& module) {
        for (AT_Attr* const attr : module.attrs())
            if (!counts || counts(module, *attr))
                attr->accept(writer);
    });
    return state;
}
