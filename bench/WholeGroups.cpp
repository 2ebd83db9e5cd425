// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The whole work of one object that covers 40 % of the frame.
#include "BenchScene.h"
#include "Groups.h"
#include "OpenCvPeer.h"

#include <cstring>

namespace {

constexpr double kGoalAgainstCopy[] = {4.0, 5.0, 7.0};

template<typename Pixel>
struct Whole
{
    explicit Whole(const FrameSize& frame)
        : scene(frame, BenchScene<Pixel>::Objects::ONE), frameCopy(static_cast<std::size_t>(scene.canvas().area()))
    {}

    BenchScene<Pixel> scene;
    OpenCvPeer<Pixel> peer;
    std::vector<Pixel> frameCopy;
};

template<typename Pixel>
void addBevel(Group& group, const Lazy<Whole<Pixel>>& whole, const std::string& prefix, bool hasGoals, int bevel,
              int quality)
{
    const std::string name = prefix + kQualities[quality] + "/bevel" + std::to_string(bevel);
    group.cases.push_back({name + "/ours", [=](benchmark::State& state) {
                               BenchScene<Pixel>& scene = whole->scene;
                               timeEach(state, [&] { scene.render(bevel, quality); });
                           }});
    group.cases.push_back({name + "/opencv", [=](benchmark::State& state) {
                               BenchScene<Pixel>& scene = whole->scene;
                               const PeerJob job{.bevel = static_cast<double>(bevel), .quality = quality};
                               timeEach(state, [&] {
                                   whole->peer.run(*scene.accumulators()[0], *scene.inputs()[0], job, scene.output());
                               });
                           }});
    const bool is16 = sizeof(Pixel) == 8;
    group.figures.push_back({name + " : OpenCV program", name + "/ours", name + "/opencv",
                             hasGoals ? 0.4 : Figure::kNoGoal, false,
                             std::string("whole, ") + formatName<Pixel>() + " : OpenCV program"});
    if (is16)
        group.figures.push_back({name + " : copy of the frame", name + "/ours", prefix + "copy",
                                 hasGoals ? kGoalAgainstCopy[quality] : Figure::kNoGoal, false,
                                 std::string("whole, int16, ") + kQualities[quality] + " : copy of the frame"});
}

template<typename Pixel>
Group wholeGroup(const FrameSize& frame, bool hasGoals = true)
{
    const Lazy<Whole<Pixel>> whole([=] { return std::make_shared<Whole<Pixel>>(frame); });
    const std::string prefix = std::string("whole/") + frame.name + '/' + formatName<Pixel>() + '/';
    Group group;
    if (sizeof(Pixel) == 8)
        group.cases.push_back({prefix + "copy", [=](benchmark::State& state) {
                                   const Pixel* source = whole->scene.output().row(0).data();
                                   std::vector<Pixel>& target = whole->frameCopy;
                                   timeEach(state, [&] {
                                       std::memcpy(target.data(), source, target.size() * sizeof(Pixel));
                                       benchmark::DoNotOptimize(target.data());
                                   });
                               }});
    for (int quality = 0; quality < 3; ++quality)
        for (const int bevel : kBevels)
            addBevel<Pixel>(group, whole, prefix, hasGoals, bevel, quality);
    return group;
}

} // namespace

GroupMakers wholeGroups()
{
    GroupMakers makers;
    // A third size, for the plot: its frame fits a cache, where a copy is fastest.
    makers.push_back([] { return wholeGroup<CEL_PixelRGBA16>({"720p", 1280, 720}, false); });
    for (const FrameSize& frame : kFrameSizes) {
        makers.push_back([&] { return wholeGroup<CEL_PixelRGBA16>(frame); });
        makers.push_back([&] { return wholeGroup<CEL_PixelRGBAFloat>(frame); });
    }
    return makers;
}
