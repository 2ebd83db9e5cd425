// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Playing in the window: frames whose pictures take long are seen all the same.
#include "Apps/studio/window/WindowTesting.h"

#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "studio/docks/timeline/Playback.h"
#include "studio/docks/timeline/TimelineView.h"

#include <QElapsedTimer>

#include <set>

namespace {

class PlayingTest : public studio_testing::WindowTest
{};

TEST_F(PlayingTest, LeavesAFrameWhenItIsSeenOrHalfASecondHasPassed)
{
    openDisc();
    ASSERT_TRUE(document().execute(MO_frameRangeCmd(document().scene(), 1, 24)));
    RenderService& renders = window->renderService();
    std::set<int> seen{document().currentFrame()};
    QObject::connect(&renders, &RenderService::frameChanged, window.get(), [&] {
        if (renders.current())
            seen.insert(renders.current()->frame);
    });
    QElapsedTimer sinceChange;
    int left = document().currentFrame();
    int changes = 0;
    QObject::connect(&document(), &StudioDocument::currentFrameChanged, window.get(), [&](int frame) {
        // The timer here starts a little after the one that decides.
        constexpr int kLater = 100;
        EXPECT_TRUE(seen.contains(left) || sinceChange.hasExpired(Playback::kLongestWait.count() - kLater))
            << "frame " << left;
        seen.erase(frame);
        left = frame;
        ++changes;
        sinceChange.start();
    });
    // A quick picture of this size takes longer than a frame is shown.
    renders.setLongestSide(8192);
    sinceChange.start();
    Playback& playback = window->findChild<TimelineView*>()->playback();
    playback.start();
    EXPECT_TRUE(studio_testing::waitUntil([&] { return changes >= 8; }));
    playback.stop();
    renders.setLongestSide(kSide);
}

} // namespace
