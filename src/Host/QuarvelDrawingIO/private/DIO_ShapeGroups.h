// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_ShapeGroups: what a drawing does to several shapes together while it is painted: it puts them on layers, fades
// them as one picture, cuts them with a mask. Groups lie within each other.
#pragma once

#include "QuarvelDrawingIO/private/DIO_GroupedShapes.h"
#include "QuarvelDrawingIO/private/DIO_PictureMask.h"
#include "QuarvelDrawingIO/private/DIO_SvgMarks.h"

class DIO_ShapeGroups
{
public:
    static constexpr int kNoLayer = -1;

    /// Shapes that follow each other on one layer.
    struct Run
    {
        int layer = kNoLayer;
        int number = 0; ///< each change of the layer begins a new one
        std::vector<DIO_Shape> shapes;
    };

    /// @param picturePixels how many pixels of pictures may be made by masks
    explicit DIO_ShapeGroups(qint64 picturePixels) : _open(1), _picturePixels(picturePixels) {}

    /// The shapes that follow belong to a layer.
    void setLayer(int layer);
    void add(DIO_Shape shape);

    /// The shapes up to endFading() are faded as one picture; a layer within the group by itself.
    void beginFading(double opacity);
    void endFading();

    /// The shapes up to endMask() make up a mask and are not painted.
    ///
    void beginMask(DIO_MaskKind kind);
    bool isInMask() const { return _masksOpen > 0; }
    /// The shapes up to endMasked() are cut by the mask.
    ///
    /// @param palette of the mask's shapes
    void endMask(const std::vector<DIO_Paint>& palette);

    /// @param palette of the shapes that are cut
    void endMasked(const std::vector<DIO_Paint>& palette);

    /// Takes out everything, in the order of painting. No group is open.
    std::vector<Run> take();

    /// How many shapes were too detailed to be cut or faded with others.
    int tooDetailed() const { return _tooDetailed; }

private:
    struct Group
    {
        std::vector<Run> runs;
        double opacity = 1.0;
        DIO_MaskKind maskKind = DIO_MaskKind::BRIGHTNESS; ///< of this group while it is a mask, then of its mask
        std::vector<DIO_CoverageLevels::Painted> mask;
        std::optional<DIO_PictureMask> pictureMask; ///< instead, where the mask has pictures in it
    };

    Group close();
    void keep(const std::vector<Run>& runs);
    void cutByLevels(Group& group);
    std::vector<DIO_Shape>& shapesOf(int layer, int number);

    std::vector<Group> _open; // never empty
    DIO_PathWork _work;
    qint64 _picturePixels;
    int _layer = kNoLayer;
    int _run = 0;
    int _masksOpen = 0;
    int _tooDetailed = 0;
};
