// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node's editor layout: an XML file among the plug-in's resources, named after the node's keyword.
#include "QuarvelPlugInManager/PLUG_Services.h"
#include "editors/VolumetricColorEditor.h"
#include "node/Vallorin.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QFile>

namespace {

/// The texts of the layout file, listed here for the tools that collect texts for translation.
[[maybe_unused]] constexpr const char* kLayoutTexts[] = {
    QT_TRANSLATE_NOOP("Vallorin", "Objects"),
    QT_TRANSLATE_NOOP("Vallorin", "Bevel and Elevation"),
    QT_TRANSLATE_NOOP("Vallorin", "Output"),
};

} // namespace

QDomElement Vallorin::obtainEditorLayout()
{
    const QString resources = PLUG_Services::getPluginPath(keyword()) + QStringLiteral("/resources/");
    VolumetricColorEditor::registerFactory(resources);
    QFile file(resources + keyword() + QStringLiteral(".xml"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QDomDocument layout;
    if (!layout.setContent(&file))
        return {};
    return layout.documentElement();
}
