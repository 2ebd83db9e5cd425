// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The peer's stages, in their order. Inner loops have no branches, so that the compiler can vectorise them.
#include "OpenCvPeer.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMargin = 2;

void addRowBounds(const float* row, int width, int y, Math::Box2di& bounds)
{
    const float* end = row + width;
    const float* first = std::find_if(row, end, [](float v) { return v > 0.0F; });
    if (first == end)
        return;
    const float* last = end;
    while (!(last[-1] > 0.0F))
        --last;
    bounds.add(Math::Box2di(static_cast<int>(first - row), y, static_cast<int>(last - row), y + 1));
}

cv::Rect rectIn(const Math::Box2di& box, const Math::Box2di& frame)
{
    return {box.x1 - frame.x1, box.y1 - frame.y1, box.width(), box.height()};
}

} // namespace

// Each step down or up at level i adds a variance of 4^i pixels: the variance of (1 4 6 4 1) / 16, with which pyrDown
// averages, and of (1 4 6 4 1) / 8, the cubic B-spline, with which pyrUp spreads.
void OpenCvPyramid::blur(const cv::Mat& source, cv::Mat& result, double sigma)
{
    std::size_t halvings = 0;
    double left = sigma * sigma;
    while ((left - 2.0) / 4.0 >= 9.0) {
        left = (left - 2.0) / 4.0;
        ++halvings;
    }
    const double rest = std::sqrt(left);
    if (halvings == 0) {
        cv::GaussianBlur(source, result, cv::Size(), rest, rest, cv::BORDER_REFLECT_101);
        return;
    }
    if (_levels.size() < halvings + 1)
        _levels.resize(halvings + 1);
    for (std::size_t i = 1; i <= halvings; ++i)
        cv::pyrDown(i == 1 ? source : _levels[i - 1], _levels[i], cv::Size(), cv::BORDER_REFLECT_101);
    cv::GaussianBlur(_levels[halvings], _levels[halvings], cv::Size(), rest, rest, cv::BORDER_REFLECT_101);
    for (std::size_t i = halvings; i > 1; --i)
        cv::pyrUp(_levels[i], _levels[i - 1], _levels[i - 1].size());
    cv::pyrUp(_levels[1], result, source.size());
}

template<typename Pixel>
void OpenCvPeer<Pixel>::makeMask(const CEL_PixmapOf<Pixel>& accumulator)
{
    constexpr float kScale = 1.0F / static_cast<float>(CEL_PixelTraits<Pixel>::kFull);
    const Math::Box2di rect = accumulator.allocatedRect();
    _mask.create(rect.height(), rect.width(), CV_32F);
    Math::Box2di bounds;
    for (int y = 0; y < _mask.rows; ++y) {
        const auto source = accumulator.row(rect.y1 + y);
        float* target = _mask.ptr<float>(y);
        for (std::size_t x = 0; x < source.size(); ++x)
            target[x] = static_cast<float>(source[x].r) * (static_cast<float>(source[x].a) * kScale);
        addRowBounds(target, _mask.cols, y, bounds);
    }
    _inner = Math::Box2di(bounds.x1 + rect.x1, bounds.y1 + rect.y1, bounds.x2 + rect.x1, bounds.y2 + rect.y1);
}

// The blur mirrors at the plane's edge. Where the result is clipped to the geometry, an edge 2 sigma away from it
// suffices, since its mirrored geometry is at least 4 sigma away.
template<typename Pixel>
void OpenCvPeer<Pixel>::placeMask(const CEL_PixmapOf<Pixel>& accumulator, const PeerJob& job)
{
    _canvasWidth = accumulator.canvasRect().width();
    _sigma = job.bevel / 720.0 * _canvasWidth * 0.25;
    const int room = static_cast<int>(std::ceil((job.clip ? 2.0 : 4.0) * _sigma)) + kMargin + 1;
    _padded = _inner.getEnlarged(room);
    _work = (job.clip ? _inner.getEnlarged(kMargin) : _padded).getIntersection(accumulator.canvasRect());
    const cv::Mat inner = _mask(rectIn(_inner, accumulator.allocatedRect()));
    cv::copyMakeBorder(inner, _source, room, room, room, room, cv::BORDER_CONSTANT, cv::Scalar::all(0.0));
}

template<typename Pixel>
void OpenCvPeer<Pixel>::blur()
{
    _pyramid.blur(_source, _plane, _sigma);
    _workPlane = _plane(rectIn(_work, _padded));
}

template<typename Pixel>
void OpenCvPeer<Pixel>::clipAndFindRange(bool clip)
{
    if (clip) {
        constexpr int kSize = 2 * kMargin + 1;
        cv::compare(_source(rectIn(_work, _padded)), cv::Scalar::all(0.0), _geometry, cv::CMP_GT);
        cv::dilate(_geometry, _near, cv::Mat::ones(kSize, kSize, CV_8U));
    }
    float low = 32767.0F;
    float high = -32767.0F;
    for (int y = 0; y < _workPlane.rows; ++y) {
        float* row = _workPlane.ptr<float>(y);
        if (clip) {
            const uchar* near = _near.ptr<uchar>(y);
            for (int x = 0; x < _workPlane.cols; ++x)
                row[x] = near[x] != 0 ? row[x] : 0.0F;
        }
        for (int x = 0; x < _workPlane.cols; ++x) {
            low = std::min(low, row[x] > 0.0F ? row[x] : 32767.0F);
            high = std::max(high, row[x]);
        }
    }
    _low = low;
    _high = high;
}

template<typename Pixel>
void OpenCvPeer<Pixel>::makeDepth(const PeerJob& job)
{
    const auto rise = static_cast<float>(job.elevation * 37.5 * _canvasWidth / 720.0);
    const float scale = _high > _low ? rise / (_high - _low) : rise;
    const float low = _low;
    for (int y = 0; y < _workPlane.rows; ++y) {
        float* row = _workPlane.ptr<float>(y);
        for (int x = 0; x < _workPlane.cols; ++x)
            row[x] = row[x] > 0.0F ? (row[x] - low) * scale : 0.0F;
    }
}

// A pixel that lacks one of its four neighbours faces the viewer; one without depth has no normal.
template<typename Pixel>
void OpenCvPeer<Pixel>::normalRow(int y, int quality, const NormalRows& rows) const
{
    const int width = _workPlane.cols;
    const float* here = _workPlane.ptr<float>(y);
    const float* up = _workPlane.ptr<float>(std::max(y - 1, 0));
    const float* down = _workPlane.ptr<float>(std::min(y + 1, _workPlane.rows - 1));
    const bool inside = y > 0 && y < _workPlane.rows - 1;
    for (int x = 0; x < width; x += inside ? std::max(width - 1, 1) : 1) {
        rows.x[x] = rows.y[x] = 0.0F;
        rows.z[x] = here[x] != 0.0F ? 1.0F : 0.0F;
    }
    if (!inside)
        return;
    float* __restrict nx = rows.x;
    float* __restrict ny = rows.y;
    float* __restrict nz = rows.z;
    for (int x = 1; x < width - 1; ++x) {
        const bool axes = (here[x - 1] != 0.0F) & (here[x + 1] != 0.0F) & (up[x] != 0.0F) & (down[x] != 0.0F);
        const float dx = axes ? here[x - 1] - here[x + 1] : 0.0F;
        const float dy = axes ? up[x] - down[x] : 0.0F;
        const float inverse = here[x] != 0.0F ? 1.0F / std::sqrt(dx * dx + dy * dy + 4.0F) : 0.0F;
        nx[x] = dx * inverse;
        ny[x] = dy * inverse;
        nz[x] = 2.0F * inverse;
    }
    if (quality == 0)
        return;
    for (int x = 1; x < width - 1; ++x) {
        const bool axes = (here[x - 1] != 0.0F) & (here[x + 1] != 0.0F) & (up[x] != 0.0F) & (down[x] != 0.0F);
        const bool diagonals =
            axes & (up[x - 1] != 0.0F) & (up[x + 1] != 0.0F) & (down[x - 1] != 0.0F) & (down[x + 1] != 0.0F);
        const float falling = down[x + 1] - up[x - 1];
        const float rising = down[x - 1] - up[x + 1];
        const float dx = rising - falling;
        const float dy = -(rising + falling);
        const float inverse = diagonals & (here[x] != 0.0F) ? 1.0F / std::sqrt(dx * dx + dy * dy + 16.0F) : 0.0F;
        const float sumX = nx[x] + dx * inverse;
        const float sumY = ny[x] + dy * inverse;
        const float sumZ = nz[x] + 4.0F * inverse;
        const float size = std::sqrt(sumX * sumX + sumY * sumY + sumZ * sumZ);
        const float unit = 1.0F / (size > 0.0F ? size : 1.0F);
        nx[x] = sumX * unit;
        ny[x] = sumY * unit;
        nz[x] = sumZ * unit;
    }
}

template<typename Pixel>
void OpenCvPeer<Pixel>::makeNormals(int quality)
{
    for (cv::Mat& plane : _normals)
        plane.create(_workPlane.size(), CV_32F);
    for (int y = 0; y < _workPlane.rows; ++y)
        normalRow(y, quality, {_normals[0].ptr<float>(y), _normals[1].ptr<float>(y), _normals[2].ptr<float>(y)});
}

template<typename Pixel>
void OpenCvPeer<Pixel>::smoothNormals()
{
    static const cv::Mat kWeights = (cv::Mat_<float>(1, 3) << 0.25F, 0.5F, 0.25F);
    for (std::size_t i = 0; i < _normals.size(); ++i)
        cv::sepFilter2D(_normals[i], _smoothed[i], CV_32F, kWeights, kWeights, cv::Point(-1, -1), 0.0,
                        cv::BORDER_CONSTANT);
}

template<typename Pixel>
void OpenCvPeer<Pixel>::composeRow(int y, const CEL_PixmapOf<Pixel>& coverage, const NormalRows& rows, bool normalise,
                                   CEL_PixmapOf<Pixel>& output) const
{
    using Channel = typename CEL_PixelTraits<Pixel>::Channel;
    constexpr auto kHalf = static_cast<float>(CEL_PixelTraits<Pixel>::kFull) * 0.5F;
    constexpr auto kObject = static_cast<Channel>(sizeof(Channel) == 2 ? 1 : 0);
    const Math::Box2di common = _work.getIntersection(coverage.allocatedRect()).getIntersection(output.allocatedRect());
    const int count = common.width();
    const int skipped = common.x1 - _work.x1;
    float* nx = rows.x + skipped;
    float* ny = rows.y + skipped;
    const float* nz = rows.z + skipped;
    if (normalise)
        for (int x = 0; x < count; ++x) {
            const float size = std::sqrt(nx[x] * nx[x] + ny[x] * ny[x] + nz[x] * nz[x]);
            const float unit = 1.0F / (size > 0.0F ? size : 1.0F);
            nx[x] *= unit;
            ny[x] *= unit;
        }
    const Pixel* alpha = coverage.row(y).data() + (common.x1 - coverage.allocatedRect().x1);
    Pixel* __restrict target = output.row(y).data() + (common.x1 - output.allocatedRect().x1);
    for (int x = 0; x < count; ++x) {
        const Channel a = alpha[x].a;
        const Pixel normal{static_cast<Channel>((nx[x] + 1.0F) * kHalf), static_cast<Channel>((ny[x] + 1.0F) * kHalf),
                           kObject, a};
        target[x] = a > 0 ? normal : Pixel{};
    }
}

template<typename Pixel>
void OpenCvPeer<Pixel>::compose(const CEL_PixmapOf<Pixel>& coverage, int quality, CEL_PixmapOf<Pixel>& output)
{
    const bool smoothed = quality == 2;
    std::array<cv::Mat, 3>& planes = smoothed ? _smoothed : _normals;
    const Math::Box2di rect = output.allocatedRect();
    const Math::Box2di rows = _work.getIntersection(coverage.allocatedRect());
    for (int y = rect.y1; y < rect.y2; ++y) {
        std::ranges::fill(output.row(y), Pixel{});
        const int i = y - _work.y1;
        if (y >= rows.y1 && y < rows.y2)
            composeRow(y, coverage, {planes[0].ptr<float>(i), planes[1].ptr<float>(i), planes[2].ptr<float>(i)},
                       smoothed, output);
    }
}

// Without smoothing, a row of normals is composed while it is in the first-level cache.
template<typename Pixel>
void OpenCvPeer<Pixel>::composeFused(const CEL_PixmapOf<Pixel>& coverage, int quality, CEL_PixmapOf<Pixel>& output)
{
    for (cv::Mat& plane : _normals)
        plane.create(1, _workPlane.cols, CV_32F);
    const NormalRows normals{_normals[0].ptr<float>(0), _normals[1].ptr<float>(0), _normals[2].ptr<float>(0)};
    const Math::Box2di rect = output.allocatedRect();
    const Math::Box2di rows = _work.getIntersection(coverage.allocatedRect());
    for (int y = rect.y1; y < rect.y2; ++y) {
        std::ranges::fill(output.row(y), Pixel{});
        if (y < rows.y1 || y >= rows.y2)
            continue;
        normalRow(y - _work.y1, quality, normals);
        composeRow(y, coverage, normals, false, output);
    }
}

template<typename Pixel>
void OpenCvPeer<Pixel>::run(const CEL_PixmapOf<Pixel>& accumulator, const CEL_PixmapOf<Pixel>& coverage,
                            const PeerJob& job, CEL_PixmapOf<Pixel>& output)
{
    makeMask(accumulator);
    placeMask(accumulator, job);
    blur();
    clipAndFindRange(job.clip);
    makeDepth(job);
    if (job.quality == 2) {
        makeNormals(job.quality);
        smoothNormals();
        compose(coverage, job.quality, output);
    } else {
        composeFused(coverage, job.quality, output);
    }
}

template class OpenCvPeer<CEL_PixelRGBA16>;
template class OpenCvPeer<CEL_PixelRGBAFloat>;
