// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_LottieStreamReader: parses what the program that reads animations wrote. Every count is checked against the bytes
// that are left, every number against what can be painted.
#pragma once

#include "QuarvelDrawingIO/DIO_LottieStream.h"
#include "QuarvelDrawingIO/private/DIO_LottieDocument.h"

#include <QByteArray>
#include <QColor>
#include <QGradient>
#include <QPainterPath>
#include <QPen>
#include <QString>

#include <optional>
#include <vector>

/// An area or a line.
struct DIO_LottieNode
{
    DIO_LottieStream::Brush brush = DIO_LottieStream::SOLID_BRUSH;
    QColor colour;
    std::optional<QPen> stroke; ///< of a line
    QGradientStops stops;       ///< of a gradient
    QPainterPath path;
};

/// What cuts a layer.
struct DIO_LottieMask
{
    DIO_LottieStream::MaskMode mode = DIO_LottieStream::ADD_MASK;
    double opacity = 1.0;
    bool inverted = false; ///< what counts is outside the path
    QPainterPath path;
};

/// A layer at one frame.
struct DIO_LottieLayer
{
    QString name;
    DIO_LottieStream::Matte matte = DIO_LottieStream::NO_MATTE;
    bool visible = false;
    double alpha = 1.0;
    QPainterPath clip; ///< empty: none
    std::vector<DIO_LottieMask> masks;
    std::vector<DIO_LottieNode> nodes;
    std::vector<DIO_LottieLayer> layers; ///< bottom up
    QByteArray bytes;                    ///< that it was read from: what paints the same has the same bytes
};

/// What stands before the frames.
struct DIO_LottieHeader
{
    double width = 0.0;
    double height = 0.0;
    double frameRate = 0.0;
    int frames = 0;
};

/// Reads a stream from its beginning to its end, also while it still grows. After a failure of the header or the end,
/// no further function may be called.
class DIO_LottieStreamReader
{
public:
    /// @param bytes outlive the reader; they may grow at their end between calls, which ends the life of all layers
    /// @param facts what the document says of the layers; outlives the reader
    DIO_LottieStreamReader(const QByteArray& bytes, const std::vector<DIO_LottieLayerFacts>& facts)
        : _bytes(bytes), _facts(facts)
    {}

    /// The header; none when the stream is not one of ours or its numbers are out of range.
    std::optional<DIO_LottieHeader> readHeader();
    /// The outermost layer of the next frame; nothing when its bytes are damaged or have not all come. The frame can be
    /// asked for again when there are more bytes.
    std::optional<DIO_LottieLayer> readFrame();
    /// How many bytes were read.
    qsizetype position() const { return _at; }
    /// Whether the stream ends here.
    bool readEnd();

private:
    bool has(qsizetype count) const { return _ok && count <= _bytes.size() - _at; }
    unsigned byte();
    quint32 u32();
    float f32();
    double f64();
    // A value of an enumeration that begins with 0.
    template<typename Enum>
    Enum choice(Enum last);
    QString text();
    QPainterPath path(Qt::FillRule rule = Qt::WindingFill);
    void layer(DIO_LottieLayer& layer, int depth);
    const DIO_LottieLayerFacts& factsOf(const QString& number) const;
    static void applyFacts(const std::vector<DIO_LottieLayerFacts::Mask>& facts, std::vector<DIO_LottieMask>& masks);
    DIO_LottieMask mask();
    DIO_LottieNode node();
    QPen pen();
    QGradientStops stops();

    const QByteArray& _bytes;
    const std::vector<DIO_LottieLayerFacts>& _facts;
    qsizetype _at = 0;
    bool _ok = true;
};
