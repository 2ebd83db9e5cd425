// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How plug-ins add widgets to the host's editor panel: a plug-in registers a PLUG_WidgetFactory with the host's
// registry, and the panel asks the factories for the custom widget types that a node's layout names.
#pragma once

#include "QuarvelPlugInManager/QuarvelPlugInManagerExport.h"

#include <QString>

class QWidget;

/// Makes widgets by their type's name. GUI thread only.
class QUARVELPLUGINMANAGER_EXPORT PLUG_WidgetFactory
{
public:
    /// Makes a widget.
    ///
    /// @param className  the type's name, as layouts spell it
    /// @param parent     becomes the widget's parent
    /// @param objectName the name that the layout gives the widget
    /// @return null when the factory does not make widgets of this type, or failed to
    virtual QWidget* create(const QString& className, QWidget* parent, const char* objectName) = 0;
    virtual ~PLUG_WidgetFactory();
};

/// The panel's list of factories. Programs with an editor panel provide it. GUI thread only.
class QUARVELPLUGINMANAGER_EXPORT PLUG_WidgetFactoryRegistry
{
public:
    virtual ~PLUG_WidgetFactoryRegistry();

    /// Adds a factory, which is not owned; adding it twice has no effect.
    virtual void registerFactory(PLUG_WidgetFactory* factory) = 0;

    /// Builds the widgets of a Qt layout file.
    ///
    /// @return the file's top widget, a child of parent; null when the file cannot be read
    virtual QWidget* loadLayout(const QString& path, QWidget* parent) = 0;
};
