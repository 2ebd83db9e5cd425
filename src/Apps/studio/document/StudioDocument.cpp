// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The scene tells of each single change; the document gathers them until the event loop comes round.
#include "studio/document/StudioDocument.h"

#include "QuarvelSceneCore/graph/MO_Lighting.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"

#include <QFileInfo>
#include <QMetaObject>
#include <QSet>

#include <algorithm>
#include <utility>

StudioDocument::StudioDocument(QObject* parent) : QObject(parent), _scene(std::make_unique<MO_Scene>())
{
    listen();
    _commands.addListener(*this);
}

StudioDocument::~StudioDocument()
{
    _commands.removeListener(*this);
    endListening();
}

void StudioDocument::listen()
{
    _scene->addListener(*this);
    _scene->lighting().addListener(*this);
}

void StudioDocument::endListening()
{
    _scene->removeListener(*this);
    _scene->lighting().removeListener(*this);
}

bool StudioDocument::execute(std::unique_ptr<CO_Command> command)
{
    return _commands.execute(std::move(command));
}

void StudioDocument::undo()
{
    _commands.undo();
}

void StudioDocument::redo()
{
    _commands.redo();
}

void StudioDocument::replaceScene(std::unique_ptr<MO_Scene> scene, const QString& folder, bool isModified,
                                  SIO_SceneState state)
{
    // The old scene lives until everybody has let go of it.
    endListening();
    const std::unique_ptr<MO_Scene> old = std::exchange(_scene, std::move(scene));
    _commands.clear();
    _lightsChanged = false;
    _othersChanged = false;
    listen();
    _folder = folder;
    _nameOfDrawings.clear();
    _state = std::move(state);
    _modifiedFromTheStart = isModified;
    _isRecovered = false;
    _selection.clear();
    _frame = _scene->firstFrame();
    Q_EMIT sceneReplaced();
    Q_EMIT selectionChanged();
    Q_EMIT currentFrameChanged(_frame);
    Q_EMIT stateChanged();
}

UT_Result<void> StudioDocument::save(const QString& folder)
{
    Q_EMIT aboutToSave();
    const auto saved = SIO_saveScene(*_scene, folder);
    if (!saved)
        return saved.error();
    setSaved(folder, *saved);
    return {};
}

UT_Result<bool> StudioDocument::saveUnlessOthersDid(const QString& folder)
{
    if (folder != _folder || _state.digest.isEmpty()) {
        const auto saved = save(folder);
        return saved ? UT_Result<bool>(true) : saved.error();
    }
    Q_EMIT aboutToSave();
    const auto saved = SIO_saveSceneOver(_state, *_scene, folder);
    if (!saved)
        return saved.error();
    if (*saved)
        setSaved(folder, **saved);
    return saved->has_value();
}

void StudioDocument::setSaved(const QString& folder, const SIO_SceneState& state)
{
    _folder = folder;
    _state = state;
    _modifiedFromTheStart = false;
    _isRecovered = false;
    _commands.setClean();
    Q_EMIT stateChanged();
}

QString StudioDocument::title() const
{
    if (!_folder.isEmpty())
        return QFileInfo(_folder).completeBaseName();
    return _nameOfDrawings.isEmpty() ? tr("Untitled") : _nameOfDrawings;
}

void StudioDocument::setNameOfDrawings(const QString& name)
{
    _nameOfDrawings = name;
    Q_EMIT stateChanged();
}

bool StudioDocument::isModified() const
{
    return _modifiedFromTheStart || !_commands.isClean();
}

void StudioDocument::setRecovered()
{
    _isRecovered = true;
}

void StudioDocument::setCurrentFrame(int frame)
{
    const int held = std::clamp(frame, _scene->firstFrame(), _scene->lastFrame());
    if (held == _frame)
        return;
    _frame = held;
    Q_EMIT currentFrameChanged(_frame);
}

void StudioDocument::setSelection(const QList<MO_Module*>& modules)
{
    if (modules == _selection)
        return;
    _selection = modules;
    Q_EMIT selectionChanged();
}

void StudioDocument::told(XUTeller& teller)
{
    if (&teller == &_commands) {
        dropLostSelection();
        const bool others = std::exchange(_othersChanged, false);
        const bool onlyLights = std::exchange(_lightsChanged, false) && !others;
        if (!onlyLights)
            Q_EMIT edited();
        Q_EMIT stateChanged();
        return;
    }
    if (&teller == &_scene->lighting()) {
        _lightsChanged = true;
        Q_EMIT lightsChanged();
        return;
    }
    _othersChanged = true;
    if (std::exchange(_changePending, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            _changePending = false;
            dropLostSelection();
            setCurrentFrame(_frame);
            Q_EMIT sceneChanged();
        },
        Qt::QueuedConnection);
}

void StudioDocument::dropLostSelection()
{
    if (_selection.isEmpty())
        return;
    QSet<MO_Module*> inGraph;
    _scene->root().forEachModule([&](MO_Module& module) { inGraph << &module; });
    QList<MO_Module*> left = _selection;
    left.removeIf([&](MO_Module* module) { return !inGraph.contains(module); });
    setSelection(left);
}
