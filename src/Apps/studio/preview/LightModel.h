// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LightModel: the lights of the open scene at the frame that is looked at, for the views that show and move them. The
// scene owns the lights; every change goes through the document's history, and where a value is animated it sets a key
// at the frame.
//
// A light may be turned about the picture's centre to judge the volume. That changes nothing in the scene.
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

/// One light in the types of the window; MO_Light.h says what the values mean. A plain value.
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

/// All lights and what they have in common. Lives on the window's thread.
class LightModel : public QObject
{
    Q_OBJECT

public:
    static constexpr int kMaxLights = MO_Lighting::kMaxLights;

    explicit LightModel(StudioDocument& document, QObject* parent = nullptr);

    /// The lights; there always is one.
    const std::vector<StudioLight>& lights() const { return _lights; }
    int count() const { return static_cast<int>(_lights.size()); }
    /// The light that the panel shows.
    int current() const { return _current; }
    const MO_LightingValues& common() const { return _common; }
    /// What people call a light.
    QString titleOf(int index) const;

    /// Changes a light, undoably. Numbers are held to their limits.
    void setLight(int index, const StudioLight& light);
    void setCurrent(int index);
    void setCommon(const MO_LightingValues& common);
    /// Adds a light and makes it the current one. @return false when there are kMaxLights
    bool add(const StudioLight& light = {});
    /// Adds a copy of a light and makes it the current one. @return false when there are kMaxLights
    bool duplicate(int index);
    /// Takes a light away; one always stays.
    void remove(int index);
    /// Puts other lights in the place of all.
    ///
    /// @param name of the step in the history
    void use(const QString& name, const MO_LightRig& rig);
    /// The one light that a new scene has.
    void reset();
    /// A value is not dragged any more: the next change is a step of its own in the history.
    void endChange();

    /// Whether a number of the current light has a key at the frame, and all that begin at the key.
    bool hasKey(MO_Light::Number number) const;
    bool hasKey(MO_Lighting::Number number) const;
    /// Sets or takes away keys at the frame, of one number or of those that make one value (a colour).
    void toggleLightKey(const std::vector<MO_Light::Number>& numbers);
    void toggleCommonKey(const std::vector<MO_Lighting::Number>& numbers);

    /// Turns the current light about the picture's centre until it is told to stop or a light is changed.
    void setTurning(bool isTurning);
    bool isTurning() const { return _timer.isActive(); }

    /// The same lights for the computation.
    NM_LightingSettings lighting() const;

Q_SIGNALS:
    /// A light, or what they have in common, is another.
    void changed();
    /// There are more or fewer lights, or another one is current.
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
