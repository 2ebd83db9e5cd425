// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The exact lighting, not the one that is made for the eye.
#include "application/IndependentPicture.h"

#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelNormalMap/NM_DrawingPicture.h"
#include "jobs/drawing/NormalMapJob.h"
#include "jobs/drawing/ReadDrawing.h"
#include "studio/preview/FrameImages.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <span>

std::optional<IndependentPicture> IndependentPicture::render(const QString& file,
                                                             const std::map<int, ObjectSettings>& objects)
{
    const UT_Result<ReadDrawing> read = readDrawing(file, {});
    if (!read) {
        ADD_FAILURE() << qPrintable(file) << ": " << qPrintable(read.error().text);
        return std::nullopt;
    }
    NormalMapSettings settings;
    settings.objects = objects;
    const UT_Result<ShownFrame> rendered =
        renderNormalMap(read->drawing, settings, {.elevation = true, .drawing = true});
    if (!rendered) {
        ADD_FAILURE() << qPrintable(rendered.error().text);
        return std::nullopt;
    }
    const Math::Box2di& frame = rendered->window;
    auto surface = NM_Surface::create({frame.width(), frame.height()});
    const auto drawing = NM_drawingPicture(*rendered->drawing, frame, IIO_SampleType::UINT16);
    if (!surface || !drawing || !surface->setNormals(*rendered->picture, frame) || !surface->setDrawing(*drawing)) {
        ADD_FAILURE() << "the picture cannot be lit";
        return std::nullopt;
    }
    IndependentPicture picture(std::move(*surface));
    picture._node = rendered->picture;
    picture._objectCount = static_cast<int>(read->drawing.layers.size());
    return picture;
}

int IndependentPicture::pixelsThatDiffer(const CEL_PixmapArea& node) const
{
    int differing = size().width() * size().height();
    CEL_withFormat(node, [&](const auto& theirs) {
        using Pixel = CEL_PixelOf<decltype(theirs)>;
        const auto ours = _node.dynamicCast<CEL_PixmapOf<Pixel>>();
        if (!ours)
            return;
        differing = 0;
        for (int y = 0; y < size().height(); ++y)
            for (int x = 0; x < size().width(); ++x) {
                const Pixel* const found = ours->find(x, y);
                const Pixel* const other = theirs.find(x, y);
                differing += (found ? *found : Pixel{}) == (other ? *other : Pixel{}) ? 0 : 1;
            }
    });
    return differing;
}

int IndependentPicture::greatestDifference(const QImage& shown, const NM_LightingSettings& lighting) const
{
    const auto lit = NM_litPicture(_surface, lighting);
    if (shown.size() != size() || shown.format() != QImage::Format_ARGB32_Premultiplied || !lit)
        return 255;
    const QImage exact = imageOf(*lit);
    int greatest = 0;
    for (int y = 0; y < exact.height(); ++y) {
        const std::span a(exact.constScanLine(y), static_cast<std::size_t>(exact.width()) * 4);
        const std::span b(shown.constScanLine(y), static_cast<std::size_t>(exact.width()) * 4);
        for (std::size_t i = 0; i < a.size(); ++i)
            greatest = std::max(greatest, std::abs(a[i] - b[i]));
    }
    return greatest;
}
