// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_ShapeCollector: makes a drawing of what the painting of a flattened SVG document records: shapes onto layers,
// brushes into the palette, marks into layers, clips and groups.
#pragma once

#include "QuarvelDrawingIO/private/DIO_ClipStack.h"
#include "QuarvelDrawingIO/private/DIO_ShapeGroups.h"
#include "QuarvelDrawingIO/private/DIO_ShapeSink.h"
#include "QuarvelDrawingIO/private/DIO_SvgLayers.h"
#include "QuarvelDrawingIO/private/DIO_SvgPaintServers.h"

class DIO_ShapeCollector : public DIO_ShapeSink
{
public:
    /// @param layers, servers must outlive the collector
    /// @param picturePixels for how many pixels of pictures that have to be sampled anew there is memory
    DIO_ShapeCollector(const DIO_SvgLayers& layers, const std::vector<DIO_PaintServer>& servers, qint64 picturePixels);

    void shape(DIO_RecordedShape recorded) override;
    bool polyline(std::span<const QPointF> points) override;

    /// Takes out layers, palette and warnings; the rest of the drawing is for others to fill in.
    DIO_Drawing takeDrawing();

private:
    void collectLayers();
    const DIO_PaintServer* serverOf(const QBrush& brush) const;
    int paintOf(const QBrush& brush, const DIO_PaintServer* server, double& opacity);
    bool applyPicture(DIO_Shape& shape, const QImage& picture);
    int indexOfPaint(const DIO_Paint& paint);
    bool applyClip(DIO_Shape& shape) const;
    void addSimplificationWarnings();

    const DIO_SvgLayers& _layers;
    const std::vector<DIO_PaintServer>& _servers;
    DIO_Drawing _drawing;
    DIO_ClipStack _clips;
    DIO_ShapeGroups _groups;
    qint64 _picturePixels;
    std::vector<DIO_Paint> _maskPalette;
    QHash<QString, int> _paintIndex;
    QHash<QString, int> _maskPaintIndex;
    int _unreachable = 0;
    int _cutShort = 0;
};
