// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/shown/strokes/Membrane.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <algorithm>

namespace {

// Sweeps over the finest grid; each coarser one has twice as many, up to kMostSweeps. What the coarser grid leaves
// wrong is mostly rough, and a few sweeps smooth it.
constexpr int kSweeps = 24;
constexpr int kMostSweeps = 96;
// How far each cell goes towards and beyond what its neighbours say (successive over-relaxation). Best for strokes of
// some 14 cells from middle to outline; wider ones have good values from the coarser grid.
constexpr float kRelaxation = 1.8F;
// The smallest side of a grid that is halved.
constexpr int kCoarsest = 8;

// Cells with less coverage have no part in the membrane.
constexpr float kLeast = 1.0F / 64.0F;

template<typename Work>
void forRows(int height, const Work& work)
{
    constexpr int kBand = 16;
    VL_parallelFor(tbb::blocked_range<int>(0, height, kBand), [&](const tbb::blocked_range<int>& rows) {
        for (int y = rows.begin(); y < rows.end(); ++y)
            work(y);
    });
}

// Covered cells that follow each other in a row.
struct Run
{
    int y;
    int begin;
    int end;
};

std::vector<Run> runsOf(const CellField& coverage)
{
    std::vector<Run> runs;
    for (int y = 0; y < coverage.height; ++y)
        for (int x = 0; x < coverage.width; ++x) {
            const int begin = x;
            while (x < coverage.width && coverage.at(x, y) >= kLeast)
                ++x;
            if (x > begin)
                runs.push_back({y, begin, x});
        }
    return runs;
}

CellField halved(const CellField& coverage)
{
    CellField half((coverage.width + 1) / 2, (coverage.height + 1) / 2);
    forRows(half.height, [&](int y) {
        for (int x = 0; x < half.width; ++x)
            half.at(x, y) = (coverage.near(2 * x, 2 * y) + coverage.near(2 * x + 1, 2 * y) +
                             coverage.near(2 * x, 2 * y + 1) + coverage.near(2 * x + 1, 2 * y + 1)) /
                            4.0F;
    });
    return half;
}

// The coarser grid's solution between the middles of its cells, of which each is four cells large.
CellField doubled(const CellField& coarse, const CellField& coverage)
{
    CellField fine(coverage.width, coverage.height);
    forRows(fine.height, [&](int y) {
        const int row = y / 2;
        const int otherRow = y % 2 == 0 ? row - 1 : row + 1;
        for (int x = 0; x < fine.width; ++x) {
            if (coverage.at(x, y) < kLeast)
                continue;
            const int column = x / 2;
            const int otherColumn = x % 2 == 0 ? column - 1 : column + 1;
            const float nearRow = 3.0F * coarse.near(column, row) + coarse.near(otherColumn, row);
            const float farRow = 3.0F * coarse.near(column, otherRow) + coarse.near(otherColumn, otherRow);
            fine.at(x, y) = (3.0F * nearRow + farRow) / 16.0F * 4.0F;
        }
    });
    return fine;
}

// The value with which the equation of one cell holds for its neighbours' values.
float balanced(const CellField& coverage, const CellField& membrane, int x, int y)
{
    const float own = coverage.at(x, y);
    // Towards the outline inside a partly covered cell.
    float conductance = 2.0F * (1.0F / own - 1.0F);
    float sum = 2.0F * own;
    const auto join = [&](int nextX, int nextY) {
        if (coverage.near(nextX, nextY) < kLeast) {
            conductance += 2.0F;
        } else {
            // Between the middles of what is covered of the two cells.
            const float between = 2.0F / (own + coverage.near(nextX, nextY));
            conductance += between;
            sum += between * membrane.near(nextX, nextY);
        }
    };
    join(x - 1, y);
    join(x + 1, y);
    join(x, y - 1);
    join(x, y + 1);
    return sum / conductance;
}

void relax(const CellField& coverage, int sweeps, CellField& membrane)
{
    const std::vector<Run> runs = runsOf(coverage);
    constexpr std::size_t kBand = 64;
    for (int sweep = 0; sweep < 2 * sweeps; ++sweep)
        VL_parallelFor(tbb::blocked_range<std::size_t>(0, runs.size(), kBand),
                       [&](const tbb::blocked_range<std::size_t>& some) {
                           for (std::size_t i = some.begin(); i < some.end(); ++i) {
                               const auto& [y, begin, end] = runs[i];
                               for (int x = begin + ((begin + y + sweep) % 2); x < end; x += 2) {
                                   float& own = membrane.at(x, y);
                                   own += kRelaxation * (balanced(coverage, membrane, x, y) - own);
                               }
                           }
                       });
}

CellField solved(const CellField& coverage, int sweeps)
{
    CellField membrane(coverage.width, coverage.height);
    if (std::min(coverage.width, coverage.height) > kCoarsest)
        membrane = doubled(solved(halved(coverage), std::min(2 * sweeps, kMostSweeps)), coverage);
    relax(coverage, sweeps, membrane);
    return membrane;
}

} // namespace

float CellField::near(int x, int y) const
{
    return at(std::clamp(x, 0, width - 1), std::clamp(y, 0, height - 1));
}

CellField membraneOver(const CellField& coverage)
{
    return solved(coverage, kSweeps);
}
