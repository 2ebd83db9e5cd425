// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Animations from other authors: every one can be imported and rendered with the plug-in, and the normal map has the
// coverage of the animation.
#include "Files.h"

#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"

#include <QDirIterator>

#include <random>

using namespace files;

namespace {

constexpr int kSize = 128;
constexpr int kAtLeast = 70;

// In a fixed order.
QStringList realAnimations()
{
    QStringList found;
    QDirIterator all(QStringLiteral(REAL_ANIMATIONS), {QStringLiteral("*.json")}, QDir::Files,
                     QDirIterator::Subdirectories);
    while (all.hasNext())
        found.append(all.next());
    found.sort();
    return found;
}

#define NEED_ANIMATIONS(animations)                                                                                    \
    if (animations.isEmpty())                                                                                          \
    GTEST_SKIP() << "the animations are missing: ./dev test fetches them with npm"

UT_SharedPtr<CEL_PixmapAreaRGBA16> render(MO_Module& module, int frame)
{
    const RD_RenderParameters parameters{RD_RenderParameters::IMAGE_PROCESSING_16BIT, {kSize, kSize}};
    const auto cel = RD_SoftRenderer::render(module, frame, parameters);
    EXPECT_TRUE(cel) << cel.error().text.toStdString();
    return cel ? (*cel)->pixmap().dynamicCast<CEL_PixmapAreaRGBA16>() : nullptr;
}

struct Compared
{
    int largestDifference = 0;
    int covered = 0; // pixels
};

Compared compareCoverage(const CEL_PixmapAreaRGBA16& node, const CEL_PixmapAreaRGBA16& drawing)
{
    Compared compared;
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            const CEL_PixelRGBA16* of = node.find(x, y);
            const CEL_PixelRGBA16* wanted = drawing.find(x, y);
            const int alpha = wanted ? wanted->a : 0;
            compared.covered += alpha > 0 ? 1 : 0;
            compared.largestDifference = std::max(compared.largestDifference, std::abs((of ? of->a : 0) - alpha));
        }
    return compared;
}

class RealAnimation : public testing::TestWithParam<int>
{};

constexpr int kShares = 4;

} // namespace

TEST_P(RealAnimation, IsImportedAndRenders)
{
    const QStringList animations = realAnimations();
    NEED_ANIMATIONS(animations);
    ASSERT_GE(animations.size(), kAtLeast);
    for (qsizetype i = GetParam(); i < animations.size(); i += kShares) {
        SCOPED_TRACE(animations[i].toStdString());
        const auto imported = importDrawings({animations[i]}, {});
        ASSERT_TRUE(imported) << imported.error().text.toStdString();
        const MO_Scene& scene = *imported->scene;
        int covered = 0;
        for (const int frame : {scene.firstFrame(), (scene.firstFrame() + scene.lastFrame()) / 2, scene.lastFrame()}) {
            const auto node = render(*scene.outputModule(), frame);
            const auto drawing = render(*scene.findModule("Drawing"), frame);
            ASSERT_TRUE(node && drawing) << frame;
            const Compared compared = compareCoverage(*node, *drawing);
            // A coverage of 0.99 or more counts as full, and every object on top rounds down once.
            EXPECT_LE(compared.largestDifference, 328 + 2 * static_cast<int>(scene.root().modules().size())) << frame;
            covered += compared.covered;
        }
        EXPECT_GT(covered, 0) << "something is to be seen at one of the frames";
    }
}

INSTANTIATE_TEST_SUITE_P(Shares, RealAnimation, testing::Range(0, kShares));

TEST(RealAnimations, TruncatedAtEveryTenthByteOrWithBytesFlippedCostAMessage)
{
    const QStringList animations = realAnimations();
    NEED_ANIMATIONS(animations);
    QFile file(animations[animations.size() / 2]);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    const Folder folder;
    const auto read = [&](const QByteArray& bytes) {
        const QString path = folder.write("a.json", bytes);
        const std::string message = refusal({path});
        EXPECT_TRUE(message.empty() || message.find(path.toStdString()) != std::string::npos) << message;
        return message;
    };
    ASSERT_EQ(read(whole), "");
    for (qsizetype size = 0; size < whole.size() - 1; size += 10)
        ASSERT_NE(read(whole.left(size)), "") << size;
    // Replaces digits by digits and names by names, so that the JSON stays valid and the library has to handle the
    // damage.
    std::mt19937 random(42);
    std::uniform_int_distribution<qsizetype> anywhere(0, whole.size() - 1);
    for (int i = 0; i < 400; ++i) {
        QByteArray damaged = whole;
        for (int flips = 0; flips <= i % 8; ++flips) {
            const qsizetype at = anywhere(random);
            damaged[at] = static_cast<char>(damaged[at] ^ (1U << (random() % 4)));
        }
        read(damaged);
    }
}
