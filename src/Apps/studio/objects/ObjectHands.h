// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectHands: the viewer's tool for selecting and changing objects in the picture.
//
//   click               selects the topmost object; again at the same place, the one below it
//   click with Shift    adds an object to the selection, or takes it out
//   drag                selects the objects inside a rectangle; with Shift, adds them to the selection
//   drag a handle       changes bevel, elevation, smoothness or tilt of all selected objects; with Shift, in fine steps
//   right click         selects the topmost object for the menu, unless it is selected already
//   Escape              cancels a drag; otherwise clears the selection
#pragma once

#include "studio/objects/CoverageOutline.h"
#include "studio/objects/DocumentObjects.h"
#include "studio/objects/ObjectHandles.h"
#include "studio/preview/RenderedFrame.h"
#include "studio/preview/ViewerTool.h"

#include <QPainterPath>

class Viewer;

/// Must not outlive the viewer or the document's objects.
class ObjectHands : public QObject, public ViewerTool
{
    Q_OBJECT

public:
    ObjectHands(DocumentObjects& objects, Viewer& viewer, QObject* parent = nullptr);
    ~ObjectHands() override;

    /// The handles of the current object.
    ObjectHandles handles() const;
    /// The rectangle around all selected objects that are in the frame, in the viewer's coordinates.
    QRectF selectedRect() const;
    /// The shorter side of an object's rectangle in scene units, of which the picture is 720 wide; 0 if the object is
    /// not in the frame.
    double breadthOf(const SceneObject& object) const;
    bool isDragging() const { return _doing == Doing::PULL || _doing == Doing::RECTANGLE; }

    void press(const QPointF& place, Qt::KeyboardModifiers modifiers) override;
    void drag(const QPointF& place, Qt::KeyboardModifiers modifiers) override;
    void release(const QPointF& place, Qt::KeyboardModifiers modifiers) override;
    void hover(const QPointF& place) override;
    void leave() override;
    void aim(const QPointF& place) override;
    bool cancel() override;
    Qt::CursorShape cursor(const QPointF& place) const override;
    void paint(QPainter& painter) override;

private:
    enum class Doing
    {
        NOTHING,
        PRESSED, ///< counts as a click until the mouse is moved
        RECTANGLE,
        PULL
    };

    struct Outline
    {
        const ObjectDefinition* definition;
        QPainterPath path; ///< in pixels of the full picture
    };

    void click(const QPointF& place, bool adds);
    void takeRectangle(const QPointF& to, bool adds);
    void pull(const QPointF& to, bool carefully);
    MO_EditCommand pullCmd(const std::vector<SceneObject>& objects, const QPointF& way, bool carefully) const;
    std::vector<SceneObject> under(const QPointF& place) const;
    QRectF rectOf(const SceneObject& object) const;
    double unit() const;
    const QPainterPath& outlineFor(const SceneObject& object);
    void paintOutline(QPainter& painter, const SceneObject& object, bool isSelected);
    void paintWords(QPainter& painter) const;
    void update();

    DocumentObjects& _objects;
    Viewer& _viewer;
    Doing _doing = Doing::NOTHING;
    QPointF _from;
    QPointF _now;
    std::optional<ObjectHandle> _hot;
    std::vector<SceneObject> _before; // the selected objects before a pull; only their values and tilts are used
    bool _pulledAny = false;
    QPointF _lastClick{-1000.0, -1000.0};
    RenderedFramePtr _outlinesOf;
    std::vector<Outline> _outlines;
    OutlineForm _outlineForm = OutlineForm::SLANTED;
};
