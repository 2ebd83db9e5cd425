// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How the whole work scales: with the objects' boxes, with threads, with frames rendered at once. 16-bit, medium
// quality.
#include "BenchScene.h"
#include "Groups.h"

#include <array>
#include <cstring>
#include <thread>
#include <vector>

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
    group.figures.push_back({prefix + "five-objects : one-object", prefix + "five-objects", prefix + "one-object", 1.15,
                             false, "five objects : one of the same area"});
    // No goal: only the composition of the module runs in parallel. A whole frame, with its drawings, has a goal
    // (CommandGroups.cpp).
    group.figures.push_back({prefix + "node alone, one thread : two threads",
                             prefix + "five-objects",
                             prefix + "five-objects-two-threads",
                             Figure::kNoGoal,
                             true,
                             {}});
}

// The same work twice, sequentially and in parallel; work(0) and work(1) share nothing.
template<typename Work>
void addPair(Group& group, const std::string& prefix, const std::string& name, const Work& work, double goal,
             const std::string& kind)
{
    const std::string turns = prefix + "two " + name + " in turn";
    const std::string sides = prefix + "two " + name + " at once";
    const auto inTurn = [=] {
        work(0);
        work(1);
    };
    const auto atOnce = [=] {
        std::jthread second([&] { work(1); });
        work(0);
    };
    group.cases.push_back({turns, [=](benchmark::State& state) { timeEach(state, inTurn); }});
    group.cases.push_back({sides, [=](benchmark::State& state) {
                               // Lazy values are made here, before two threads ask for them.
                               inTurn();
                               timeEach(state, atOnce);
                           }});
    group.figures.push_back({prefix + name + " in turn : at once", turns, sides, goal, true, kind});
}

void addFrames(Group& group, const std::string& prefix, const Lazy<Scene>& one, const Lazy<Scene>& other)
{
    const auto render = [=](int which) { renderOnOneThread(which == 0 ? *one : *other); };
    addPair(group, prefix, "frames", render, 1.8, "two frames in turn : at once");
    // Shows how much of the memory's bandwidth two threads get.
    const Lazy<std::array<std::vector<CEL_PixelRGBA16>, 2>> copies([=] {
        const auto pixels = static_cast<std::size_t>(one->canvas().area());
        return std::make_shared<std::array<std::vector<CEL_PixelRGBA16>, 2>>(
            std::array{std::vector<CEL_PixelRGBA16>(pixels), std::vector<CEL_PixelRGBA16>(pixels)});
    });
    const auto copy = [=](int which) {
        std::vector<CEL_PixelRGBA16>& target = (*copies)[static_cast<std::size_t>(which)];
        Scene& source = which == 0 ? *one : *other;
        std::memcpy(target.data(), source.output().row(0).data(), target.size() * sizeof(CEL_PixelRGBA16));
        benchmark::DoNotOptimize(target.data());
    };
    addPair(group, prefix, "copies of a frame", copy, Figure::kNoGoal, {});
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
