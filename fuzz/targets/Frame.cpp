// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A whole frame: the bytes are the settings of a render. It succeeds or is refused with a message; every value of a
// picture of floats is a number, and two renders are the same.
#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelDrawingIO/DIO_SvgReader.h"
#include "Targets.h"
#include "jobs/drawing/NormalMapJob.h"
#include "jobs/drawing/ReadDrawing.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

constexpr const char* kDrawing = R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="48">
  <g id="body"><rect x="-6" y="8" width="52" height="36" rx="12" fill="#c03020"/></g>
  <g id="eye"><circle cx="32" cy="20" r="10" fill="#2040c0" fill-opacity="0.5"/></g>
  <g id="dot"><circle cx="50" cy="40" r="0.3" fill="#20c040"/></g></svg>)";

// Settings out of bytes; the bytes end in zeros that go on for ever.
class Settings
{
public:
    explicit Settings(const QByteArray& bytes) : _bytes(bytes) {}

    NormalMapSettings take()
    {
        NormalMapSettings settings;
        settings.form.objects = ObjectChoice::GROUPS;
        settings.size = QSize(1 + byte() % 96, 1 + byte() % 96);
        const unsigned flags = byte();
        settings.renderInFloat = (flags & 1U) != 0;
        settings.generateNormals = (flags & 2U) == 0;
        settings.depthInBlue = (flags & 4U) != 0;
        settings.clipBlurredWithGeometry = (flags & 8U) == 0;
        settings.useTruckFactor = (flags & 16U) != 0;
        constexpr std::array kQualities{"LOW_NORMAL_QUALITY", "MEDIUM_NORMAL_QUALITY", "HIGH_NORMAL_QUALITY"};
        settings.normalQuality = QString::fromLatin1(kQualities[byte() % kQualities.size()]);
        settings.truck = std::clamp(std::abs(number()), 0.001, 1000.0);
        settings.blurScale = std::clamp(number(), 0.0, 10.0);
        settings.elevationScale = std::clamp(number(), 0.0, 10.0);
        settings.elevationSmoothness = std::clamp(number(), 0.1, 128.0);
        settings.levelOfAllColours = static_cast<int>(byte());
        for (int object = 1; object <= 3; ++object)
            settings.objects[object] = objectSettings();
        return settings;
    }

private:
    unsigned byte() { return _at < _bytes.size() ? static_cast<unsigned char>(_bytes[_at++]) : 0U; }

    // A finite number of any size, as options and files can say it.
    double number()
    {
        std::uint32_t bits = 0;
        for (unsigned i = 0; i < sizeof bits; ++i)
            bits |= static_cast<std::uint32_t>(byte()) << (8 * i);
        const auto value = std::bit_cast<float>(bits);
        return std::isfinite(value) ? static_cast<double>(value) : 1.0;
    }

    ObjectSettings objectSettings()
    {
        ObjectSettings object;
        object.bevel = number();
        object.elevation = number();
        object.smoothness = number();
        const unsigned flags = byte();
        object.scaleByCoverage = (flags & 1U) != 0;
        object.cutOut = (flags & 6U) == 6U;
        object.hidden = (flags & 24U) == 24U;
        object.level = byte() / 255.0;
        return object;
    }

    const QByteArray& _bytes;
    qsizetype _at = 0;
};

const LayeredDrawing& drawing()
{
    static const ReadDrawing read = [] {
        const auto svg = DIO_readSvgData(kDrawing, QStringLiteral("fuzz.svg"), DIO_Grouping::GROUPS);
        FUZZ_CHECK(svg.ok());
        FormSettings form;
        form.objects = ObjectChoice::GROUPS;
        return chosenDrawing(*svg, form);
    }();
    return read.drawing;
}

void checkSame(const CEL_PixmapArea& first, const CEL_PixmapArea& second)
{
    FUZZ_CHECK(first.allocatedRect() == second.allocatedRect() && first.format() == second.format());
    CEL_withFormat(first, [&](const auto& typed) {
        using Pixel = CEL_PixelOf<decltype(typed)>;
        const auto& other = dynamic_cast<const CEL_PixmapOf<Pixel>&>(second);
        const Math::Box2di& rect = typed.allocatedRect();
        for (int y = rect.y1; y < rect.y2; ++y) {
            const std::span<const Pixel> row = typed.row(y);
            FUZZ_CHECK(std::memcmp(row.data(), other.row(y).data(), row.size_bytes()) == 0);
            for (const Pixel& pixel : row)
                FUZZ_CHECK(std::isfinite(static_cast<double>(pixel.r) + static_cast<double>(pixel.g) +
                                         static_cast<double>(pixel.b) + static_cast<double>(pixel.a)));
        }
    });
}

} // namespace

void fuzzFrame(const QByteArray& input)
{
    const NormalMapSettings settings = Settings(input).take();
    const ShownParts parts{.elevation = true, .drawing = true};
    const auto first = renderNormalMap(drawing(), settings, parts);
    const auto second = renderNormalMap(drawing(), settings, parts);
    FUZZ_CHECK(first.ok() == second.ok());
    if (!first) {
        FUZZ_CHECK(!first.error().text.isEmpty());
        return;
    }
    checkSame(*first->picture, *second->picture);
}
