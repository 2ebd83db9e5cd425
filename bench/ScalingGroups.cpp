// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How the whole work scales: with the objects' boxes, with threads, with frames rendered at once. 16-bit, medium
// quality.
#include "BenchScene.h"
#include "Groups.h"

#include <thread>

namespace {

using Scene = BenchScene<CEL_PixelRGBA16>;
constexpr int kMedium = 1;
constexpr int kBevel = 20;

void renderOnOneThread(Scene& scene)
{
    tbb::task_arena arena(1);
    arena.execute([&] { scene.render(kBevel, kMedium); });
}

void addObjects(Group& group, const std::string& prefix, const Lazy<Scene>& one, const Lazy<Scene>& five)
{
    const auto render = [](const Lazy<Scene>& scene, int threads) {
        return [=](benchmark::State& state) {
            Scene& s = *scene;
            timeEach(
                state, threads, [] {}, [&] { s.render(kBevel, kMedium); });
        };
    };
    group.cases.push_back({prefix + "one-object", render(one, 1)});
    group.cases.push_back({prefix + "five-objects", render(five, 1)});
    group.cases.push_back({prefix + "five-objects-two-threads", render(five, 2)});
    group.figures.push_back({prefix + "five-objects : one-object", prefix + "five-objects", prefix + "one-object", 1.25,
                             false, "five objects : one of the same area"});
    // No goal: of the module only the composition runs in parallel. A whole frame, drawing and all, has one.
    group.figures.push_back({prefix + "node alone, one thread : two threads",
                             prefix + "five-objects",
                             prefix + "five-objects-two-threads",
                             Figure::kNoGoal,
                             true,
                             {}});
}

void addFrames(Group& group, const std::string& prefix, const Lazy<Scene>& one, const Lazy<Scene>& other)
{
    group.cases.push_back({prefix + "two-frames-in-turn", [=](benchmark::State& state) {
                               Scene& a = *one;
                               Scene& b = *other;
                               timeEach(state, [&] {
                                   renderOnOneThread(a);
                                   renderOnOneThread(b);
                               });
                           }});
    group.cases.push_back({prefix + "two-frames-at-once", [=](benchmark::State& state) {
                               Scene& a = *one;
                               Scene& b = *other;
                               timeEach(state, [&] {
                                   std::jthread second([&] { renderOnOneThread(b); });
                                   renderOnOneThread(a);
                               });
                           }});
    group.figures.push_back({prefix + "frames in turn : at once", prefix + "two-frames-in-turn",
                             prefix + "two-frames-at-once", 1.8, true, "two frames in turn : at once"});
}

Group scalingGroup(const FrameSize& frame)
{
    const std::string prefix = std::string("scaling/") + frame.name + '/';
    const Lazy<Scene> one([=] { return std::make_shared<Scene>(frame, Scene::Objects::ONE); });
    const Lazy<Scene> other([=] { return std::make_shared<Scene>(frame, Scene::Objects::ONE); });
    const Lazy<Scene> five([=] { return std::make_shared<Scene>(frame, Scene::Objects::FIVE); });
    Group group;
    addObjects(group, prefix, one, five);
    addFrames(group, prefix, one, other);
    return group;
}

} // namespace

GroupMakers scalingGroups()
{
    GroupMakers makers;
    for (const FrameSize& frame : kFrameSizes)
        makers.push_back([&] { return scalingGroup(frame); });
    return makers;
}
