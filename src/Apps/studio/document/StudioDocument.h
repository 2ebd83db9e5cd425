// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StudioDocument: the scene that is open, with its history, the frame that is looked at and what is selected. All views
// show the same document, change it through commands alone, and hear from it what changed.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelBaseCore/XUTeller.h"
#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"

#include <QObject>
#include <QStringList>

#include <memory>

/// The open scene. Lives on the window's thread.
class StudioDocument : public QObject, private XUListener
{
    Q_OBJECT

public:
    explicit StudioDocument(QObject* parent = nullptr);
    ~StudioDocument() override;

    /// The scene; there always is one, an empty one to begin with.
    MO_Scene& scene() const { return *_scene; }
    /// The history. Commands go through execute().
    CO_CommandStack& commands() { return _commands; }

    /// Executes a command and keeps it for undo; null does nothing.
    ///
    /// @return whether anything was executed
    bool execute(std::unique_ptr<CO_Command> command);
    void undo();
    void redo();

    /// Takes a scene in place of the one that is open.
    ///
    /// @param folder where it is saved; empty for one that was never saved
    /// @param isModified true for what exists nowhere on disk yet (an import, a recovered scene)
    /// @param state of the folder, as the scene was loaded from it; empty when nobody knows
    void replaceScene(std::unique_ptr<MO_Scene> scene, const QString& folder, bool isModified,
                      SIO_SceneState state = {});
    /// Opens a scene from disk; the document keeps what it has when that fails.
    ///
    /// @return warnings for people
    UT_Result<QStringList> open(const QString& folder);
    /// Saves the scene, whatever is in the folder.
    UT_Result<void> save(const QString& folder);
    /// Saves the scene, unless the folder is its own and somebody else saved another scene there after this one was
    /// opened or saved.
    ///
    /// @return whether it was saved
    UT_Result<bool> saveUnlessOthersDid(const QString& folder);

    /// The scene's folder; empty when it was never saved.
    const QString& folder() const { return _folder; }
    /// The name for people: the folder's, or "Untitled".
    QString title() const;
    bool isModified() const;
    /// Whether something would be lost with the document that somebody made: a change, or a scene that was recovered. A
    /// drawing that was opened and looked at is none: it can be opened again.
    bool holdsWork() const { return _isRecovered || !_commands.isClean(); }
    /// Says that the scene that is open was recovered after a crash.
    void setRecovered();

    /// The frame that is looked at; always one of the scene's.
    int currentFrame() const { return _frame; }
    void setCurrentFrame(int frame);

    /// The modules that are selected, in the order of selection; none of them outlives the scene's graph.
    const QList<MO_Module*>& selection() const { return _selection; }
    void setSelection(const QList<MO_Module*>& modules);
    /// The module selected last; null when none is.
    MO_Module* currentModule() const { return _selection.isEmpty() ? nullptr : _selection.last(); }

Q_SIGNALS:
    /// Another scene is open; everything known of the old one is void.
    void sceneReplaced();
    /// Something in the scene changed; sent once for all changes of one turn of the event loop.
    void sceneChanged();
    /// The scene's lights changed. Sent at once for every change, and not beside sceneChanged().
    void lightsChanged();
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
    SIO_SceneState _state; ///< of the folder, when the scene was last loaded or saved there
    bool _modifiedFromTheStart = false;
    bool _isRecovered = false;
    int _frame = 1;
    QList<MO_Module*> _selection;
    bool _changePending = false;
};
