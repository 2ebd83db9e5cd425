// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LightModel: the lights that the lit picture is looked at with. They belong to the person and not to the scene: they
// are kept in the application's settings, and moving them is no change of the scene.
//
// A light stands over the picture like a lamp over a table: its place is given from the picture's centre in units of
// half the shorter side, x to the right and y up, its height in the same unit. It shines as from far away, from the
// direction in which it stands as seen from the centre.
#pragma once

#include "QuarvelNormalMap/NM_Lighting.h"

#include <QColor>
#include <QObject>
#include <QPointF>

#include <vector>

class QSettings;

/// One light. A plain value.
struct StudioLight
{
    static constexpr double kLowest = 0.05;
    static constexpr double kHighest = 4.0;
    static constexpr double kBrightest = 4.0;

    QPointF place{-0.5, 0.5};
    double height = 0.7071;
    QColor colour{255, 255, 255};
    double intensity = 1.0;

    friend bool operator==(const StudioLight&, const StudioLight&) = default;
};

/// All lights and what they have in common.
class LightModel : public QObject
{
    Q_OBJECT

public:
    static constexpr int kMaxLights = 8;

    explicit LightModel(QObject* parent = nullptr);

    const std::vector<StudioLight>& lights() const { return _lights; }
    int count() const { return static_cast<int>(_lights.size()); }
    /// The light that the panel shows; -1 when there are no lights.
    int current() const { return _current; }
    /// The light from everywhere, 0 to 1.
    double ambient() const { return _ambient; }
    /// The strength of highlights, 0 to 1.
    double highlight() const { return _highlight; }

    /// What is out of range is brought into it.
    void setLight(int index, const StudioLight& light);
    void setCurrent(int index);
    void setAmbient(double ambient);
    void setHighlight(double highlight);
    /// Adds a light and makes it the current one. @return false when there are kMaxLights
    bool add(const StudioLight& light = {});
    /// Takes a light away; one always stays.
    void remove(int index);
    /// The one light that a new user has.
    void reset();

    /// The same lights for the computation.
    NM_LightingSettings lighting() const;

    void load(QSettings& settings);
    void save(QSettings& settings) const;

Q_SIGNALS:
    /// A light, or what they have in common, is another.
    void changed();
    /// There are more or fewer lights, or another one is current.
    void currentChanged();

private:
    std::vector<StudioLight> _lights{StudioLight{}};
    int _current = 0;
    double _ambient = kDefaultAmbient;
    double _highlight = 0.0;

    static constexpr double kDefaultAmbient = 0.3;
};
