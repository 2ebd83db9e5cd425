// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PLUG_Services: what the host offers to a loaded plug-in: its folder, the widget factories, the current frame.
#pragma once

#include "QuarvelBaseCore/XUTeller.h"
#include "QuarvelPlugInManager/PLUG_WidgetFactory.h"

#include <QStringList>

class MO_SceneCommon;

/// The frame that the user is looking at; notifies its listeners when it changes. GUI thread only.
class QUARVELPLUGINMANAGER_EXPORT PLUG_CurrentFrameInterface : public XUTeller
{
public:
    ~PLUG_CurrentFrameInterface() override;
    /// The frame that the user is looking at.
    ///
    /// @param scene the scene of the node in question; null for a node outside any scene
    virtual int currentFrame(const MO_SceneCommon* scene) const = 0;
};

/// The services. A program sets what it provides at its start, before it loads plug-ins; after that, any thread may
/// call the getters.
class QUARVELPLUGINMANAGER_EXPORT PLUG_Services
{
public:
    /// The folder of a loaded plug-in, without a separator at its end.
    ///
    /// @param keyword the plug-in's folder name, which is the keyword of the node that it adds
    /// @return empty when no such plug-in is loaded
    static QString getPluginPath(const QString& keyword);

    /// The keywords of the loaded plug-ins, sorted.
    static QStringList loadedPlugins();

    /// Null in a program without an editor panel.
    static PLUG_WidgetFactoryRegistry* getWidgetFactoryRegistry();
    /// Null in a program without a timeline.
    static PLUG_CurrentFrameInterface* getCurrentFrameInterface();

    /// For the program: sets what it provides. Not owned; null withdraws it.
    static void setWidgetFactoryRegistry(PLUG_WidgetFactoryRegistry* registry);
    static void setCurrentFrameInterface(PLUG_CurrentFrameInterface* frames);
    /// For the loader: notes a plug-in's folder; empty for one that did not load.
    static void setPluginPath(const QString& keyword, const QString& folder);
};
