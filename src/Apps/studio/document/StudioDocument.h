// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StudioDocument: the open scene with its history, its current frame and its selection. All views show the same
// document, change it only through commands, and are told by it what has changed.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelBaseCore/XUTeller.h"
#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"

#include <QObject>

#include <memory>

/// The open scene. Lives on the window's thread.
class StudioDocument : public QObject, private XUListener
{
    Q_OBJECT

public:
    explicit StudioDocument(QObject* parent = nullptr);
    ~StudioDocument() override;

    /// The scene; an empty one at first.
    MO_Scene& scene() const { return *_scene; }
    /// The history. Commands go through execute().
    CO_CommandStack& commands() { return _commands; }

    /// Executes a command and keeps it for undo; null does nothing.
    ///
    /// @return whether anything was executed
    bool execute(std::unique_ptr<CO_Command> command);
    void undo();
    void redo();

    /// Replaces the open scene.
    ///
    /// @param folder where it is saved; empty for one that was never saved
    /// @param isModified true if the scene is not on disk yet (an import, a recovered scene)
    /// @param state the folder's state when the scene was loaded; empty if unknown
    void replaceScene(std::unique_ptr<MO_Scene> scene, const QString& folder, bool isModified,
                      SIO_SceneState state = {});
    /// Saves the scene, whatever is in the folder.
    UT_Result<void> save(const QString& folder);
    /// Saves the scene, unless the folder is its own and somebody else saved another scene there after this one was
    /// opened or saved.
    ///
    /// @return whether it was saved
    UT_Result<bool> saveUnlessOthersDid(const QString& folder);

    /// The scene's folder; empty when it was never saved.
    const QString& folder() const { return _folder; }
    /// The folder's state when the scene was last loaded or saved there.
    const SIO_SceneState& state() const { return _state; }
    /// The name for people: the folder's, else that of the drawings, else "Untitled".
    QString title() const;
    /// Names the drawings that the scene was made of, until another scene is opened.
    void setNameOfDrawings(const QString& name);
    bool isModified() const;
    /// Whether closing the document would lose work: changes, or a recovered scene. A drawing that was opened and not
    /// changed is no work, since it can be opened again.
    bool holdsWork() const { return _isRecovered || !_commands.isClean(); }
    /// Marks the open scene as recovered after a crash.
    void setRecovered();

    /// The current frame; always one of the scene's.
    int currentFrame() const { return _frame; }
    void setCurrentFrame(int frame);

    /// The selected modules, in the order of selection. Modules that leave the graph leave the selection.
    const QList<MO_Module*>& selection() const { return _selection; }
    void setSelection(const QList<MO_Module*>& modules);
    /// The module that was selected last; null if none is selected.
    MO_Module* currentModule() const { return _selection.isEmpty() ? nullptr : _selection.last(); }

Q_SIGNALS:
    /// Another scene is open; nothing of the old one may be used any more.
    void sceneReplaced();
    /// The scene changed; emitted once for all changes in one turn of the event loop.
    void sceneChanged();
    /// The scene's lights changed; emitted at once for every change, instead of sceneChanged().
    void lightsChanged();
    /// The scene is written next. Whoever keeps something for it writes that into the scene now.
    void aboutToSave();
    /// A command was executed, undone or redone; emitted at once, except for commands that changed lights alone.
    void edited();
    /// What undo and redo would do, the title or whether there is anything to save may have changed.
    void stateChanged();
    void currentFrameChanged(int frame);
    void selectionChanged();

private:
    void told(XUTeller& teller) override;
    void dropLostSelection();
    void listen();
    void endListening();
    void setSaved(const QString& folder, const SIO_SceneState& state);

    std::unique_ptr<MO_Scene> _scene;
    CO_CommandStack _commands;
    QString _folder;
    QString _nameOfDrawings;
    SIO_SceneState _state; ///< of the folder, when the scene was last loaded or saved there
    bool _modifiedFromTheStart = false;
    bool _isRecovered = false;
    int _frame = 1;
    QList<MO_Module*> _selection;
    bool _changePending = false;
    // What changed since the history reported last.
    bool _lightsChanged = false;
    bool _othersChanged = false;
};
