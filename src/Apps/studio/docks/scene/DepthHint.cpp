// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Parts are measured by the rectangles around their shapes: the shorter side of the broadest one counts.
#include "studio/docks/scene/DepthHint.h"

#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/shown/NormalMapNode.h"
#include "studio/objects/ObjectValues.h"
#include "studio/objects/SceneObjects.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace {

// The standard deviation of the blur is a quarter of the bevel. Of the depth of a disc, the blur leaves an eighth where
// the disc's diameter is a quarter of the bevel, and two fifths where it is half of the bevel.
constexpr double kHardlySeen = 1.0 / 4.0;
constexpr double kWellSeen = 1.0 / 2.0;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(DepthHint)
};

// What an object shows of a colour.
struct Painted
{
    double breadth = 0.0; ///< of its broadest part, in scene units; 0 where there is none
    bool isAlone = true;  ///< the object has no other colour
};

Painted paintedIn(const SceneObject& object, const CM_ColorId_t& colour, double frame)
{
    Painted painted;
    for (const MO_ElementModule* const element : object.elements) {
        const UT_SharedPtr<CELVEC_Kvd> drawing = element->drawingAt(frame);
        if (!drawing)
            continue;
        const QTransform toScene = element->drawingToScene(frame);
        for (const GR_Art art : kGR_allArts)
            for (const CELVEC_Shape& shape : drawing->shapes(art)) {
                if (!(shape.color == colour)) {
                    painted.isAlone = false;
                    continue;
                }
                const QSizeF size = toScene.mapRect(shape.path.controlPointRect()).size();
                painted.breadth = std::max(painted.breadth, std::min(size.width(), size.height()));
            }
    }
    return painted;
}

DepthHint hintFor(const SceneObject& object, const Painted& painted, double bevelFactor)
{
    if (painted.isAlone)
        return {Texts::tr("Not seen: %1 has no other colour, and a depth shows only beside another. Its elevation "
                          "raises or carves it as a whole.")
                    .arg(object.name),
                {},
                0.0};
    const double bevel = object.values.bevel * bevelFactor;
    if (painted.breadth >= kHardlySeen * bevel)
        return {};
    const double wellSeen = std::round(painted.breadth / kWellSeen / bevelFactor);
    return {Texts::tr("Hardly seen: the bevel of %1, %2, is too wide for parts this narrow. Lower it to about %3, or "
                      "draw them as a layer of their own and carve that.")
                .arg(object.name, ObjectTexts::number(object.values.bevel), ObjectTexts::number(wellSeen)),
            object, wellSeen};
}

} // namespace

DepthHint whyDepthIsUnseen(const StudioDocument& document, const MO_Module& node, const ColourDepth& colour)
{
    DepthHint hint;
    const double frame = document.currentFrame();
    for (const SceneObject& object : objectsOf(document.scene(), frame)) {
        if (object.node != &node || object.isCutOut() || object.isHidden || !colour.depth)
            continue;
        const Painted painted = paintedIn(object, colour.id, frame);
        if (painted.breadth <= 0.0)
            continue;
        hint = hintFor(object, painted, NormalMapNode(*object.node).bevelFactor(frame));
        if (hint.text.isEmpty())
            return {};
    }
    return hint;
}
