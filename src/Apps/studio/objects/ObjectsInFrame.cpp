// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A frame has inputs of nodes, a scene has objects; node, number and port tell which belong together.
#include "studio/objects/ObjectsInFrame.h"

#include "studio/objects/CoverageOutline.h"

#include <QTransform>

#include <algorithm>

namespace {

bool belongs(const ShownInput& input, const SceneObject& object)
{
    return input.number == object.number() && std::ranges::find(object.ports, input.port) != object.ports.end() &&
           input.node == object.node->instanceName();
}

const ShownInputs& inputsOf(const RenderedFrame& frame)
{
    static const ShownInputs none;
    return frame.inputs ? *frame.inputs : none;
}

// From pixels of the rendered size to those of the full picture.
QTransform toFull(const RenderedFrame& frame)
{
    return QTransform::fromScale(static_cast<double>(frame.fullSize.width()) / frame.size.width(),
                                 static_cast<double>(frame.fullSize.height()) / frame.size.height());
}

} // namespace

std::vector<SceneObject> objectsAt(const RenderedFrame& frame, const std::vector<SceneObject>& objects,
                                   const QPointF& place)
{
    const QPoint here = frame.pixelAt(place, frame.size);
    std::vector<SceneObject> found;
    const auto& inputs = inputsOf(frame);
    for (auto shown = inputs.rbegin(); shown != inputs.rend(); ++shown) {
        const ShownInput& input = *shown;
        if (!input.coverage.covers(here.x(), here.y()))
            continue;
        const auto object = std::ranges::find_if(objects, [&](const SceneObject& one) { return belongs(input, one); });
        const bool isNew = object != objects.end() &&
                           std::ranges::none_of(found, [&](const SceneObject& one) { return isSame(one, *object); });
        if (isNew)
            found.push_back(*object);
    }
    return found;
}

bool showsObject(const RenderedFrame& frame, const QPointF& place)
{
    const QPoint here = frame.pixelAt(place, frame.size);
    return std::ranges::any_of(inputsOf(frame),
                               [&](const ShownInput& input) { return input.coverage.covers(here.x(), here.y()); });
}

QRectF boundsOf(const RenderedFrame& frame, const SceneObject& object)
{
    Math::Box2di around;
    for (const ShownInput& input : inputsOf(frame))
        if (belongs(input, object))
            around.add(input.coverage.rect());
    return toFull(frame).mapRect(QRectF(around.x1, around.y1, around.width(), around.height()));
}

QPainterPath outlineOf(const RenderedFrame& frame, const SceneObject& object, OutlineForm form)
{
    QPainterPath outline;
    for (const ShownInput& input : inputsOf(frame))
        if (belongs(input, object))
            outline.addPath(outlineOf(input.coverage, form));
    return toFull(frame).map(outline);
}
