// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LightModel: the lights of the open scene at the current frame, for the views that show and move them. The scene owns
// the lights. Every change goes through the document's history; a change of an animated value sets a key at the frame.
//
// A light can be turned around the picture's centre to judge the volume. This does not change the scene.
#pragma once

#include "QuarvelNormalMap/NM_Lighting.h"
#include "QuarvelSceneCore/graph/MO_Lighting.h"

#include <QColor>
#include <QElapsedTimer>
#include <QObject>
#include <QPointF>
#include <QTimer>

#include <vector>

class StudioDocument;

/// One light in the types of the window; MO_Light.h explains the values. A plain value.
struct StudioLight
{
    QPointF place{-0.5, 0.5};
    double height = MO_LightValues{}.height;
    QColor colour{255, 255, 255};
    double intensity = 1.0;
    MO_LightKind kind = MO_LightKind::DIRECTIONAL;
    double reach = 1.0;
    bool on = true;
    bool solo = false;
    QString name = {};

    friend bool operator==(const StudioLight&, const StudioLight&) = default;
};

/// All lights and their common values. Must be used on the window's thread.
class LightModel : public QObject
{
    Q_OBJECT

public:
    static constexpr int kMaxLights = MO_Lighting::kMaxLights;

    explicit LightModel(StudioDocument& document, QObject* parent = nullptr);

    /// The lights; there is always at least one.
    const std::vector<StudioLight>& lights() const { return _lights; }
    int count() const { return static_cast<int>(_lights.size()); }
    /// The light that the panel shows.
    int current() const { return _current; }
    const MO_LightingValues& common() const { return _common; }
    /// A light's title for people.
    QString titleOf(int index) const;

    /// Changes a light, undoably. Numbers are clamped to their limits.
    void setLight(int index, const StudioLight& light);
    void setCurrent(int index);
    void setCommon(const MO_LightingValues& common);
    /// Adds a light and makes it the current one. @return false if there are kMaxLights already
    bool add(const StudioLight& light = {});
    /// Adds a copy of a light and makes it the current one. @return false if there are kMaxLights already
    bool duplicate(int index);
    /// Removes a light, except the last one.
    void remove(int index);
    /// Replaces all lights.
    ///
    /// @param name the name of the step in the history
    void use(const QString& name, const MO_LightRig& rig);
    /// Restores the lights of a new scene.
    void reset();
    /// Ends the dragging of a value, so that the next change is a separate step in the history.
    void endChange();

    /// Whether a number of the current light, or of the common values, has a key at the frame.
    bool hasKey(MO_Light::Number number) const;
    bool hasKey(MO_Lighting::Number number) const;
    /// Sets or removes keys at the frame, for one number or for the numbers of one value (a colour).
    void toggleLightKey(const std::vector<MO_Light::Number>& numbers);
    void toggleCommonKey(const std::vector<MO_Lighting::Number>& numbers);

    /// Turns the current light around the picture's centre until this is switched off or a light is changed.
    void setTurning(bool isTurning);
    bool isTurning() const { return _timer.isActive(); }

    /// The settings of these lights for NM_light().
    NM_LightingSettings lighting() const;

Q_SIGNALS:
    /// A light or a common value has changed.
    void changed();
    /// The number of lights has changed, or another light is current.
    void currentChanged();
    void turningChanged(bool isTurning);

private:
    void refresh();
    void turn();
    QPointF turned(const QPointF& place) const;
    MO_Light& currentLight() const;
    void toggleKeys(const std::vector<AT_AnimatableAttr*>& numbers);

    StudioDocument& _document;
    std::vector<StudioLight> _lights;
    MO_LightingValues _common;
    int _current = 0;
    QTimer _timer;
    QElapsedTimer _sinceTurning;
    double _angle = 0.0; // in radians, counterclockwise
};
