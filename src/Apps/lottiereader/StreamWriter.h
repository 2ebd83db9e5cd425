// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StreamWriter: writes what DIO_LottieStream.h describes to a file, from the render trees of the animation library.
#pragma once

#include "QuarvelDrawingIO/DIO_LottieStream.h"

#include <rlottiecommon.h>

#include <cstddef>
#include <cstdio>

class StreamWriter
{
public:
    /// @param out where the bytes go; must outlive the writer
    explicit StreamWriter(std::FILE* out) : _out(out) {}

    void writeHeader(double width, double height, double frameRate, std::uint32_t frames);
    void writeFrame(const LOTLayerNode& root);
    void writeEnd();

    /// Whether everything so far was written.
    bool ok() const { return std::ferror(_out) == 0; }

private:
    void byte(unsigned value) { std::fputc(static_cast<int>(value & 0xffU), _out); }
    void u32(std::size_t value);
    void f32(float value);
    void f64(double value);
    void text(const char* value);
    void path(const float* coordinates, std::size_t count, const char* elements, std::size_t elementCount);
    void layer(const LOTLayerNode& node, int depth);
    void emptyLayerContents();
    void node(const LOTNode& node);
    void gradientStops(const LOTNode& node, bool isGradient);

    std::FILE* _out;
};
