// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The peer of the benchmarks: the work of the node for one object, written the way an expert would with OpenCV. Same
// inputs, same stages, same kind of output, pictures that agree (PeerAgreement.h); OpenCV does what it is good at
// (pyramids, dilation, small filters), fused row loops over planes of floats do the rest, buffers are kept, and no
// stage leaves the rectangle that matters to it.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <opencv2/core.hpp>

#include <array>
#include <vector>

/// What one run of the peer works on.
struct PeerJob
{
    double bevel = 20.0;    ///< in units of which the picture is 720 wide
    double elevation = 1.0; ///< 1.0 rises 37.5 of these units
    int quality = 0;        ///< 0 four neighbours, 1 eight, 2 eight and smoothed
    bool clip = true;       ///< keep the blur near the geometry
};

/// A Gaussian of any size as an expert makes it out of OpenCV's calls: halved with pyrDown, a short Gaussian for what
/// is left, and back up with pyrUp. Keeps its planes from call to call.
class OpenCvPyramid
{
public:
    /// @param source CV_32F; mirrored at its edges, so it has to be zero there to count as zero beyond
    /// @param result becomes CV_32F of the same size; not the source
    void blur(const cv::Mat& source, cv::Mat& result, double sigma);

private:
    std::vector<cv::Mat> _levels;
};

/// Makes a normal map from one object's accumulator with OpenCV. Keeps its buffers from run to run. Runs on the calling
/// thread. The stages are public to be measured one by one, in the order of their declaration.
template<typename Pixel>
class OpenCvPeer
{
public:
    /// @param accumulator red is the value, alpha the coverage
    /// @param coverage    the input whose alpha the output is composed with
    /// @param output      every pixel of it is written
    void run(const CEL_PixmapOf<Pixel>& accumulator, const CEL_PixmapOf<Pixel>& coverage, const PeerJob& job,
             CEL_PixmapOf<Pixel>& output);

    /// Value times coverage, and the box of what is positive.
    void makeMask(const CEL_PixmapOf<Pixel>& accumulator);
    /// The mask with the room around it that the blur needs, and its geometry.
    void placeMask(const CEL_PixmapOf<Pixel>& accumulator, const PeerJob& job);
    void blur();
    /// Zero where no geometry is near, and the range of what remains, in one pass.
    void clipAndFindRange(bool clip);
    /// Turns the blurred plane into depths, in its place.
    void makeDepth(const PeerJob& job);
    /// Normals into planes of their own; run() uses these for the smoothed quality only.
    void makeNormals(int quality);
    void smoothNormals();
    /// Composes from the planes of normals.
    void compose(const CEL_PixmapOf<Pixel>& coverage, int quality, CEL_PixmapOf<Pixel>& output);

private:
    struct NormalRows
    {
        float* x;
        float* y;
        float* z;
    };

    void normalRow(int y, int quality, const NormalRows& rows) const;
    void composeRow(int y, const CEL_PixmapOf<Pixel>& coverage, const NormalRows& rows, bool normalise,
                    CEL_PixmapOf<Pixel>& output) const;
    void composeFused(const CEL_PixmapOf<Pixel>& coverage, int quality, CEL_PixmapOf<Pixel>& output);

    Math::Box2di _inner;  // what is positive
    Math::Box2di _padded; // the planes of the blur
    Math::Box2di _work;   // where something can remain
    double _canvasWidth = 0.0;
    double _sigma = 0.0;
    float _low = 0.0F;
    float _high = 0.0F;
    cv::Mat _mask;
    cv::Mat _source;
    cv::Mat _plane;
    cv::Mat _geometry;
    cv::Mat _near;
    cv::Mat _workPlane; // the part of _plane that is _work
    std::array<cv::Mat, 3> _normals;
    std::array<cv::Mat, 3> _smoothed;
    OpenCvPyramid _pyramid;
};
