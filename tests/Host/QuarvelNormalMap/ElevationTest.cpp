// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The elevation as a grey picture.
#include "QuarvelNormalMap/NM_Layers.h"

#include "Pixmaps.h"

namespace {

using U16 = std::uint16_t;

TEST(ElevationPicture, IsGreyAndRegisteredToTheFrame)
{
    const TestPixmap<Pixel16> elevation({1, 2, 3, 3}, {Pixel16{0, 0, 0, 0}, Pixel16{32767, 32767, 32767, 32767}});
    const Math::Box2di frame(0, 0, 4, 4);
    const auto picture =
        NM_elevationOf(*elevation.get(), NM_ElevationChannel::RED, frame, frame, IIO_SampleType::UINT16);
    ASSERT_TRUE(picture.ok());
    EXPECT_EQ(picture->channels(), IIO_channelsGrey());
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(samplesAt<U16>(*picture, x, y)[0], x == 2 && y == 2 ? 65535 : 0) << x << ' ' << y;
}

TEST(ElevationPicture, TakesCoverageFromTheNormals)
{
    const TestPixmap<Pixel16> normals({0, 0, 2, 1}, {Pixel16{1, 2, 32767, 32767}, Pixel16{1, 2, 3, 16384}});
    const Math::Box2di frame(0, 0, 3, 1);
    const auto picture = NM_elevationOf(*normals.get(), NM_ElevationChannel::BLUE, frame, frame, IIO_SampleType::FLOAT);
    ASSERT_TRUE(picture.ok());
    EXPECT_EQ(picture->channels(), (QStringList{"Y", "coverage.A"}));
    EXPECT_EQ(allSamples<float>(*picture),
              (std::vector<float>{1.0F, 1.0F, 3.0F / 32767.0F, 16384.0F / 32767.0F, 0.0F, 0.0F}));
}

TEST(ElevationPicture, SaysWhatItIs)
{
    const TestPixmap<Pixel16> elevation({0, 0, 1, 1}, {Pixel16{}});
    const Math::Box2di frame(0, 0, 1, 1);
    const auto picture =
        NM_elevationOf(*elevation.get(), NM_ElevationChannel::RED, frame, frame, IIO_SampleType::UINT16);
    EXPECT_EQ(picture->metadata().value(QStringLiteral("Layout")), QStringLiteral("elevation"));
}

TEST(ElevationPicture, DepthPixmapsAreRefused)
{
    const Math::Box2di frame(0, 0, 1, 1);
    const CEL_PixmapAreaZ depth({4, 4}, {0, 0, 4, 4});
    for (const auto channel : {NM_ElevationChannel::RED, NM_ElevationChannel::BLUE})
        EXPECT_FALSE(NM_elevationOf(depth, channel, frame, frame, IIO_SampleType::UINT16).ok());
}

} // namespace
