// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The colour table as text: "id:value:name;id:value:name;...".
#include "parameters/VallorinAttributes.h"

#include <QStringList>

namespace VallorinAttributes {

QString encodeColorInformation(const std::vector<ColorInformation>& colours)
{
    QStringList entries;
    for (const ColorInformation& colour : colours) {
        const QByteArray id = colour.colorId.AsString().ToQString().toUtf8();
        const QByteArray name = colour.name.toUtf8();
        entries.append(QString::asprintf("%s:%d:%s", id.constData(), colour.value, name.constData()));
    }
    return entries.join(u';');
}

void getColorInformation(const QString& text, std::vector<ColorInformation>& colours)
{
    colours.clear();
    const QStringList parts = text.split(u';', Qt::SkipEmptyParts, Qt::CaseSensitive);

    // All entries use one identifier: a field that is not an identifier leaves the one of the entry before.
    CM_ColorId_t id;
    for (int i = 0; i < parts.size(); ++i) {
        const QStringList fields = parts[i].split(u':', Qt::SkipEmptyParts, Qt::CaseSensitive);
        if (fields.isEmpty())
            continue;
        id.parseXml(fields[0]);

        ColorInformation colour;
        colour.colorId = id;
        if (fields.size() >= 2)
            colour.value = fields[1].toInt(nullptr, 10);
        colour.name = fields.size() >= 3 ? fields[2] : QString::asprintf("Colour %d", i);
        colours.push_back(colour);
    }
}

} // namespace VallorinAttributes
