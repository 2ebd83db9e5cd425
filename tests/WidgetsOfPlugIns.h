// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Plug-ins for test programs with windows.
#pragma once

#include "PlugInsOfTheBuild.h"
#include "QuarvelPlugInManager/PLUG_EditorWidgets.h"
#include "QuarvelPlugInManager/PLUG_Services.h"

#include <QApplication>

#include <optional>

/// Loads the plug-ins, with a registry for the widgets of their editors that lasts until the last test has ended.
/// Widgets look the same on every machine.
class WidgetsOfPlugIns : public PlugInsOfTheBuild
{
public:
    void SetUp() override
    {
        QApplication::setStyle(QStringLiteral("Fusion"));
        PLUG_Services::setWidgetFactoryRegistry(&_widgets.emplace());
        PlugInsOfTheBuild::SetUp();
    }
    void TearDown() override
    {
        PLUG_Services::setWidgetFactoryRegistry(nullptr);
        _widgets.reset();
    }

private:
    std::optional<PLUG_EditorWidgets> _widgets;
};
