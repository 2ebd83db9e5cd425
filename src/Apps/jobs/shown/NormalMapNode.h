// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NormalMapNode: the programs' access to the node that makes normal maps. The node itself is in a plug-in whose headers
// no program includes, so the programs use its keyword, the keys of its attributes and the texts of its two tables.
// Only this file spells them.
#pragma once

#include "QuarvelBaseCore/UT_Id.h"
#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelCommand/CO_Command.h"
#include "QuarvelSceneCore/graph/MO_Module.h"

#include <map>
#include <memory>
#include <vector>

class AT_DoubleAttr;

/// A row of the node's object table: how an object gets its volume.
struct NormalMapObject
{
    int number = 1;     ///< at least 1
    double bevel = 5.0; ///< the width of the rim, in units of which the picture is 720 wide
    double elevation = 1.0;
    double smoothness = 1.0;

    friend bool operator==(const NormalMapObject&, const NormalMapObject&) = default;
};

/// A row of the node's colour table.
struct NormalMapColour
{
    UT_Id id;        ///< the identifier of the palette's colour
    int level = 255; ///< 0 (carves fully) to 255 (adds fully)
    QString name;    ///< for people; the table's separators are removed from it
};

/// All values that are set on a node.
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

/// A handle on a module of this kind; the module must outlive it.
class NormalMapNode
{
public:
    /// "Vallorin".
    static const QString& keyword();
    /// Whether a module is such a node.
    static bool is(const MO_Module& module) { return module.keyword() == keyword(); }
    /// Makes a node that is not in a graph; null if the plug-in is not loaded.
    static std::unique_ptr<MO_Module> make();

    /// @param module a module of this kind; for another kind, all values are defaults and cannot be set
    explicit NormalMapNode(MO_Module& module) : _module(&module) {}

    MO_Module& module() const { return *_module; }

    /// Sets all values.
    ///
    /// @return an error if the node lacks an attribute or refuses a value
    UT_Result<void> set(const NormalMapValues& values) const;

    /// Whether the node makes normals (attribute GenerateNormals); otherwise it makes elevation.
    bool generatesNormals() const;
    /// Whether the blue channel of its normals holds the elevation (attribute DepthInBlue).
    bool hasElevationInBlue() const;
    void putElevationInBlue() const;

    /// The key of the object table's attribute.
    static const QString& objectTableKey();
    /// The key of the attribute with this name for people, such as "bevel-multiplier" or "Bevel Multiplier"; empty if
    /// there is none.
    static QString keyCalled(const QString& name);
    /// The object table, without the rows that the node ignores; each number occurs once.
    std::vector<NormalMapObject> objects() const;
    /// Makes the undoable command that changes the object table; it merges with the next one. Null if nothing would
    /// change.
    std::unique_ptr<CO_Command> objectsCmd(const std::vector<NormalMapObject>& objects) const;
    /// Sets the object table.
    ///
    /// @param table as objectTableText() makes it
    void setObjects(const QString& table) const;
    /// The key of the colour table's attribute.
    static const QString& colourTableKey();
    /// The colour table.
    std::vector<NormalMapColour> colours() const;
    /// The undoable change of the colour table; it merges with the next one. Null when nothing would change.
    std::unique_ptr<CO_Command> coloursCmd(const std::vector<NormalMapColour>& colours) const;
    /// The attributes that multiply every object's bevel and elevation; both can be animated. Null when the module is
    /// of another kind.
    AT_DoubleAttr* bevelMultiplier() const;
    AT_DoubleAttr* elevationMultiplier() const;
    /// The heights of the highest places of all objects of the table at a frame, in units of which the picture is 720
    /// wide, by their numbers.
    std::map<int, double> rises(double frame) const;
    /// The factor from elevations of the table to these heights.
    double riseFactor(double frame) const;
    /// The factor from bevels of the table to those that the node uses at a frame.
    double bevelFactor(double frame) const;
    /// Multiplies the elevation of every object.
    void scaleElevations(double factor) const;
    /// Whether the node clips the blur at the drawing's outline (attribute ClipBlurredWithGeometry).
    bool clips() const;
    /// Whether the camera's truck factor multiplies bevels and elevations too (attribute UseTruckFactor).
    bool usesTruckFactor() const;

private:
    double truckFactor(double frame) const;

    MO_Module* _module;
};

/// The object table as the attribute's text: rows "number:bevel:elevation:smoothness", joined by semicolons.
QString objectTableText(const std::vector<NormalMapObject>& objects);
/// The inverse, as the node reads the text: missing values get the defaults above, invalid rows are left out, and of
/// several rows with the same number the last counts.
std::vector<NormalMapObject> objectsOfTable(const QString& text);
/// The row of an object in such a table; null if there is none.
const NormalMapObject* findRow(const std::vector<NormalMapObject>& table, int number);
/// Puts a row in the place of the row with its number, or at the end.
void putRow(std::vector<NormalMapObject>& table, const NormalMapObject& row);
/// The colour table as its attribute holds it: "id:level:name", joined by semicolons.
QString colourTableText(const std::vector<NormalMapColour>& colours);
/// The inverse; a row without a level gets 255.
std::vector<NormalMapColour> coloursOfTable(const QString& text);
