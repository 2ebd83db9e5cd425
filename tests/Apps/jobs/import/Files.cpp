// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writes scenes as text, so that they can be compared.
#include "Files.h"

#include <QBuffer>

QString files::textOf(const MO_Scene& scene)
{
    QString text = scene.toXml();
    QByteArray drawings;
    QDataStream out(&drawings, QIODevice::WriteOnly);
    scene.root().forEachModule([&](const MO_Module& module) {
        if (const auto* element = dynamic_cast<const MO_ElementModule*>(&module))
            for (const auto& [name, drawing] : element->drawings())
                for (const CELVEC_Shape& shape : drawing->shapes(GR_Art::COLOUR))
                    out << name << shape.path << shape.color.AsString().ToQString() << shape.opacity;
    });
    for (const auto& palette : scene.palettes())
        text += palette->GetId().AsString().ToQString() + colourNames(*palette).join(u' ');
    return text + QString::fromLatin1(drawings.toHex());
}
