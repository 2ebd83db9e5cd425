// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The blur of one plane of floats as large as the frame.
#include "BenchScene.h"
#include "BlurAlgo/BA_GaussianBlur.h"
#include "Groups.h"
#include "OpenCvPeer.h"

#include <opencv2/imgproc.hpp>

#include <cstring>

namespace {

struct Sigma
{
    const char* name;
    double value;
};

constexpr Sigma kSigmas[] = {{"sigma3.3", 3.3}, {"sigma6.6", 6.6},   {"sigma13.3", 13.3}, {"sigma33", 33.0},
                             {"sigma66", 66.0}, {"sigma133", 133.0}, {"sigma266", 266.0}};
// Small enough that the blur is the short filter alone.
constexpr Sigma kShortSigmas[] = {{"sigma1.3", 1.3}, {"sigma2.7", 2.7}, {"sigma3.2", 3.2}};
// With one, two and several doublings.
constexpr Sigma kStoredSigmas[] = {{"sigma6.6", 6.6}, {"sigma13.3", 13.3}, {"sigma66", 66.0}};
// OpenCV's own Gaussian takes too long for larger sigmas.
constexpr double kLargestForGaussian = 14.0;

struct Planes
{
    explicit Planes(const FrameSize& frame)
        : source(frame.height, frame.width, CV_32F), result(source.clone()), uneven(source.clone())
    {
        BenchScene<CEL_PixelRGBAFloat> scene(frame, BenchScene<CEL_PixelRGBAFloat>::Objects::ONE);
        const auto& object = *scene.accumulators()[0];
        for (int y = 0; y < source.rows; ++y)
            for (int x = 0; x < source.cols; ++x) {
                const CEL_PixelRGBAFloat* pixel = object.find(x, y);
                source.at<float>(y, x) = pixel ? pixel->r * pixel->a : 0.0F;
                // No two neighbours are equal, and none is visibly different.
                uneven.at<float>(y, x) = source.at<float>(y, x) + 1e-6F * static_cast<float>(1 + (x + y) % 3);
            }
    }

    static BA_Plane planeOf(cv::Mat& mat)
    {
        return {mat.ptr<float>(), static_cast<std::ptrdiff_t>(mat.step1()), Math::Box2di(0, 0, mat.cols, mat.rows)};
    }

    cv::Mat source;
    cv::Mat result;
    cv::Mat uneven; ///< the source without parts of one value, so that no shortcut for them is taken
    BA_GaussianBlur ours;
    OpenCvPyramid pyramid;
};

// The blur of one of the planes.
Case oursCase(const std::string& name, const Lazy<Planes>& planes, double sigma, cv::Mat Planes::*plane)
{
    return {name, [=](benchmark::State& state) {
                planes->ours.setSigmas(sigma, sigma);
                const BA_Plane source = Planes::planeOf((*planes).*plane);
                const BA_Plane result = Planes::planeOf(planes->result);
                timeEach(state, [&] { planes->ours.run(source, result); });
            }};
}

// The rows of a plane, as one that reads them takes them or as one that wants them in the cache.
class PlaneRows final : public BA_RowSource, public BA_RowSink
{
public:
    PlaneRows(cv::Mat& mat, bool isReadSoon) : _mat(mat), _isReadSoon(isReadSoon) {}

    const float* row(int y, float*) const override { return _mat.ptr<float>(y); }
    float* begin(int y, float*) override { return _mat.ptr<float>(y); }
    void end(int, const float*) override {}
    bool isReadSoon() const override { return _isReadSoon; }

private:
    cv::Mat& _mat;
    bool _isReadSoon;
};

// What writing past the cache gains where doubling makes the result.
void addStores(Group& group, const Lazy<Planes>& planes, const std::string& prefix, const Sigma& row)
{
    const auto caseOf = [&](const std::string& name, bool isReadSoon) {
        return Case{name, [=, sigma = row.value](benchmark::State& state) {
                        planes->ours.setSigmas(sigma, sigma);
                        const PlaneRows source(planes->source, false);
                        PlaneRows result(planes->result, isReadSoon);
                        const Math::Box2di rect(0, 0, planes->source.cols, planes->source.rows);
                        timeEach(state, [&] { planes->ours.run(source, rect, result, rect); });
                    }};
    };
    const std::string name = prefix + row.name;
    group.cases.push_back(caseOf(name + "/past-cache", false));
    group.cases.push_back(caseOf(name + "/cached", true));
    group.figures.push_back(
        {name + " in the cache : past it", name + "/cached", name + "/past-cache", Figure::kNoGoal, false, ""});
}

// What the short filter, which alone blurs by small sigmas, gains by summing parts of one value only once: it is given
// the same plane without such parts.
void addUneven(Group& group, const Lazy<Planes>& planes, const std::string& prefix, const Sigma& row)
{
    const std::string name = prefix + row.name;
    group.cases.push_back(oursCase(name + "/even", planes, row.value, &Planes::source));
    group.cases.push_back(oursCase(name + "/uneven", planes, row.value, &Planes::uneven));
    group.figures.push_back({name + " without parts of one value : with them", name + "/uneven", name + "/even",
                             Figure::kNoGoal, false, ""});
}

void addSigma(Group& group, const Lazy<Planes>& planes, const std::string& prefix, const Sigma& row)
{
    const double sigma = row.value;
    const std::string name = prefix + row.name;
    group.cases.push_back(oursCase(name + "/ours", planes, sigma, &Planes::source));
    group.cases.push_back({name + "/pyramid", [=](benchmark::State& state) {
                               timeEach(state, [&] { planes->pyramid.blur(planes->source, planes->result, sigma); });
                           }});
    group.figures.push_back({name + " : OpenCV pyramid", name + "/ours", name + "/pyramid", sigma >= 6.0 ? 0.5 : 0.7,
                             false,
                             sigma >= 6.0 ? "blur, sigma >= 6 : OpenCV pyramid" : "blur, sigma 3.3 : OpenCV pyramid"});
    if (sigma >= 6.0)
        group.figures.push_back({name + " : copy of the plane", name + "/ours", prefix + "copy", 4.0, false,
                                 "blur, sigma >= 6 : copy of the plane"});
    if (sigma > kLargestForGaussian)
        return;
    group.cases.push_back({name + "/GaussianBlur", [=](benchmark::State& state) {
                               timeEach(state, [&] {
                                   cv::GaussianBlur(planes->source, planes->result, cv::Size(), sigma, sigma,
                                                    cv::BORDER_CONSTANT);
                               });
                           }});
    group.figures.push_back(
        {name + " : OpenCV GaussianBlur", name + "/ours", name + "/GaussianBlur", Figure::kNoGoal, false, ""});
}

Group blurGroup(const FrameSize& frame)
{
    const Lazy<Planes> planes([=] { return std::make_shared<Planes>(frame); });
    const std::string prefix = std::string("blur/") + frame.name + '/';
    Group group;
    group.cases.push_back({prefix + "copy", [=](benchmark::State& state) {
                               const std::size_t bytes = planes->source.total() * planes->source.elemSize();
                               timeEach(state, [&] {
                                   std::memcpy(planes->result.data, planes->source.data, bytes);
                                   benchmark::DoNotOptimize(planes->result.data);
                               });
                           }});
    for (const Sigma& sigma : kSigmas)
        addSigma(group, planes, prefix, sigma);
    for (const Sigma& sigma : kShortSigmas)
        addUneven(group, planes, prefix, sigma);
    for (const Sigma& sigma : kStoredSigmas)
        addStores(group, planes, prefix, sigma);
    const std::string reference = prefix + kSigmas[1].name + "/ours";
    for (const Sigma& sigma : kSigmas)
        if (sigma.value > kSigmas[1].value)
            group.figures.push_back({prefix + sigma.name + " : " + kSigmas[1].name, prefix + sigma.name + "/ours",
                                     reference, 1.25, false, "blur, any sigma : sigma6.6"});
    return group;
}

} // namespace

GroupMakers blurGroups()
{
    GroupMakers makers;
    for (const FrameSize& frame : kFrameSizes)
        makers.push_back([&] { return blurGroup(frame); });
    return makers;
}
