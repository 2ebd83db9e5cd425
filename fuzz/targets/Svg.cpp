// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SVG drawings: what is read has layers, a size, and coordinates that can be painted; and objects can be chosen in it.
#include "QuarvelDrawingIO/DIO_SvgReader.h"
#include "Targets.h"
#include "form/ChooseObjects.h"

#include <cmath>

namespace {

bool isFinite(const QRectF& rect)
{
    return std::isfinite(rect.left()) && std::isfinite(rect.top()) && std::isfinite(rect.right()) &&
           std::isfinite(rect.bottom());
}

void check(const DIO_Drawing& drawing)
{
    FUZZ_CHECK(!drawing.layers.empty());
    FUZZ_CHECK(isFinite(drawing.viewBox) && drawing.viewBox.width() > 0.0 && drawing.viewBox.height() > 0.0);
    for (const DIO_Layer& layer : drawing.layers)
        for (const DIO_Shape& shape : layer.shapes) {
            FUZZ_CHECK(isFinite(shape.path.controlPointRect()));
            FUZZ_CHECK(shape.paint >= 0 && static_cast<std::size_t>(shape.paint) < drawing.palette.size());
        }
}

} // namespace

void fuzzSvg(const QByteArray& input)
{
    const auto groups = DIO_readSvgData(input, QStringLiteral("fuzz.svg"), DIO_Grouping::GROUPS);
    const auto drawing = DIO_readSvgData(input, QStringLiteral("fuzz.svg"));
    FUZZ_CHECK(groups.ok() == drawing.ok());
    if (!drawing) {
        FUZZ_CHECK(!drawing.error().text.isEmpty());
        return;
    }
    check(*groups);
    check(*drawing);
    const ChosenObjects chosen = chooseObjects(*drawing, ObjectChoice::AUTO);
    FUZZ_CHECK(chosen.objects.size() == chosen.drawing.layers.size());
}
