// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DocumentObjects: the objects of the open scene, which of them are selected, and which one the mouse is over. Picture,
// table and bar share it. Objects have no selection of their own: an object is selected when its modules are, so that
// graph, timeline and properties always agree with the picture.
#pragma once

#include "studio/document/StudioDocument.h"
#include "studio/objects/ObjectChanges.h"

#include <QObject>

/// Lives on the window's thread; must not outlive the document.
class DocumentObjects : public QObject
{
    Q_OBJECT

public:
    explicit DocumentObjects(StudioDocument& document, QObject* parent = nullptr);
    ~DocumentObjects() override;

    StudioDocument& document() const { return _document; }
    /// All objects at the current frame, as objectsOf(). Void after the next change of the scene.
    const std::vector<SceneObject>& all() const;
    /// The selected ones; the one selected last, which is the current one, at the end.
    const std::vector<SceneObject>& selected() const;
    bool isSelected(const SceneObject& object) const;

    /// Selects these objects and nothing else.
    void select(const std::vector<SceneObject>& objects);
    /// Whether it is select() that changes the document's selection at the moment, and not somebody who chose modules.
    bool isSelecting() const { return _selecting; }
    /// Selects the object besides the others, or takes it out of the selection.
    void toggle(const SceneObject& object);

    /// The object that the mouse points at, in the picture or in the table; null when there is none.
    const SceneObject* hovered() const;
    void setHovered(const SceneObject* object);

    /// Executes a change as a step of its own.
    void change(MO_EditCommand command);
    /// Executes one of many changes that follow each other, as while something is dragged; finishChange() ends the
    /// step.
    ///
    /// @return whether anything changed
    bool changeOn(MO_EditCommand command);
    void finishChange();

Q_SIGNALS:
    /// The objects, what is selected of them, or the frame is another one.
    void changed();
    void hoveredChanged();

private:
    void forget();
    void look() const;

    StudioDocument& _document;
    bool _selecting = false;
    const ObjectDefinition* _hovered = nullptr; // of the hovered object; only ever compared
    mutable bool _known = false;
    mutable std::vector<SceneObject> _all;
    mutable std::vector<SceneObject> _selected;
};
