// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The two tables that the node keeps in text attributes: the colour table (palette colour, grey level, name) and the
// object table (object number, bevel, elevation, smoothness). This file has their records and the functions that
// convert records to text and back.
//
// A table is a sequence of entries separated by ";", an entry a sequence of fields separated by ":". There is no
// version, no header and no escaping. Reading is lenient: an unusable entry is dropped or filled with defaults, without
// a message.
#pragma once

#include "QuarvelGraphicCore/CM_ColorId.h"
#include "VallorinExport.h"

#include <QString>

#include <cstdint>
#include <map>
#include <vector>

class Vallorin;

/// The node's tables. The functions keep no state and may be called from any thread; those that take a node read its
/// attribute during the call, so the attribute must not change meanwhile. They throw only when memory runs out.
namespace VallorinAttributes {

/// A palette colour that takes part in volume building.
struct ColorInformation
{
    CM_ColorId_t colorId;     ///< the palette colour
    std::int32_t value = 255; ///< from 0, full carving, to 255, full adding; other values are kept unchanged
    QString name;             ///< the colour's name for people

    friend bool operator==(const ColorInformation&, const ColorInformation&) = default;
};

/// The volume parameters of an object.
///
/// The three doubles may be infinite or NaN when a text says so; the code that computes with them decides what that
/// means.
struct ObjectInformation
{
    std::int32_t objectId = 0;        ///< the number that Object Definition nodes give; 1 or more in a text
    double bevelSize = 5.0;           ///< in units of a 720th of the picture's width
    double elevation = 1.0;           ///< height, as a multiple of the standard one
    double elevationSmoothness = 1.0; ///< 1 is linear, more is rounder

    friend bool operator==(const ObjectInformation&, const ObjectInformation&) = default;
};

/// The text of a colour table: "id:value:name" for each record, in order, joined with ";".
///
/// A name is written unescaped, so one that contains ":" or ";" does not read back, and one that contains a NUL
/// character is cut there.
VALLORIN_EXPORT QString encodeColorInformation(const std::vector<ColorInformation>& colours);

/// The text of an object table: "id:bevel:elevation:smoothness" for each record, by ascending key, joined with ";". The
/// id is the record's own, and the doubles have six digits after the point.
VALLORIN_EXPORT QString encodeObjectInformation(const std::map<int, ObjectInformation>& objects);

/// Reads the text of a colour table.
///
/// A missing value counts as 255, one that is not a number as 0; a missing name becomes "Colour i", where i counts the
/// non-empty entries from 0. An unreadable id repeats the id of the entry before it (the null id at first). Entries
/// made of ":" alone are dropped. Because empty fields are skipped, "id::name" takes the name for the value.
///
/// @param colours is cleared first
VALLORIN_EXPORT void getColorInformation(const QString& text, std::vector<ColorInformation>& colours);

/// Reads the colour table of a node; nothing for a null node.
///
/// @param colours is cleared first
VALLORIN_EXPORT void getColorInformation(Vallorin* node, std::vector<ColorInformation>& colours);

/// Reads the levels of the colours in the table of a node, the last one where a colour is listed twice; nothing for a
/// null node.
///
/// @param values is cleared first
VALLORIN_EXPORT void getColorInformation(Vallorin* node, std::map<CM_ColorId_t, int>& values);

/// Reads the text of an object table.
///
/// Missing or malformed numbers take the record's defaults. Entries whose id is not a number or is below 1 are dropped,
/// and so are entries that contain ":" but fewer than two non-empty fields.
///
/// @param objects is cleared first
VALLORIN_EXPORT void getObjectInformation(const QString& text, std::vector<ObjectInformation>& objects);

/// Reads the object table of a node; nothing for a null node.
///
/// @param objects is cleared first
VALLORIN_EXPORT void getObjectInformation(Vallorin* node, std::vector<ObjectInformation>& objects);

/// Reads the object table of a node by object number, the last record where an object is listed twice; nothing for a
/// null node.
///
/// @param objects is cleared first
VALLORIN_EXPORT void getObjectInformation(Vallorin* node, std::map<int, ObjectInformation>& objects);

} // namespace VallorinAttributes
