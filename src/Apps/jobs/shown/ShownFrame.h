// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a frame of a module shows: its picture, the elevation with the normals, and the drawing that belongs to them.
// The command line, films and the window all use this, so that they show the same.
//
//     ShownModule shown(module);
//     const auto frame = shown.render(12, parameters, {.elevation = true, .drawing = true});
//
// The node is rendered once, as normals with the elevation in blue. It is rendered a second time only if both the
// elevation and the unchanged channels are wanted and the node's own blue is not the elevation. The drawing is painted
// separately (VisibleDrawing.h).
//
// If objects reach the frame's border, the node is rendered with a margin (FrameMargin.h) and the pixels in the margin
// are dropped. The node scales heights by the width of the canvas, so the objects' elevations are divided by the factor
// by which the margin widens it. These changes are made to copies of the scene (SceneCopies.h).
//
// What the Object Definitions say of single objects and the node knows nothing of is applied to the rendered picture:
// first rims (ObjectRims.h), then strokes that bend the surface (SurfaceLines.h), then tilts (ObjectTilts.h).
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelSceneCore/interfaces/RD_RenderJob.h"
#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"
#include "jobs/shown/InputCoverage.h"
#include "jobs/shown/RenderedKind.h"
#include "jobs/shown/SceneCopies.h"
#include "jobs/shown/VisibleDrawing.h"

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <variant>

class ObjectRims;
class RD_KeptInputs;
struct SurfaceLine;

/// The parts of a frame that are wanted besides its picture.
struct ShownParts
{
    bool elevation = false; ///< in the blue channel of normals
    bool drawing = false;
    /// The module's channels as its attributes define them, in the format of the parameters. If they are wanted, the
    /// picture has this format too; else it is rendered in float where 16 bits would leave grain (RenderPrecision.h).
    bool channels = false;
    bool inputs = false;  ///< the coverage of each input of the nodes; needs drawing
    bool objects = false; ///< the object of each pixel; needs drawing
    /// The drawing of this frame in this size, where an earlier render made it: where only its coverage is needed, it
    /// is not painted again. Null if there is none.
    UT_SharedPtr<CEL_PixmapArea> knownDrawing = nullptr;
    /// The inputs that belong to it, by which single objects are changed (rims, strokes, tilts); null if there are
    /// none.
    std::shared_ptr<const ShownInputs> knownInputs = nullptr;
};

/// A frame. All pixmaps share coordinates; parts that are not wanted are null.
struct ShownFrame
{
    RenderedKind kind = RenderedKind::COLOURS;
    Math::Box2di window; ///< the rectangle of the scene's frame
    /// Normals, elevation or colours. The blue channel of normals holds the elevation if that was wanted.
    UT_SharedPtr<CEL_PixmapArea> picture;
    UT_SharedPtr<CEL_PixmapArea> channels;
    UT_SharedPtr<CEL_PixmapArea> drawing; ///< associated colours
    ShownInputs inputs;
    ObjectPlane objects;

    /// The channel of `picture` that holds the elevation.
    NM_ElevationChannel elevationChannel() const
    {
        return kind == RenderedKind::NORMALS ? NM_ElevationChannel::BLUE : NM_ElevationChannel::RED;
    }
};

/// A module whose frames are rendered. Several threads may render frames at once. The module must outlive this object,
/// and its scene must not change meanwhile.
class ShownModule
{
public:
    explicit ShownModule(MO_Module& module);
    ~ShownModule();
    ShownModule(const ShownModule&) = delete;
    ShownModule& operator=(const ShownModule&) = delete;

    MO_Module& module() const { return _module; }
    RenderedKind kind() const { return _source.kind; }
    /// The nodes whose normals or elevation the module shows.
    const std::vector<MO_Module*>& nodes() const { return _source.nodes; }

    /// Renders a frame.
    ///
    /// @param kept pixels of the nodes' inputs to use and add to (RD_KeptInputs.h); may be null. One object may serve
    /// all modules whose drawings are the same, but none from which channels are wanted.
    /// @return an error if the frame cannot be rendered or progress returned false
    UT_Result<ShownFrame> render(double frame, const RD_RenderParameters& parameters, const ShownParts& wanted,
                                 const RD_SoftRenderer::Progress& progress = {}, RD_KeptInputs* kept = nullptr) const;

    /// The parameters with which the node is rendered: the given ones, or the same in float.
    RD_RenderParameters usedFor(const RD_RenderParameters& parameters, const ShownParts& wanted) const;

    /// Whether the channels differ from the picture with elevation in the blue channel.
    bool hasOtherBlue() const { return _otherBlue; }
    /// Renders the channels alone.
    UT_Result<UT_SharedPtr<CEL_PixmapArea>> renderChannels(double frame, const RD_RenderParameters& parameters,
                                                           const RD_SoftRenderer::Progress& progress = {}) const;

    /// Renders the drawing that belongs to the picture alone, with associated colours.
    UT_Result<UT_SharedPtr<CEL_PixmapArea>> renderDrawing(double frame, const RD_RenderParameters& parameters,
                                                          const RD_SoftRenderer::Progress& progress = {}) const;

private:
    /// The changes to the scene for a render of the node.
    struct Change
    {
        bool elevationInBlue = false;
        bool closedSeams = false;  ///< for renders in float
        float canvasFactor = 1.0F; ///< the node's factor for heights, with the margin
        float frameFactor = 1.0F;  ///< the same factor without a margin

        // NOLINTNEXTLINE(modernize-use-nullptr): the check takes the comparison with 0 that the compiler makes for
        // ours.
        friend auto operator<=>(const Change&, const Change&) = default;
    };

    UT_Result<UT_SharedPtr<CEL_PixmapArea>> renderNode(double frame, const RD_RenderParameters& parameters,
                                                       const Change& wanted, const RD_SoftRenderer::Progress& progress,
                                                       RD_KeptInputs* kept = nullptr) const;
    /// Adds the picture to a frame and, if they are wanted, the channels.
    UT_Result<void> addPicture(double frame, const RD_RenderParameters& parameters, const ShownParts& wanted,
                               const RD_SoftRenderer::Progress& progress, RD_KeptInputs* kept, ShownFrame& made) const;
    /// Adds the drawing and does to the picture what needs it.
    UT_Result<void> addDrawing(double frame, const RD_RenderParameters& parameters, const ShownParts& wanted,
                               const RD_SoftRenderer::Progress& progress, ShownFrame& made) const;
    using CopyResult = UT_Result<std::shared_ptr<const SceneCopy>>;
    /// Null where the scene itself serves.
    CopyResult changed(const Change& change) const;
    /// What the Object Definitions say of single objects and the nodes know nothing of.
    struct ObjectChanges;
    ObjectChanges objectChanges(double frame) const;
    UT_Result<void> change(const ObjectChanges& changes, const ShownInputs& inputs, double frame,
                           const RD_RenderParameters& parameters, const ShownParts& wanted,
                           const RD_SoftRenderer::Progress& progress, ShownFrame& made) const;
    UT_Result<UT_SharedPtr<CEL_PixmapArea>> renderRims(const ObjectRims& rims, double frame,
                                                       const RD_RenderParameters& parameters,
                                                       const RD_SoftRenderer::Progress& progress) const;
    /// A copy of the scene in which the nodes render the rims.
    struct Rimmed;
    UT_Result<std::shared_ptr<const Rimmed>> rimmed(const ObjectRims& rims) const;
    /// A copy of the scene that shows nothing but the strokes.
    CopyResult showing(const SurfaceLine& line) const;
    /// How high the objects rise, in pixels.
    std::map<QString, std::map<int, double>> risesOf(double frame, const ObjectRims& rims, int width) const;
    /// A copy of the scene that shows the drawing, with the module that does.
    CopyResult drawing() const;
    /// A copy of the scene that shows the drawing's coverage; its module is null where there is none that does.
    CopyResult coverage() const;
    /// Gives a float picture the drawing's coverage without painting the drawing's colours.
    ///
    /// @return whether that was possible
    UT_Result<bool> takeCoverageAlone(CEL_PixmapAreaRGBAFloat& picture, double frame,
                                      const RD_RenderParameters& parameters,
                                      const RD_SoftRenderer::Progress& progress) const;
    /// Paints the drawing alone.
    UT_Result<UT_SharedPtr<CEL_PixmapArea>> paint(double frame, const RD_RenderParameters& parameters,
                                                  const RD_SoftRenderer::Progress& progress) const;
    UT_Result<UT_SharedPtr<CEL_PixmapArea>> paintAndNote(double frame, const RD_RenderParameters& parameters,
                                                         const ShownParts& wanted, ShownFrame& made,
                                                         const RD_SoftRenderer::Progress& progress) const;

    MO_Module& _module;
    PictureSource _source;
    bool _otherBlue = false;
    // The margins of frames are multiples of 32 pixels, so more different changes are rare.
    mutable SceneCopies<Change> _changed{16};
    // By their object tables. Rims that are animated have other tables at every frame.
    mutable SceneCopies<std::map<QString, QString>, Rimmed> _rimmed{8};
    mutable SceneCopies<std::pair<QString, int>> _lines; // by node and port
    mutable SceneCopies<std::monostate> _drawing;
    mutable SceneCopies<std::monostate> _coverage;
    mutable std::atomic<bool> _passesCoverage = true; ///< whether coverageOf() may find one
    mutable std::mutex _notingMutex;
    mutable SceneCopy _noting;   // protected by _notingMutex
    mutable DrawingNotes _noted; // protected by _notingMutex
};
