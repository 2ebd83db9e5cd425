// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_SceneCommon: what all nodes of a scene share: the frame, its camera, the palettes, the names.
//
// Scene coordinates: the origin is the centre of the frame, x to the right, y down; the frame is 720 units wide,
// whatever the resolution, so that a pixel is 720 / resolutionX units on both axes. The camera's truck factor magnifies
// about the centre.
#pragma once

#include "QuarvelBaseCore/XUTeller.h"
#include "QuarvelGraphicCore/CM_Palette.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"
#include "QuarvelSceneCore/attributes/AT_AttrLink.h"

#include <QTransform>

#include <memory>
#include <utility>
#include <vector>

class AT_DoubleAttr;
class MO_Lighting;
class MO_Node;

/// The common part of a scene. Notifies its listeners after every change of the scene; see lighting(). See MO_Node.h
/// for threads.
class QUARVELSCENECORE_EXPORT MO_SceneCommon : public XUTeller, public AT_LinkScope, private XUListener
{
public:
    /// The width of the frame in scene units.
    static constexpr double kFrameWidth = 720.0;

    MO_SceneCommon();
    ~MO_SceneCommon() override;

    /// The height of the frame in scene units; 405 (16 : 9) by default.
    double frameHeight() const { return _frameHeight; }
    /// @return false, and nothing changes, when the height is not a positive number
    bool setFrameHeight(double height);
    /// The height of a picture of the frame that is so many pixels wide.
    int heightInPixels(int width) const { return wholePixels(width * _frameHeight / kFrameWidth); }
    /// A side of a picture: the nearest whole number, at least 1, and 1e9 for all lengths beyond it.
    static int wholePixels(double length);

    /// The frames that the scene consists of, both included; 1 to 1 by default.
    int firstFrame() const { return _firstFrame; }
    int lastFrame() const { return _lastFrame; }
    /// The number of the last frame that a scene may have, and with a minus that of the first: 999 999 999.
    static constexpr int kFarthestFrame = 999'999'999;
    /// Whether a scene may have these frames: the last is not before the first, and both are within kFarthestFrame, so
    /// that the number of frames is an int.
    static bool mayHaveFrames(int first, int last);
    /// @return false, and nothing changes, when it may not have them
    bool setFrameRange(int first, int last);

    /// How many frames are played a second; 24 by default, from kSlowest to kFastest.
    double frameRate() const { return _frameRate; }
    static constexpr double kUsualFrameRate = 24.0;
    static constexpr double kSlowest = 1.0;
    static constexpr double kFastest = 240.0;
    /// @return false, and nothing changes, when the rate is not a number from kSlowest to kFastest
    bool setFrameRate(double rate);

    /// The lights in which the scene is viewed. They notify their own listeners, not the scene's, because no rendered
    /// picture depends on them.
    MO_Lighting& lighting() const { return *_lighting; }

    /// The camera's truck factor over time, attribute "TruckFactor": how much the camera magnifies. 1 by default, from
    /// 1/1000 to 1000.
    AT_DoubleAttr& truckFactorAttr() const { return *_truckFactor; }
    double truckFactor(double frame) const;

    /// From scene units to pixels of a frame of the given resolution, truck factor included. The centre of the frame is
    /// mapped to the centre of the picture.
    QTransform sceneToPixel(double frame, const std::pair<int, int>& resolution) const;
    /// The same for a camera that magnifies by a given factor.
    static QTransform sceneToPixel(const std::pair<int, int>& resolution, double truckFactor);

    /// The palettes, in the scene's order.
    const std::vector<CM_SharedPtr<CM_Palette>>& palettes() const { return _palettes; }
    /// Appends a palette; null adds nothing.
    void addPalette(const CM_SharedPtr<CM_Palette>& palette);
    /// Replaces a palette by another; does nothing when it is not there.
    void replacePalette(const CM_SharedPtr<CM_Palette>& old, const CM_SharedPtr<CM_Palette>& palette);
    /// Removes a palette; does nothing when it is not there.
    void removePalette(const CM_SharedPtr<CM_Palette>& palette);

    /// A node was renamed; links to its attributes follow.
    virtual void nodeRenamed(const MO_Node& node) = 0;
    /// Something about a node changed.
    void nodeChanged() { tell(); }

private:
    void told(XUTeller& teller) override;

    double _frameHeight = 405.0;
    int _firstFrame = 1;
    int _lastFrame = 1;
    double _frameRate = kUsualFrameRate;
    std::unique_ptr<MO_Lighting> _lighting;
    std::unique_ptr<AT_DoubleAttr> _truckFactor;
    std::vector<CM_SharedPtr<CM_Palette>> _palettes;
};
