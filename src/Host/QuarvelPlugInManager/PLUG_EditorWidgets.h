// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PLUG_EditorWidgets: the widget types that editors are made of, from Qt and from the plug-ins' factories.
#pragma once

#include "QuarvelPlugInManager/PLUG_WidgetFactory.h"

#include <vector>

/// The registry of a program with editor panels. The program makes one at its start, before plug-ins register, and
/// passes it to PLUG_Services::setWidgetFactoryRegistry(). GUI thread only.
class QUARVELPLUGINMANAGER_EXPORT PLUG_EditorWidgets : public PLUG_WidgetFactoryRegistry
{
public:
    PLUG_EditorWidgets();
    PLUG_EditorWidgets(const PLUG_EditorWidgets&) = delete;
    PLUG_EditorWidgets& operator=(const PLUG_EditorWidgets&) = delete;
    ~PLUG_EditorWidgets() override;

    void registerFactory(PLUG_WidgetFactory* factory) override;

    /// The factories make the file's classes that Qt does not have; without a factory for it, a class is replaced by
    /// the Qt class that the file says it extends. The file's texts are translated in the context of its class name.
    QWidget* loadLayout(const QString& path, QWidget* parent) override;

    /// Asks the factories in the order in which they were registered.
    ///
    /// @return null when none of them makes widgets of this type
    QWidget* create(const QString& type, QWidget* parent, const QString& name) const;

    /// The factories, in the order in which they were registered.
    const std::vector<PLUG_WidgetFactory*>& factories() const { return _factories; }

private:
    std::vector<PLUG_WidgetFactory*> _factories;
};
