// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The peer of the benchmarks: the node's work for one object, written as an expert would with OpenCV. It has the same
// inputs, stages and kind of output, and its pictures agree (PeerAgreement.h). OpenCV does what it is good at
// (pyramids, dilation, small filters), fused row loops over planes of floats do the rest, buffers are reused, and every
// stage works only on the rectangle that matters.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <opencv2/core.hpp>

#include <array>
#include <vector>

/// The input of one run of the peer.
struct PeerJob
{
    double bevel = 20.0;    ///< in units of a 720th of the picture's width
    double elevation = 1.0; ///< 1.0 rises 37.5 of these units
    int quality = 0;        ///< 0 four neighbours, 1 eight, 2 eight and smoothed
    bool clip = true;       ///< keep the blur near the geometry
};

/// A Gaussian of any size from OpenCV's calls, as an expert would combine them: halved with pyrDown, a short Gaussian
/// for the remaining variance, and enlarged with pyrUp. Reuses its planes.
class OpenCvPyramid
{
public:
    /// @param source CV_32F; mirrored at its edges, so its margin must be zero to count as zero outside
    /// @param result becomes CV_32F of the same size; not the source
    void blur(const cv::Mat& source, cv::Mat& result, double sigma);

private:
    std::vector<cv::Mat> _levels;
};

/// Makes a normal map from one object's accumulator with OpenCV. Reuses its buffers. Runs on the calling thread. The
/// stages are public so that they can be measured one by one, in the order of their declaration.
template<typename Pixel>
class OpenCvPeer
{
public:
    /// @param accumulator red is the value, alpha the coverage
    /// @param coverage    the input whose alpha is composed into the output
    /// @param output      every pixel of it is written
    void run(const CEL_PixmapOf<Pixel>& accumulator, const CEL_PixmapOf<Pixel>& coverage, const PeerJob& job,
             CEL_PixmapOf<Pixel>& output);

    /// Value times coverage, and the box of the positive values.
    void makeMask(const CEL_PixmapOf<Pixel>& accumulator);
    /// The mask with the margin that the blur needs, and its geometry.
    void placeMask(const CEL_PixmapOf<Pixel>& accumulator, const PeerJob& job);
    void blur();
    /// Sets values without geometry nearby to zero and finds the range of the others, in one pass.
    void clipAndFindRange(bool clip);
    /// Turns the blurred plane into depths, in place.
    void makeDepth(const PeerJob& job);
    /// Writes the normals to planes of their own; run() does so only for the smoothed quality.
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

    Math::Box2di _inner;  // the box of the positive values
    Math::Box2di _padded; // the planes of the blur
    Math::Box2di _work;   // where values can remain
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
