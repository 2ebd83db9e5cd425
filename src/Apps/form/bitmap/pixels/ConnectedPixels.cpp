// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Marked pixels beside each other in a row are a run. Runs are joined instead of pixels, since there are far fewer.
// Parts are numbered by their first pixel, which is that of their first run.
#include "form/bitmap/pixels/ConnectedPixels.h"

namespace {

// The runs row by row, from left to right.
std::vector<PixelRun> runsOf(const PixelPlane<char>& marked)
{
    std::vector<PixelRun> runs;
    for (int y = 0; y < marked.height(); ++y) {
        const std::span<const char> row = marked.row(y);
        for (std::size_t from = nextOf(row, 0, 1); from < row.size();) {
            const std::size_t to = nextOf(row, from, 0);
            runs.push_back({y, static_cast<int>(from), static_cast<int>(to)});
            from = nextOf(row, to, 1);
        }
    }
    return runs;
}

// Joins runs of neighbouring rows that share an edge or a corner.
PixelSets joined(std::span<const PixelRun> runs)
{
    PixelSets sets(static_cast<int>(runs.size()));
    std::size_t above = 0;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const PixelRun& run = runs[i];
        while (runs[above].row < run.row - 1 || (runs[above].row == run.row - 1 && runs[above].to < run.from))
            ++above;
        for (std::size_t j = above; runs[j].row == run.row - 1 && runs[j].from <= run.to; ++j)
            sets.join(static_cast<int>(i), static_cast<int>(j));
    }
    return sets;
}

} // namespace

ConnectedRuns connectedPartsOf(std::span<const PixelRun> runs)
{
    PixelSets sets = joined(runs);
    ConnectedRuns connected{std::vector<int>(runs.size()), {}};
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const auto first = static_cast<std::size_t>(sets.find(static_cast<int>(i)));
        if (first == i) {
            connected.parts[i] = static_cast<int>(connected.pixels.size());
            connected.pixels.push_back(0);
        }
        const int part = connected.parts[i] = connected.parts[first];
        connected.pixels[static_cast<std::size_t>(part)] += runs[i].to - runs[i].from;
    }
    return connected;
}

ConnectedParts connectedPartsOf(const PixelPlane<char>& marked)
{
    const std::vector<PixelRun> runs = runsOf(marked);
    ConnectedRuns connected = connectedPartsOf(runs);
    ConnectedParts parts{PixelPlane<int>(marked.width(), marked.height(), kNoLabel), std::move(connected.pixels)};
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const auto [y, from, to] = runs[i];
        const std::span row = parts.labels.row(y);
        std::ranges::fill(row.subspan(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from)),
                          connected.parts[i]);
    }
    return parts;
}
