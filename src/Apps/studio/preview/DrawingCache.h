// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DrawingCache: the drawings that were painted last, so that a change of a node's values, which leaves its drawing as
// it is, paints none.
#pragma once

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/shown/InputCoverage.h"

#include <QByteArray>
#include <QImage>
#include <QSize>

#include <list>
#include <memory>

/// What a drawing that is shown depends on. Equal states have equal drawings.
struct DrawingState
{
    QByteArray graph; ///< everything that is saved of the scene, without the values of nodes that make normal maps
    QByteArray frame; ///< the same modules' values at the frame
    std::vector<UT_SharedPtr<CELVEC_Kvd>> drawings; ///< held, so that another drawing never has the same address

    friend bool operator==(const DrawingState&, const DrawingState&) = default;
};

/// The part of a state that is the same for all frames.
///
/// @param shown the name of the module that is looked at
QByteArray drawingGraphOf(const MO_Scene& scene, const QString& shown);
/// The part of a state that may differ from frame to frame.
QByteArray drawingFrameOf(const MO_Scene& scene, double frame);

/// A painted drawing in the forms that are shown of it.
struct PaintedDrawing
{
    std::shared_ptr<const IIO_Picture> picture; ///< straight colours, 16 bits
    QImage image;
    std::shared_ptr<const ShownInputs> inputs; ///< where each input of the nodes shows
};

/// The last few drawings. For one thread.
class DrawingCache
{
public:
    /// A quick picture's and a full one's, of this frame and the one before.
    static constexpr std::size_t kMost = 4;

    /// Null when there is none.
    const PaintedDrawing* find(const DrawingState& state, const QSize& size);
    void keep(const DrawingState& state, const QSize& size, const PaintedDrawing& drawing);

private:
    struct Entry
    {
        DrawingState state;
        QSize size;
        PaintedDrawing drawing;
    };

    std::list<Entry> _entries; // the one used last first
};
