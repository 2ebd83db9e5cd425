// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The object table as text: "id:bevel:elevation:smoothness;id:bevel:elevation:smoothness;...".
#include "parameters/VallorinAttributes.h"

#include <QStringList>

namespace VallorinAttributes {
namespace {

/// The number in a field; the fallback when the field is missing or not a number.
double numberAt(const QStringList& fields, int index, double fallback)
{
    if (index >= fields.size())
        return fallback;
    bool ok = false;
    const double number = fields[index].toDouble(&ok);
    return ok ? number : fallback;
}

} // namespace

QString encodeObjectInformation(const std::map<int, ObjectInformation>& objects)
{
    // QString formats numbers independently of the locale.
    QStringList entries;
    for (const auto& [key, object] : objects)
        entries.append(QString::asprintf("%d:%f:%f:%f", object.objectId, object.bevelSize, object.elevation,
                                         object.elevationSmoothness));
    return entries.join(u';');
}

void getObjectInformation(const QString& text, std::vector<ObjectInformation>& objects)
{
    objects.clear();
    const QStringList parts = text.split(u';', Qt::SkipEmptyParts, Qt::CaseSensitive);
    for (const QString& part : parts) {
        ObjectInformation object;
        QString idText = part;
        if (part.contains(u':')) {
            const QStringList fields = part.split(u':', Qt::SkipEmptyParts, Qt::CaseSensitive);
            if (fields.size() < 2)
                continue;
            idText = fields[0];
            object.bevelSize = numberAt(fields, 1, object.bevelSize);
            object.elevation = numberAt(fields, 2, object.elevation);
            object.elevationSmoothness = numberAt(fields, 3, object.elevationSmoothness);
        }

        bool isNumber = false;
        object.objectId = idText.toInt(&isNumber, 10);
        if (isNumber && object.objectId >= 1)
            objects.push_back(object);
    }
}

} // namespace VallorinAttributes
