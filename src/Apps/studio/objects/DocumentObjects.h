// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DocumentObjects: the objects of the open scene, the selected ones, and the one under the mouse. Picture, table and
// bar share it. Objects have no selection of their own: an object is selected if its modules are, so that graph,
// timeline and properties always agree with the picture.
#pragma once

#include "studio/document/StudioDocument.h"
#include "studio/objects/ObjectChanges.h"

#include <QObject>

/// Must be used on the window's thread and must not outlive the document.
class DocumentObjects : public QObject
{
    Q_OBJECT

public:
    explicit DocumentObjects(StudioDocument& document, QObject* parent = nullptr);
    ~DocumentObjects() override;

    StudioDocument& document() const { return _document; }
    /// All objects at the current frame, as objectsOf() returns them. The reference is invalid after the next change of
    /// the scene.
    const std::vector<SceneObject>& all() const;
    /// The selected objects. The one selected last is at the end; it is the current object.
    const std::vector<SceneObject>& selected() const;
    bool isSelected(const SceneObject& object) const;

    /// Selects only these objects.
    void select(const std::vector<SceneObject>& objects);
    /// Whether select() is changing the document's selection, as opposed to a selection of modules elsewhere.
    bool isSelecting() const { return _selecting; }
    /// Adds the object to the selection, or removes it.
    void toggle(const SceneObject& object);

    /// The object that the mouse points at, in the picture or in the table; null if there is none.
    const SceneObject* hovered() const;
    void setHovered(const SceneObject* object);

    /// Executes a change as a separate step in the history.
    void change(MO_EditCommand command);
    /// Executes one of several consecutive changes, for instance during a drag; finishChange() ends the step.
    ///
    /// @return whether anything changed
    bool changeOn(MO_EditCommand command);
    void finishChange();

Q_SIGNALS:
    /// The objects, their selection, or the frame has changed.
    void changed();
    void hoveredChanged();

private:
    void forget();
    void look() const;

    StudioDocument& _document;
    bool _selecting = false;
    const ObjectDefinition* _hovered = nullptr; // of the hovered object; never dereferenced
    mutable bool _known = false;
    mutable std::vector<SceneObject> _all;
    mutable std::vector<SceneObject> _selected;
};
