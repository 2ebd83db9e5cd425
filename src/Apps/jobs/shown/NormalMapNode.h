// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NormalMapNode: the node that makes normal maps, as the programs know it: by its keyword, by the keys of its
// attributes and by the texts of its two tables, which stand here and nowhere else in the programs. The node itself
// lives in a plug-in, whose headers no program includes.
#pragma once

#include "QuarvelBaseCore/UT_Id.h"
#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelCommand/CO_Command.h"
#include "QuarvelSceneCore/graph/MO_Module.h"

#include <memory>
#include <vector>

class AT_DoubleAttr;

/// A row of the node's object table: how an object gets its volume.
struct NormalMapObject
{
    int number = 1;     ///< 1 and up
    double bevel = 5.0; ///< the width of the rim, in units of which the picture is 720 wide
    double elevation = 1.0;
    double smoothness = 1.0;

    friend bool operator==(const NormalMapObject&, const NormalMapObject&) = default;
};

/// A row of the node's colour table.
struct NormalMapColour
{
    UT_Id id;        ///< of the palette's colour
    int level = 255; ///< 0 carves fully, 255 adds fully
    QString name;    ///< for people; separators of the table are left out of it
};

/// What is set of a node, all of it.
struct NormalMapValues
{
    std::vector<NormalMapObject> objects;
    std::vector<NormalMapColour> colours;
    double bevelMultiplier = 1.0;
    double elevationMultiplier = 1.0;
    double smoothnessMultiplier = 1.0;
    QString quality = QStringLiteral("LOW_NORMAL_QUALITY"); ///< the keyword of the attribute's value
    bool generateNormals = true;
    bool depthInBlue = false;
    bool clipBlurredWithGeometry = true;
    bool useTruckFactor = false;
};

/// A node, seen as what it is. A handle: the module must live longer.
class NormalMapNode
{
public:
    /// "Vallorin".
    static const QString& keyword();
    /// Whether a module is such a node.
    static bool is(const MO_Module& module) { return module.keyword() == keyword(); }
    /// A new node of no graph; null when the plug-in is not loaded.
    static std::unique_ptr<MO_Module> make();

    /// @param module a module of this kind; of another one all values are the defaults and nothing can be set
    explicit NormalMapNode(MO_Module& module) : _module(&module) {}

    MO_Module& module() const { return *_module; }

    /// Sets all values.
    ///
    /// @return an error when the node has no such attributes or does not take a value
    UT_Result<void> set(const NormalMapValues& values) const;

    /// Whether the node's picture is directions (attribute GenerateNormals); otherwise it is elevation.
    bool generatesNormals() const;
    /// Whether the blue channel of its directions holds the elevation (attribute DepthInBlue).
    bool hasElevationInBlue() const;
    void putElevationInBlue() const;

    /// The key of the object table's attribute.
    static const QString& objectTableKey();
    /// The key of the attribute that people call so, such as "bevel-multiplier" or "Bevel Multiplier"; empty when none
    /// is called so.
    static QString keyCalled(const QString& name);
    /// The object table. Rows that the node does not read are left out; of rows of one number the node takes the last.
    std::vector<NormalMapObject> objects() const;
    /// The undoable change of the object table; it merges with the next one. Null when nothing would change.
    std::unique_ptr<CO_Command> objectsCmd(const std::vector<NormalMapObject>& objects) const;
    /// The colour table.
    std::vector<NormalMapColour> colours() const;
    /// The attributes that multiply every object's bevel and elevation; both can be animated. Null when the module is
    /// of another kind.
    AT_DoubleAttr* bevelMultiplier() const;
    AT_DoubleAttr* elevationMultiplier() const;
    /// Multiplies the elevation of every object.
    void scaleElevations(double factor) const;
    /// Whether nothing of the blur is kept beyond the drawing's outline (attribute ClipBlurredWithGeometry).
    bool clips() const;
    /// Whether the camera's truck factor multiplies bevels and elevations too (attribute UseTruckFactor).
    bool usesTruckFactor() const;

private:
    MO_Module* _module;
};

/// The object table as its attribute holds it: "number:bevel:elevation:smoothness", joined by semicolons.
QString objectTableText(const std::vector<NormalMapObject>& objects);
/// The reverse, as the node reads it: what is missing has the defaults above, what is no row is left out.
std::vector<NormalMapObject> objectsOfTable(const QString& text);
/// The colour table as its attribute holds it: "id:level:name", joined by semicolons.
QString colourTableText(const std::vector<NormalMapColour>& colours);
/// The reverse: a row without a level has 255.
std::vector<NormalMapColour> coloursOfTable(const QString& text);
