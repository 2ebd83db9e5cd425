// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The stages one by one. The two sides divide the work slightly differently: the node makes the depths together with
// the normals, the peer before.
#include "BenchScene.h"
#include "BlurAlgo/BlurAlgo.h"
#include "Groups.h"
#include "OpenCvPeer.h"
#include "render/CoverageMask.h"
#include "render/CoverageMerge.h"
#include "render/ElevationPlane.h"
#include "render/NormalMap.h"

namespace {

enum PeerStage
{
    MASKED,
    BLURRED,
    CLIPPED,
    WITH_DEPTHS,
    WITH_NORMALS
};

// The input of every stage, on both sides.
template<typename Pixel>
class Stages
{
public:
    using Plane = UT_SharedPtr<CEL_PixmapAreaZ>;

    Stages(const FrameSize& frame, int bevel)
        : scene(frame, BenchScene<Pixel>::Objects::ONE), _job{.bevel = static_cast<double>(bevel)}, _filter(0, 0)
    {
        const double sigma = bevel / 720.0 * frame.width * 0.25;
        BlurAlgo::getGaussianFilter(_filter, sigma, sigma, true);
        mask = makeMask();
        blurred = makeBlurred();
        plane = clipped(copyOf(*blurred));
        makeNormals(LOW_NORMAL_QUALITY);
    }

    static Plane copyOf(const CEL_PixmapAreaZ& plane) { return plane.clone().template dynamicCast<CEL_PixmapAreaZ>(); }

    Plane makeMask() const { return ::makeMask<Pixel>(*scene.accumulators()[0]); }

    Plane makeBlurred() const
    {
        constexpr int kRedAlone = 2;
        return BlurAlgo::blur(*mask, _filter, mask->canvasRect(), kRedAlone, BlurAlgo::PaddingType::TRANSPARENT_PADDING)
            .template dynamicCast<CEL_PixmapAreaZ>();
    }

    ElevationPlane clipped(const Plane& values) const { return roundAndClip<Pixel>(values, mask.get()); }

    void makeNormals(int quality)
    {
        const double rise = 37.5 * scene.canvas().width() / 720.0;
        const ElevationProfile profile(plane.span, 1.0, ElevationProfile::Values::ANY, plane.inside.area());
        auto normals = scene.emptyPixmap();
        buildNormals<Pixel>(BevelSurface(plane, plane.inside, profile, rise), quality, *normals);
        results[1] = normals;
    }

    // Runs the peer up to and including a stage, from the start, because some stages work in place.
    void runPeerThrough(PeerStage stage)
    {
        maskPeer();
        if (stage >= BLURRED)
            peer.blur();
        if (stage >= CLIPPED)
            peer.clipAndFindRange(true);
        if (stage >= WITH_DEPTHS)
            peer.makeDepth(_job);
        if (stage >= WITH_NORMALS)
            peer.makeNormals(LOW_NORMAL_QUALITY);
    }

    void maskPeer()
    {
        peer.makeMask(*scene.accumulators()[0]);
        peer.placeMask(*scene.accumulators()[0], _job);
    }

    void makePeerDepths() { peer.makeDepth(_job); }

    BenchScene<Pixel> scene;
    OpenCvPeer<Pixel> peer;
    Plane mask;
    Plane blurred;
    ElevationPlane plane;
    VallorinRenderHandler::PixmapMap results;
    UT_SharedPtr<CEL_PixmapOf<Pixel>> accumulator; // merging fills it
    Plane scratch;

private:
    PeerJob _job;
    FilterImage _filter;
};

template<typename Pixel>
class StageGroup
{
public:
    StageGroup(const FrameSize& frame, int bevel)
        : _stages([=] { return std::make_shared<Stages<Pixel>>(frame, bevel); })
        , _prefix(std::string("stage/") + frame.name + '/' + formatName<Pixel>() + "/bevel" + std::to_string(bevel) +
                  '/')
    {}

    Group make()
    {
        addFirstStages();
        addElevation();
        for (int quality = 0; quality < 3; ++quality)
            addNormals(quality);
        addComposition();
        return std::move(_group);
    }

private:
    using S = Stages<Pixel>;

    template<typename Prepare, typename Work>
    void add(const std::string& stage, const char* side, const Prepare& prepare, const Work& work)
    {
        _group.cases.push_back({_prefix + stage + '/' + side, [=, stages = _stages](benchmark::State& state) {
                                    S& s = *stages;
                                    timeEach(
                                        state, 1, [&] { prepare(s); }, [&] { work(s); });
                                }});
        const std::string name = _prefix + stage;
        const bool hasPeer = std::string(side) == "opencv";
        if (hasPeer)
            _group.figures.back() = {name + " : OpenCV", name + "/ours", name + "/opencv", Figure::kNoGoal, false, ""};
        else
            _group.figures.push_back({name, name + "/ours", "", Figure::kNoGoal, false, ""});
    }

    void addFirstStages()
    {
        const auto nothing = [](S&) {};
        add(
            "merge", "ours", [](S& s) { s.accumulator = s.scene.emptyPixmap(); },
            [](S& s) { mergeCoverage<Pixel>(*s.accumulator, *s.scene.inputs()[0]); });
        add("mask", "ours", nothing, [](S& s) { s.scratch = s.makeMask(); });
        add("mask", "opencv", nothing, [](S& s) { s.maskPeer(); });
        add("blur", "ours", nothing, [](S& s) { s.scratch = s.makeBlurred(); });
        add(
            "blur", "opencv", [](S& s) { s.runPeerThrough(MASKED); }, [](S& s) { s.peer.blur(); });
    }

    void addElevation()
    {
        add(
            "clip", "ours", [](S& s) { s.scratch = S::copyOf(*s.blurred); }, [](S& s) { s.clipped(s.scratch); });
        add(
            "clip", "opencv", [](S& s) { s.runPeerThrough(BLURRED); }, [](S& s) { s.peer.clipAndFindRange(true); });
    }

    void addNormals(int quality)
    {
        const std::string stage = std::string("normals-") + kQualities[quality];
        add(
            stage, "ours", [](S&) {}, [=](S& s) { s.makeNormals(quality); });
        add(
            stage, "opencv", [](S& s) { s.runPeerThrough(CLIPPED); },
            [=](S& s) {
                s.makePeerDepths();
                s.peer.makeNormals(quality);
                if (quality == HIGH_NORMAL_QUALITY)
                    s.peer.smoothNormals();
            });
    }

    void addComposition()
    {
        add(
            "compose", "ours", [](S&) {}, [](S& s) { s.scene.compose(s.results); });
        add(
            "compose", "opencv", [](S& s) { s.runPeerThrough(WITH_NORMALS); },
            [](S& s) { s.peer.compose(*s.scene.inputs()[0], LOW_NORMAL_QUALITY, s.scene.output()); });
    }

    Lazy<S> _stages;
    std::string _prefix;
    Group _group;
};

} // namespace

GroupMakers stageGroups()
{
    GroupMakers makers;
    for (const FrameSize& frame : kFrameSizes)
        for (const int bevel : kBevels) {
            makers.push_back([&frame, bevel] { return StageGroup<CEL_PixelRGBA16>(frame, bevel).make(); });
            makers.push_back([&frame, bevel] { return StageGroup<CEL_PixelRGBAFloat>(frame, bevel).make(); });
        }
    return makers;
}
