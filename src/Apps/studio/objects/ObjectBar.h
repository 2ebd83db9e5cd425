// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectBar: a small panel in the picture near the selected object, with its name, its values and the most used
// actions. Entered values apply to all selected objects.
#pragma once

#include "studio/objects/DocumentObjects.h"

#include <QFrame>

#include <vector>

class ObjectActions;
class ObjectHands;
class QLabel;
class QLayout;
class QToolButton;
class ValueField;
class Viewer;

/// A child of the viewer.
class ObjectBar : public QFrame
{
    Q_OBJECT

public:
    ObjectBar(DocumentObjects& objects, ObjectActions& actions, ObjectHands& hands, Viewer& viewer);

    ValueField& field(ObjectValue value) const { return *_fields[static_cast<std::size_t>(value)]; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLayout* makeHead();
    QToolButton* makeMoreButton();
    QLayout* makeFields();
    void follow();
    void stepAside();
    void place(const QRectF& object);
    QPointF bestPlace(const QRectF& object) const;
    double shareOfDrawing(const QRectF& rect) const;
    std::vector<QPointF> handles() const;
    void showValues();
    void take(ObjectValue value, double number);

    DocumentObjects& _objects;
    ObjectActions& _actions;
    ObjectHands& _hands;
    Viewer& _viewer;
    QLabel* _name;
    QRectF _placedFor; // the rectangle around the selected objects
    ValueField* _fields[std::size(kObjectValues)] = {};
};
