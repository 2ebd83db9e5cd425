// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Shared by the tests of picture files: pictures with known or random samples, comparison, a folder for a test's files.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <vector>

/// All samples of a picture, row by row.
template<typename Sample>
std::vector<Sample> samplesOf(const IIO_Picture& picture)
{
    std::vector<Sample> samples;
    for (int y = picture.dataWindow().y1; y < picture.dataWindow().y2; ++y) {
        const auto row = picture.row<Sample>(y);
        samples.insert(samples.end(), row.begin(), row.end());
    }
    return samples;
}

/// A picture whose samples the function returns one after the other.
template<typename Sample>
IIO_Picture pictureOf(const Math::Box2di& display, const Math::Box2di& data, const QStringList& channels,
                      const std::function<Sample()>& next)
{
    constexpr auto kType = std::is_same_v<Sample, float> ? IIO_SampleType::FLOAT : IIO_SampleType::UINT16;
    IIO_Picture picture = std::move(IIO_Picture::create(kType, display, data, channels).value());
    for (int y = data.y1; y < data.y2; ++y)
        for (Sample& sample : picture.row<Sample>(y))
            sample = next();
    return picture;
}

/// A picture with random 16-bit samples.
inline IIO_Picture randomPicture16(int width, int height, const QStringList& channels, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> any(0, 65535);
    return pictureOf<std::uint16_t>({0, 0, width, height}, {0, 0, width, height}, channels,
                                    [&] { return static_cast<std::uint16_t>(any(random)); });
}

/// A picture with the given samples and both windows at the origin.
template<typename Sample>
IIO_Picture pictureOfSamples(int width, int height, const QStringList& channels, const std::vector<Sample>& samples)
{
    auto next = samples.begin();
    return pictureOf<Sample>({0, 0, width, height}, {0, 0, width, height}, channels, [&] { return *next++; });
}

/// A test with a folder of its own.
class FolderTest : public testing::Test, protected TestFolder
{};
