// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The objects are made directly, without intermediate pictures, so that a process that has made a scene has never held
// more memory than the scene needs.
#include "BenchScene.h"

#include "render/Composition.h"
#include "render/CoverageMerge.h"
#include "render/ObjectVolume.h"

#include <algorithm>
#include <cmath>

namespace {

// An ellipse's coverage of a pixel, from the distance to the outline along the gradient.
double ellipseCoverage(double x, double y, double radiusX, double radiusY)
{
    const double u = x / radiusX;
    const double v = y / radiusY;
    const double level = u * u + v * v - 1.0;
    const double steepness = 2.0 * std::hypot(u / radiusX, v / radiusY);
    return std::clamp(0.5 - level / std::max(steepness, 1e-9), 0.0, 1.0);
}

template<typename Pixel>
Pixel objectPixel(double x, double y, double radiusX, double radiusY)
{
    using Channel = typename CEL_PixelTraits<Pixel>::Channel;
    constexpr auto kFull = static_cast<double>(CEL_PixelTraits<Pixel>::kFull);
    const double hole = ellipseCoverage(x + 0.4 * radiusX, y, 0.28 * radiusX, 0.28 * radiusY);
    const double coverage = ellipseCoverage(x, y, radiusX, radiusY) * (1.0 - hole);
    if (!(coverage > 0.0))
        return {};
    const double spot = ellipseCoverage(x - 0.4 * radiusX, y, 0.3 * radiusX, 0.3 * radiusY);
    return {static_cast<Channel>(0.75 * kFull), static_cast<Channel>(0.5 * spot * kFull),
            static_cast<Channel>(spot * kFull), static_cast<Channel>(coverage * kFull)};
}

// The ellipse without its hole covers this share of its bounding rectangle.
constexpr double kShareOfBox = 0.78539816339744831 * (1.0 - 0.28 * 0.28);

} // namespace

template<typename Pixel>
BenchScene<Pixel>::BenchScene(const FrameSize& frame, Objects objects)
    : _canvas(0, 0, frame.width, frame.height)
    , _reference(emptyPixmap())
    , _output(emptyPixmap())
    , _handler(new VallorinRenderHandler(1.0, MO_CompositeModuleBitmapHandler::CompositeModuleInterface{}, {}))
{
    constexpr double kCovered = 0.4;
    const double scale = 0.5 * std::sqrt(kCovered / kShareOfBox);
    if (objects == Objects::ONE)
        addObject(0.5, 0.5, scale, scale);
    else
        for (const auto& [x, y] : {std::pair(0.2, 0.25), {0.5, 0.25}, {0.8, 0.25}, {0.3, 0.75}, {0.7, 0.75}})
            addObject(x, y, 0.135, scale * scale / 5.0 / 0.135);
    _output->realloc(_canvas, true);
}

template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> BenchScene<Pixel>::emptyPixmap() const
{
    return UT_makeShared<Pixmap>(Math::Size2di(_canvas.width(), _canvas.height()), _canvas);
}

// Positions and sizes are fractions of the frame.
template<typename Pixel>
void BenchScene<Pixel>::addObject(double centreX, double centreY, double radiusX, double radiusY)
{
    const double x0 = centreX * _canvas.width();
    const double y0 = centreY * _canvas.height();
    const double rx = radiusX * _canvas.width();
    const double ry = radiusY * _canvas.height();
    auto input = emptyPixmap();
    input->realloc(Math::Box2di(static_cast<int>(x0 - rx) - 1, static_cast<int>(y0 - ry) - 1,
                                static_cast<int>(x0 + rx) + 2, static_cast<int>(y0 + ry) + 2)
                       .getIntersection(_canvas),
                   false);
    const Math::Box2di& rect = input->allocatedRect();
    for (int y = rect.y1; y < rect.y2; ++y)
        for (int x = rect.x1; x < rect.x2; ++x)
            input->at(x, y) = objectPixel<Pixel>(x + 0.5 - x0, y + 0.5 - y0, rx, ry);
    auto accumulator = emptyPixmap();
    mergeCoverage<Pixel>(*accumulator, *input);
    _inputMap[static_cast<int>(_inputs.size())] = input;
    _inputs.push_back(std::move(input));
    _accumulators.push_back(std::move(accumulator));
    _handler->portObjectIds.push_back(static_cast<int>(_inputs.size()));
}

template<typename Pixel>
void BenchScene<Pixel>::compose(const VallorinRenderHandler::PixmapMap& results)
{
    _output->realloc(Math::Box2di(), false);
    PortComposition composition(*_handler, *_output, _canvas);
    composition.include(_canvas);
    for (const auto& [port, input] : _inputMap)
        composition.add(port, input, results.at(_handler->portObjectIds[static_cast<std::size_t>(port)]));
    composition.finish();
}

template<typename Pixel>
void BenchScene<Pixel>::render(double bevel, int quality)
{
    _output->realloc(Math::Box2di(), false);
    PortComposition composition(*_handler, *_output, _canvas);
    composition.include(_canvas);
    for (const auto& [port, input] : _inputMap) {
        const auto& accumulator = _accumulators[static_cast<std::size_t>(port)];
        std::pair<float, float> range;
        const ObjectVolume volume =
            buildObjectVolume(_reference, bevel, _canvas.width(), true, 1.0,
                              {accumulator, {}, accumulator->allocatedRect()}, range, quality, 1.0, true, {}, {}, true);
        volume.bands([&](const auto& band) { composition.add(port, input, band); });
    }
    composition.finish();
}

template class BenchScene<CEL_PixelRGBA16>;
template class BenchScene<CEL_PixelRGBAFloat>;
