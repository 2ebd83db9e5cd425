// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The document signals every command at once, so the cached objects are discarded before anybody can use them.
#include "studio/objects/DocumentObjects.h"

#include <algorithm>
#include <utility>

DocumentObjects::DocumentObjects(StudioDocument& document, QObject* parent) : QObject(parent), _document(document)
{
    connect(&document, &StudioDocument::edited, this, &DocumentObjects::forget);
    connect(&document, &StudioDocument::sceneChanged, this, &DocumentObjects::forget);
    connect(&document, &StudioDocument::sceneReplaced, this, &DocumentObjects::forget);
    connect(&document, &StudioDocument::selectionChanged, this, &DocumentObjects::forget);
    connect(&document, &StudioDocument::currentFrameChanged, this, &DocumentObjects::forget);
}

DocumentObjects::~DocumentObjects() = default;

void DocumentObjects::forget()
{
    _known = false;
    Q_EMIT changed();
}

void DocumentObjects::look() const
{
    if (std::exchange(_known, true))
        return;
    _all = objectsOf(_document.scene(), _document.currentFrame());
    _selected = selectedOf(_all, _document.selection());
}

const std::vector<SceneObject>& DocumentObjects::all() const
{
    look();
    return _all;
}

const std::vector<SceneObject>& DocumentObjects::selected() const
{
    look();
    return _selected;
}

bool DocumentObjects::isSelected(const SceneObject& object) const
{
    return std::ranges::any_of(selected(), [&](const SceneObject& one) { return isSame(one, object); });
}

void DocumentObjects::select(const std::vector<SceneObject>& objects)
{
    finishChange();
    _selecting = true;
    _document.setSelection(modulesOf(objects));
    _selecting = false;
}

void DocumentObjects::toggle(const SceneObject& object)
{
    std::vector<SceneObject> objects = selected();
    if (std::erase_if(objects, [&](const SceneObject& one) { return isSame(one, object); }) == 0)
        objects.push_back(object);
    select(objects);
}

const SceneObject* DocumentObjects::hovered() const
{
    if (!_hovered)
        return nullptr;
    const auto found = std::ranges::find_if(all(), [&](const SceneObject& object) {
        return std::ranges::find(object.definitions, _hovered) != object.definitions.end();
    });
    return found == all().end() ? nullptr : &*found;
}

void DocumentObjects::setHovered(const SceneObject* object)
{
    const ObjectDefinition* const now = object ? object->definitions.front() : nullptr;
    if (std::exchange(_hovered, now) != now)
        Q_EMIT hoveredChanged();
}

void DocumentObjects::change(MO_EditCommand command)
{
    finishChange();
    _document.execute(std::move(command));
    finishChange();
}

bool DocumentObjects::changeOn(MO_EditCommand command)
{
    return _document.execute(std::move(command));
}

void DocumentObjects::finishChange()
{
    _document.commands().endMerging();
}
