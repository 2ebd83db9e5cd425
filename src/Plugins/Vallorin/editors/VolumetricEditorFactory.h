// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// VolumetricEditorFactory: makes the module's widgets when the host's editor panel finds their names in a layout.
#pragma once

#include "QuarvelPlugInManager/PLUG_WidgetFactory.h"

#include <QString>

/// The factory. GUI thread only.
class VolumetricEditorFactory : public PLUG_WidgetFactory
{
public:
    /// @param path the folder of the layout files, with a separator at its end
    explicit VolumetricEditorFactory(const QString& path);

    /// Makes "VallorinVolumetricColorDefinition" and "VallorinObjectList", each with its editor on the widget, and
    /// "VallorinColorTableView".
    ///
    /// @return null for any other name, and when a layout file cannot be loaded
    QWidget* create(const QString& className, QWidget* parent, const char* objectName) override;
    ~VolumetricEditorFactory() override;

private:
    QString path;
};
