// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The texts of the node's two tables: what was read, written and read again is the same.
#include "Targets.h"
#include "jobs/shown/NormalMapNode.h"

void fuzzTables(const QByteArray& input)
{
    const QString text = QString::fromUtf8(input);
    const std::vector<NormalMapObject> objects = objectsOfTable(text);
    for (const NormalMapObject& object : objects)
        FUZZ_CHECK(object.number >= 1);
    const QString written = objectTableText(objects);
    // NaN differs from itself, so that the texts are compared.
    FUZZ_CHECK(objectTableText(objectsOfTable(written)) == written);
    const QString colours = colourTableText(coloursOfTable(text));
    FUZZ_CHECK(colourTableText(coloursOfTable(colours)) == colours);
}
