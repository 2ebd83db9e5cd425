// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// BlurAlgo: Gaussian blurs of pixmaps. BA_GaussianBlur.h states how exact they are.
#pragma once

#include "BlurAlgo/BlurAlgoExport.h"
#include "BlurAlgo/FilterImage.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"

namespace BlurAlgo {

/// What a blur takes for the pixels outside its input.
enum PaddingType : int
{
    TRANSPARENT_PADDING = 0 ///< zero in all channels
};

/// Fills a filter with a Gaussian; see FilterImage::setGaussian().
///
/// @param filter    the filter to be filled, whatever it was before
/// @param sx, sy    standard deviations in pixels
/// @param normalise true: the weights sum to 1; false: the largest weight is 1
BLURALGO_EXPORT void getGaussianFilter(FilterImage& filter, double sx, double sy, bool normalise);

/// Blurs a pixmap.
///
/// The result is a new pixmap of the input's format, size and canvas. Its allocated rectangle is the input's, grown by
/// ceil(4 s) on the left and right for the filter's s in x, and above and below for that in y, but by no more than four
/// diagonals of canvasRect (of the input's own canvas when that is empty). An input without pixels gives a result
/// without pixels.
///
/// A depth pixmap holds intermediate values that are not displayed, so its result is clipped to canvasRect (to its own
/// canvas when that is empty), and the blur costs as little as that of one plane. Its values are blurred unchanged,
/// black ones as zero; channels is ignored.
///
/// Values of 16-bit channels are blurred as integers, rounded to the nearest one, halves away from zero,
/// and clamped to [-32767, 32767]. Whatever lies outside the input counts as zero in its blurred channels.
///
/// Calls may be made from any number of threads at once; each uses the threads of the TBB arena that it is made in. The
/// result does not depend on how many these are.
///
/// @param input      an RGBA pixmap of 16 bits or of floats, or a depth pixmap
/// @param filter     the filter; the gain of one that is not normalised multiplies the blurred values
/// @param canvasRect the rectangle of the picture that the blur belongs to
/// @param channels   which channels are blurred.
///                   0: all four channels.
///                   1: alpha alone; red, green and blue are the input's, and zero outside it.
///                   2: red alone; green and blue are zero, alpha is full (32767 or 1.0) where the resulting red is not
///                   zero, and zero elsewhere
/// @param padding    what lies outside the input
/// @return null for another format, another number in channels, or a rectangle beyond
/// +-BA_GaussianBlur::kLargestCoordinate
/// @throws std::bad_alloc when there is no memory for it
BLURALGO_EXPORT UT_SharedPtr<CEL_PixmapArea> blur(const CEL_PixmapArea& input, const FilterImage& filter,
                                                  const Math::Box2di& canvasRect, int channels, PaddingType padding);

} // namespace BlurAlgo
