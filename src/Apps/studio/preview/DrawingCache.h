// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DrawingCache: the last painted drawings, so that a change of a node's values, which does not change its drawing, does
// not paint it again: neither for the viewer nor for the node, which reads each of its inputs as pixels.
#pragma once

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/rendering/RD_KeptInputs.h"
#include "jobs/shown/InputCoverage.h"

#include <QByteArray>
#include <QImage>
#include <QSize>

#include <list>
#include <memory>

/// All that a shown drawing depends on. Equal states have equal drawings.
struct DrawingState
{
    QByteArray graph; ///< the saved form of the scene, without the values of normal-map nodes, without tilts and rims
    QByteArray frame; ///< the values of the same modules at the frame
    std::vector<UT_SharedPtr<CELVEC_Kvd>> drawings; ///< kept alive, so that no other drawing can get the same address

    friend bool operator==(const DrawingState&, const DrawingState&) = default;
};

/// The part of a state that is the same for all frames.
///
/// @param shown the name of the shown module
QByteArray drawingGraphOf(const MO_Scene& scene, const QString& shown);
/// The part of a state that may differ from frame to frame.
QByteArray drawingFrameOf(const MO_Scene& scene, double frame);
/// The colour tables of the normal-map nodes, on which their inputs depend besides the drawing.
QByteArray colourTablesOf(const MO_Scene& scene);

/// A painted drawing in the forms that are shown.
struct PaintedDrawing
{
    UT_SharedPtr<CEL_PixmapArea> pixels;        ///< associated colours
    std::shared_ptr<const IIO_Picture> picture; ///< straight colours, 16 bits
    QImage image;
    std::shared_ptr<const ShownInputs> inputs; ///< the coverage of each input of the nodes
};

/// The last few drawings. Only one thread may use a cache.
class DrawingCache
{
public:
    /// For a quick and a full picture, of this frame and the previous one.
    static constexpr std::size_t kMost = 4;
    /// The most memory for the inputs of nodes.
    static constexpr std::int64_t kInputBytes = 256LL << 20;

    /// The drawing; null if it is not in the cache.
    const PaintedDrawing* find(const DrawingState& state, const QSize& size);
    void keep(const DrawingState& state, const QSize& size, const PaintedDrawing& drawing);

    /// The inputs of nodes that were painted for this state, to use and add to; those of another state are forgotten.
    ///
    /// @param colourTables as colourTablesOf() says
    RD_KeptInputs& inputsFor(const DrawingState& state, const QByteArray& colourTables);
    const RD_KeptInputs& inputs() const { return _inputs; }

private:
    struct Entry
    {
        DrawingState state;
        QSize size;
        PaintedDrawing drawing;
    };

    std::list<Entry> _entries; // the last used one first
    RD_KeptInputs _inputs{kInputBytes};
    DrawingState _inputsState;
    QByteArray _inputsTables;
};
