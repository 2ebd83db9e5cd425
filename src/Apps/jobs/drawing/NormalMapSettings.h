// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The settings of a run that makes a normal map of a drawing: plain values, with defaults that the command line and the
// desktop application share. The commands define how they are spelled on the command line.
#pragma once

#include "form/FormSettings.h"

#include <QColor>
#include <QSize>
#include <QString>

#include <map>
#include <optional>
#include <utility>
#include <vector>

/// Where an object faces, in degrees: to the right and upwards of the viewer. Negative values face left and down.
struct ObjectTilt
{
    double x = 0.0;
    double y = 0.0;

    friend bool operator==(const ObjectTilt&, const ObjectTilt&) = default;
};

/// A second, narrow bevel at an object's outline.
struct ObjectRim
{
    double bevel = 0.0;  ///< in units of which the picture is 720 wide; 0: no rim
    double height = 0.0; ///< in multiples of the bevel

    friend bool operator==(const ObjectRim&, const ObjectRim&) = default;
};

/// Values set for one object; for the others, the chosen ones apply.
struct ObjectSettings
{
    std::optional<double> bevel;
    std::optional<double> elevation;
    std::optional<double> smoothness;
    std::optional<double> level;         ///< the object's own level, 0 to 1
    std::optional<bool> scaleByCoverage; ///< multiply the colours' levels by the object's coverage
    std::optional<bool> cutOut;          ///< it has no volume but cuts a hole into the objects below
    std::optional<bool> hidden;          ///< it contributes nothing at all
    std::optional<ObjectTilt> tilt;      ///< where it faces
    std::optional<ObjectRim> rim;
    /// It is not seen; its strokes bend the surface below: this many halves of their width up, or down below 0. 0: it
    /// is an object as others.
    std::optional<double> relief;
};

/// Values set for a drawing's objects.
struct ObjectWishes
{
    ObjectSettings allObjects;
    std::map<int, ObjectSettings> objects; ///< by number, 1 is the lowest layer
    /// By name or pattern (ObjectNames.h), in the order of the words.
    std::vector<std::pair<QString, ObjectSettings>> namedObjects;
};

/// The level of one palette colour.
struct ColourLevel
{
    QColor colour;
    int level = 255; ///< 0 carves fully, 255 adds fully
};

/// All settings of a run, except the files.
struct NormalMapSettings : ObjectWishes
{
    // The picture.
    std::optional<QSize> size;  ///< in pixels; a height of 0 follows from the drawing's shape
    bool renderInFloat = false; ///< 32-bit float instead of 16-bit
    double truck = 1.0;         ///< the camera's magnification around the picture's centre

    // The objects.
    FormSettings form; ///< how objects and their values are chosen, unless they are set

    // The levels of the drawing's colours.
    int levelOfAllColours = 255;
    std::vector<ColourLevel> levels;

    // The node's other attributes, by the names that the node gives them.
    double blurScale = 1.0;
    double elevationScale = 1.0;
    double elevationSmoothness = 1.0;
    QString normalQuality = QStringLiteral("LOW_NORMAL_QUALITY");
    bool generateNormals = true;
    bool depthInBlue = false;
    bool clipBlurredWithGeometry = true;
    bool useTruckFactor = false;
};
