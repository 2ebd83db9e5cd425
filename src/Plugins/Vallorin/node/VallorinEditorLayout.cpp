// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node's editor layout: an XML file among the plug-in's resources, named after the node's keyword.
#include "QuarvelPlugInManager/PLUG_Services.h"
#include "node/Vallorin.h"

#include <QDomDocument>
#include <QFile>

QDomElement Vallorin::obtainEditorLayout()
{
    const QString resources = PLUG_Services::getPluginPath(keyword()) + QStringLiteral("/resources/");
    QFile file(resources + keyword() + QStringLiteral(".xml"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QDomDocument layout;
    if (!layout.setContent(&file))
        return {};
    return layout.documentElement();
}
