// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Renders the same scene on both sides and sorts the differences.
#include "PeerAgreement.h"

#include "BenchScene.h"
#include "Groups.h"
#include "OpenCvPeer.h"

#include <algorithm>
#include <numeric>

namespace {

using Pixel = CEL_PixelRGBA16;

std::vector<int> differences(const CEL_PixmapOf<Pixel>& a, const CEL_PixmapOf<Pixel>& b)
{
    std::vector<int> result;
    for (int y = a.allocatedRect().y1; y < a.allocatedRect().y2; ++y) {
        const auto rowA = a.row(y);
        const auto rowB = b.row(y);
        for (std::size_t x = 0; x < rowA.size(); ++x)
            if (rowA[x].a > 0 || rowB[x].a > 0)
                result.insert(result.end(), {std::abs(rowA[x].r - rowB[x].r), std::abs(rowA[x].g - rowB[x].g)});
    }
    std::ranges::sort(result);
    return result;
}

Agreement compare(BenchScene<Pixel>& scene, const FrameSize& frame, int bevel, int quality)
{
    const auto peerOutput = scene.emptyPixmap();
    peerOutput->realloc(scene.canvas(), true);
    OpenCvPeer<Pixel> peer;
    peer.run(*scene.accumulators()[0], *scene.inputs()[0], {.bevel = static_cast<double>(bevel), .quality = quality},
             *peerOutput);
    scene.render(bevel, quality);
    const std::vector<int> sorted = differences(scene.output(), *peerOutput);
    const double sum = std::accumulate(sorted.begin(), sorted.end(), 0.0);
    const std::size_t most = sorted.size() - sorted.size() / 1000 - 1;
    return {std::string(frame.name) + '/' + kQualities[quality] + "/bevel" + std::to_string(bevel),
            sum / static_cast<double>(sorted.size()) / 32767.0, sorted[most] / 32767.0};
}

} // namespace

std::vector<Agreement> comparePictures()
{
    const FrameSize& frame = kFrameSizes[0];
    BenchScene<Pixel> scene(frame, BenchScene<Pixel>::Objects::ONE);
    std::vector<Agreement> result;
    for (int quality = 0; quality < 3; ++quality)
        for (const int bevel : kBevels)
            result.push_back(compare(scene, frame, bevel, quality));
    return result;
}
