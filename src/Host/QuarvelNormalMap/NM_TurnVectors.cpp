// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Quarter turns and mirroring only swap components and change their signs; nothing is rounded.
#include "QuarvelNormalMap/NM_TurnVectors.h"

#include "QuarvelNormalMap/private/NM_Rows.h"

namespace {

using Sample = std::uint16_t;

constexpr std::size_t kChannels = 4;

Sample negated(Sample sample)
{
    constexpr Sample kZero16 = 32768;
    constexpr Sample kZero8 = 128 * 257;
    return sample == kZero16 || sample == kZero8 ? sample : static_cast<Sample>(65535 - sample);
}

template<typename Change>
void forVectors(IIO_Picture& map, const Change& change)
{
    assert(map.sampleType() == IIO_SampleType::UINT16 && map.channels() == IIO_channelsRgba());
    NM_forRows(map.dataWindow().y1, map.dataWindow().y2, [&](int y) {
        const std::span<Sample> row = map.row<Sample>(y);
        for (std::size_t i = 0; i < row.size(); i += kChannels)
            change(row[i], row[i + 1]);
    });
}

} // namespace

void NM_turnVectors(IIO_Picture& map, int quarterTurns, NM_YAxis yAxis)
{
    // With y up, a clockwise turn takes the x axis to -y.
    const int clockwise = (quarterTurns % 4 + 4) % 4;
    const int turns = yAxis == NM_YAxis::UP ? clockwise : (4 - clockwise) % 4;
    if (turns == 1)
        forVectors(map, [](Sample& x, Sample& y) {
            const Sample was = x;
            x = y;
            y = negated(was);
        });
    else if (turns == 2)
        NM_mirrorVectors(map, true, true);
    else if (turns == 3)
        forVectors(map, [](Sample& x, Sample& y) {
            const Sample was = x;
            x = negated(y);
            y = was;
        });
}

void NM_mirrorVectors(IIO_Picture& map, bool leftRight, bool upDown)
{
    forVectors(map, [&](Sample& x, Sample& y) {
        x = leftRight ? negated(x) : x;
        y = upDown ? negated(y) : y;
    });
}
