// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writes the trees, depth first. The reader at the other end checks everything; here only those errors are checked that
// would make this process read invalid memory.
#include "StreamWriter.h"

#include <bit>
#include <cstring>

using namespace DIO_LottieStream;

namespace {

// Deeper than any animation; the other end also refuses deeper ones.
constexpr int kMaxDepth = 64;

constexpr std::size_t kMaxNameLength = 1000;

std::size_t coordinatesOf(const char* elements, std::size_t count)
{
    std::size_t coordinates = 0;
    for (std::size_t i = 0; i < count; ++i)
        coordinates += elements[i] == CUBIC_TO ? 6 : elements[i] == CLOSE ? 0 : 2;
    return coordinates;
}

} // namespace

void StreamWriter::u32(std::size_t value)
{
    for (unsigned shift = 0; shift < 32; shift += 8)
        byte(static_cast<unsigned>(value >> shift));
}

void StreamWriter::f32(float value)
{
    u32(std::bit_cast<std::uint32_t>(value));
}

void StreamWriter::f64(double value)
{
    const auto bits = std::bit_cast<std::uint64_t>(value);
    u32(static_cast<std::uint32_t>(bits));
    u32(static_cast<std::uint32_t>(bits >> 32));
}

void StreamWriter::text(const char* value)
{
    const std::size_t length = value ? strnlen(value, kMaxNameLength) : 0;
    u32(length);
    std::fwrite(value ? value : "", 1, length, _out);
}

void StreamWriter::path(const float* coordinates, std::size_t count, const char* elements, std::size_t elementCount)
{
    if (!coordinates || !elements)
        count = elementCount = 0;
    // Most paths give the number of their coordinates, but those of masks give the number of their points.
    const std::size_t needed = elements ? coordinatesOf(elements, elementCount) : 0;
    if (needed == 2 * count)
        count = needed;
    u32(elementCount);
    std::fwrite(elements ? elements : "", 1, elementCount, _out);
    u32(count);
    for (std::size_t i = 0; i < count; ++i)
        f32(coordinates[i]);
}

void StreamWriter::writeHeader(double width, double height, double frameRate, std::uint32_t frames)
{
    std::fwrite(kMagic.data(), 1, kMagic.size(), _out);
    f64(width);
    f64(height);
    f64(frameRate);
    u32(frames);
}

void StreamWriter::writeFrame(const LOTLayerNode& root)
{
    byte(FRAME);
    layer(root, 0);
}

void StreamWriter::writeEnd()
{
    byte(END);
    std::fflush(_out);
}

void StreamWriter::emptyLayerContents()
{
    path(nullptr, 0, nullptr, 0);
    u32(0);
    u32(0);
    u32(0);
}

void StreamWriter::layer(const LOTLayerNode& node, int depth)
{
    const bool visible = node.mVisible != 0 && depth < kMaxDepth;
    text(node.keypath);
    byte(node.mMatte);
    byte(visible ? 1 : 0);
    byte(node.mAlpha);
    if (!visible) {
        emptyLayerContents();
        return;
    }
    path(node.mClipPath.ptPtr, node.mClipPath.ptCount, node.mClipPath.elmPtr, node.mClipPath.elmCount);
    u32(node.mMaskList.size);
    for (std::size_t i = 0; i < node.mMaskList.size; ++i) {
        const LOTMask& mask = node.mMaskList.ptr[i];
        byte(mask.mMode);
        byte(mask.mAlpha);
        path(mask.mPath.ptPtr, mask.mPath.ptCount, mask.mPath.elmPtr, mask.mPath.elmCount);
    }
    u32(node.mNodeList.size);
    for (std::size_t i = 0; i < node.mNodeList.size; ++i)
        this->node(*node.mNodeList.ptr[i]);
    u32(node.mLayerList.size);
    for (std::size_t i = 0; i < node.mLayerList.size; ++i)
        layer(*node.mLayerList.ptr[i], depth + 1);
}

void StreamWriter::node(const LOTNode& node)
{
    const bool isPicture = node.mImageInfo.data != nullptr;
    const bool isGradient = !isPicture && node.mBrushType == BrushGradient;
    byte(isPicture ? PICTURE_BRUSH : isGradient ? GRADIENT_BRUSH : SOLID_BRUSH);
    byte(node.mFillRule);
    byte(node.mColor.r);
    byte(node.mColor.g);
    byte(node.mColor.b);
    byte(node.mColor.a);
    byte(node.mStroke.enable);
    f32(node.mStroke.width);
    byte(node.mStroke.cap);
    byte(node.mStroke.join);
    f32(node.mStroke.miterLimit);
    gradientStops(node, isGradient);
    path(node.mPath.ptPtr, node.mPath.ptCount, node.mPath.elmPtr, node.mPath.elmCount);
}

void StreamWriter::gradientStops(const LOTNode& node, bool isGradient)
{
    const std::size_t count = isGradient && node.mGradient.stopPtr ? node.mGradient.stopCount : 0;
    u32(count);
    for (std::size_t i = 0; i < count; ++i) {
        const LOTGradientStop& stop = node.mGradient.stopPtr[i];
        f32(stop.pos);
        byte(stop.r);
        byte(stop.g);
        byte(stop.b);
        byte(stop.a);
    }
}
