// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The profile's powers in vectors have the bits of the formula, with every instruction set that this machine has.
#include "OneInstructionSet.h"

#include "render/ElevationKernels.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>
#include <vector>

namespace {

using VolumeRowKernels::LinearShare;

// The definition.
float shareOf(float value, const LinearShare& profile, double power)
{
    if (!(value > 0.0F))
        return 0.0F;
    const float x = (value - profile.lowest) * profile.scale;
    return x > 0.0F && x < 1.0F ? static_cast<float>(std::exp(std::log(static_cast<double>(x)) / power)) : x;
}

// Values of every size up to 1, values right beside 0 and 1, and values outside the profile.
std::vector<float> valuesToTry(unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> even(0.0F, 1.0F);
    std::uniform_real_distribution<float> exponent(-140.0F, 0.0F);
    std::vector<float> values = {0.0F,
                                 -0.0F,
                                 -1.0F,
                                 1.0F,
                                 2.0F,
                                 std::nextafter(1.0F, 0.0F),
                                 std::nextafter(0.0F, 1.0F),
                                 std::numeric_limits<float>::min(),
                                 std::numeric_limits<float>::quiet_NaN()};
    for (int i = 0; i < 20'000; ++i) {
        values.push_back(even(random));
        values.push_back(std::exp2(exponent(random)));
    }
    return values;
}

class PowerProfile : public testing::TestWithParam<double>
{};

TEST_P(PowerProfile, HasTheBitsOfTheFormula)
{
    const double power = GetParam();
    const std::vector<float> values = valuesToTry(7);
    std::vector<float> shares(values.size());
    const std::int64_t supported = VL_supportedTargets();
    for (const LinearShare& profile : {LinearShare{0.0F, 1.0F}, LinearShare{0.125F, 1.5F}})
        for (std::int64_t rest = supported; rest != 0; rest &= rest - 1) {
            const OneInstructionSet only(rest & -rest);
            VolumeRowKernels::elevatePowers(values, profile, power, shares.data());
            for (std::size_t i = 0; i < values.size(); ++i)
                ASSERT_EQ(std::bit_cast<std::uint32_t>(shares[i]),
                          std::bit_cast<std::uint32_t>(shareOf(values[i], profile, power)))
                    << hwy::TargetName(rest & -rest) << ", value " << values[i];
        }
}

INSTANTIATE_TEST_SUITE_P(, PowerProfile, testing::Values(1e-300, 0.01, 0.1, 0.5, 1.7, 2.0, 3.2, 128.0));

} // namespace
