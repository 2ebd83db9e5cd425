// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a frame of a module shows: its picture, the elevation beside the normals, the drawing that belongs to them. The
// command line, films and the window all ask here, so that they show the same.
//
//     ShownModule shown(module);
//     const auto frame = shown.render(12, parameters, {.elevation = true, .drawing = true});
//
// The node is rendered once: normals with the elevation in blue. A second time only for those who look at its channels
// as they are set, when blue holds something else there. The drawing is painted beside it (VisibleDrawing.h).
//
// Where objects reach the frame's border, the node is rendered with a margin (FrameMargin.h) and what lies in the
// margin is dropped. The node measures heights by the width of the canvas, so the objects' elevations are divided by as
// much as the margin widens it. All of this is done to copies of the scene, which are made when they are first needed.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelSceneCore/interfaces/RD_RenderJob.h"
#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"
#include "jobs/shown/InputCoverage.h"
#include "jobs/shown/RenderedKind.h"

#include <map>
#include <memory>
#include <mutex>

class MO_Scene;

/// What is wanted of a frame beside its picture.
struct ShownParts
{
    bool elevation = false; ///< in the blue channel of normals
    bool drawing = false;
    /// The module's channels as its attributes make them, in the format of the parameters. Where they are wanted, the
    /// picture has that format too; elsewhere it is rendered in float where 16 bits would leave grain
    /// (RenderPrecision.h).
    bool channels = false;
    bool inputs = false; ///< with the drawing, where each input of the nodes shows
};

/// A frame. All pixmaps share coordinates; what is not wanted is null.
struct ShownFrame
{
    RenderedKind kind = RenderedKind::COLOURS;
    Math::Box2di window; ///< the pixels of the scene's frame
    /// Normals, elevation or colours. Whether the blue channel of normals holds the elevation: hasElevation().
    UT_SharedPtr<CEL_PixmapArea> picture;
    UT_SharedPtr<CEL_PixmapArea> channels;
    UT_SharedPtr<CEL_PixmapArea> drawing; ///< associated colours
    ShownInputs inputs;

    /// Where the elevation stands in picture.
    NM_ElevationChannel elevationChannel() const
    {
        return kind == RenderedKind::NORMALS ? NM_ElevationChannel::BLUE : NM_ElevationChannel::RED;
    }
};

/// A module that frames are rendered of. Frames may be rendered on several threads at once. The module must live
/// longer, and its scene must not change meanwhile.
class ShownModule
{
public:
    explicit ShownModule(MO_Module& module);
    ~ShownModule();
    ShownModule(const ShownModule&) = delete;
    ShownModule& operator=(const ShownModule&) = delete;

    MO_Module& module() const { return _module; }
    RenderedKind kind() const { return _source.kind; }
    /// The nodes whose normals or elevation it shows.
    const std::vector<MO_Module*>& nodes() const { return _source.nodes; }

    /// Renders a frame.
    ///
    /// @return an error when it cannot be rendered or progress said to stop
    UT_Result<ShownFrame> render(double frame, const RD_RenderParameters& parameters, const ShownParts& wanted,
                                 const RD_SoftRenderer::Progress& progress = {}) const;

    /// The parameters that the node is rendered with: those that are asked for, or the same in float.
    RD_RenderParameters usedFor(const RD_RenderParameters& parameters, const ShownParts& wanted) const;

    /// Whether the channels hold something else than the picture with elevation does.
    bool hasOtherBlue() const { return _otherBlue; }
    /// Renders the channels alone.
    UT_Result<UT_SharedPtr<CEL_PixmapArea>> renderChannels(double frame, const RD_RenderParameters& parameters,
                                                           const RD_SoftRenderer::Progress& progress = {}) const;

private:
    /// A copy of the scene, and the module in it.
    struct Copy
    {
        std::unique_ptr<MO_Scene> scene;
        MO_Module* module = nullptr;
    };
    /// What is changed in the scene for a render of the node.
    struct Change
    {
        bool elevationInBlue = false;
        bool closedSeams = false;  ///< for float
        float canvasFactor = 1.0F; ///< by which the node multiplies heights
        float frameFactor = 1.0F;  ///< by which it would without a margin

        friend auto operator<=>(const Change&, const Change&) = default;
    };

    UT_Result<UT_SharedPtr<CEL_PixmapArea>> renderNode(double frame, const RD_RenderParameters& parameters,
                                                       const Change& wanted,
                                                       const RD_SoftRenderer::Progress& progress) const;
    std::shared_ptr<const Copy> changed(const Change& change) const;
    std::shared_ptr<const Copy> drawing() const;
    Copy copy() const;
    UT_Result<UT_SharedPtr<CEL_PixmapArea>> paintAndNote(double frame, const RD_RenderParameters& parameters,
                                                         ShownInputs& inputs,
                                                         const RD_SoftRenderer::Progress& progress) const;

    MO_Module& _module;
    PictureSource _source;
    bool _otherBlue = false;
    mutable std::mutex _mutex; // for the copies
    mutable std::map<Change, std::shared_ptr<const Copy>> _changed;
    mutable std::shared_ptr<const Copy> _drawing;
    mutable std::mutex _notingMutex;
    mutable Copy _noting;       // under _notingMutex
    mutable ShownInputs _noted; // the same
};
