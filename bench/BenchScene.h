// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The measured pictures: objects in a 16:9 frame, each an ellipse with a hole and a carved spot, with antialiased
// edges. They are computed by formula, so that every machine measures the same.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "render/VallorinRenderHandler.h"

#include <vector>

/// A size of frames.
struct FrameSize
{
    const char* name;
    int width;
    int height;
};

inline constexpr FrameSize kFrameSizes[] = {{"1080p", 1920, 1080}, {"4K", 3840, 2160}};

/// The formats' names in the names of benchmarks.
template<typename Pixel>
inline const char* formatName()
{
    return CEL_PixelTraits<Pixel>::kFormat == CEL_FORMAT_RGBA16 ? "int16" : "float";
}

/// A frame with its objects; together they cover 40 % of it.
template<typename Pixel>
class BenchScene
{
public:
    using Pixmap = CEL_PixmapOf<Pixel>;

    /// One object in the middle, or five of a fifth of its area each, side by side in two rows.
    enum class Objects
    {
        ONE,
        FIVE
    };

    BenchScene(const FrameSize& frame, Objects objects);

    const Math::Box2di& canvas() const { return _canvas; }
    /// A pixmap of the frame, without pixels.
    UT_SharedPtr<Pixmap> emptyPixmap() const;

    /// Per object: the input, and the accumulator that it was merged into.
    const std::vector<UT_SharedPtr<Pixmap>>& inputs() const { return _inputs; }
    const std::vector<UT_SharedPtr<Pixmap>>& accumulators() const { return _accumulators; }
    /// The output, as large as the frame, kept between runs.
    Pixmap& output() { return *_output; }

    /// The node's whole work for the frame, from the accumulators to the output.
    void render(double bevel, int quality);

    /// Composes the results, one per object, into the output.
    void compose(const VallorinRenderHandler::PixmapMap& results);

private:
    void addObject(double centreX, double centreY, double radiusX, double radiusY);

    Math::Box2di _canvas;
    std::vector<UT_SharedPtr<Pixmap>> _inputs;
    std::vector<UT_SharedPtr<Pixmap>> _accumulators;
    UT_SharedPtr<Pixmap> _reference;
    UT_SharedPtr<Pixmap> _output;
    VallorinRenderHandler::PixmapMap _inputMap;
    UT_SharedPtr<VallorinRenderHandler> _handler;
};
