// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_LottieStream: the bytes that the program quarvel-lottie-reader writes and DIO_readLottie() reads: what an
// animation paints, frame by frame. All numbers are little-endian; coordinates are pixels of the animation's own size,
// y down.
//
//     stream := magic, f64 width, f64 height, f64 frames a second, u32 count of frames, count times frame, u8 END
//     frame  := u8 FRAME, layer
//     layer  := text name, u8 matte, u8 visible, u8 alpha, path clip, u32 count of masks, masks, u32 count of nodes,
//               nodes, u32 count of layers, layers        (from the bottom up; one that is not visible has nothing in
//               it)
//     mask   := u8 mode, u8 alpha, path
//     node   := u8 brush, u8 fill rule, u8 r, g, b, a, u8 is a stroke, f32 width, u8 cap, u8 join, f32 miter limit,
//               u32 count of stops, stops, path
//     stop   := f32 position, u8 r, g, b, a
//     path   := u32 count of elements, u8 each, u32 count of coordinates, f32 each
//     text   := u32 count of bytes, UTF-8
#pragma once

#include <cstdint>
#include <string_view>

namespace DIO_LottieStream {

/// Ends with the version of the form.
inline constexpr std::string_view kMagic = "QLOTTIE1";

/// Where a frame begins, and where the stream ends. Any other byte there means that something went wrong.
enum Tag : std::uint8_t
{
    FRAME = 'F',
    END = 'E'
};

/// How the layer above (the matte, which is not painted itself) cuts a layer.
enum Matte : std::uint8_t
{
    NO_MATTE,
    ALPHA_MATTE,
    ALPHA_INVERTED_MATTE,
    LUMA_MATTE,
    LUMA_INVERTED_MATTE
};

/// How a mask changes what shows of its layer.
enum MaskMode : std::uint8_t
{
    ADD_MASK,
    SUBTRACT_MASK,
    INTERSECT_MASK,
    DIFFERENCE_MASK
};

/// What a node is painted with.
enum Brush : std::uint8_t
{
    SOLID_BRUSH,
    GRADIENT_BRUSH,
    PICTURE_BRUSH
};

enum FillRule : std::uint8_t
{
    EVEN_ODD,
    WINDING
};

enum Cap : std::uint8_t
{
    FLAT_CAP,
    SQUARE_CAP,
    ROUND_CAP
};

enum Join : std::uint8_t
{
    MITER_JOIN,
    BEVEL_JOIN,
    ROUND_JOIN
};

/// An element of a path, with 2, 2, 6 and 0 coordinates.
enum Element : std::uint8_t
{
    MOVE_TO,
    LINE_TO,
    CUBIC_TO,
    CLOSE
};

/// The reader's exit codes; with any but OK a line on standard error says why.
enum ExitCode
{
    OK = 0,
    NOT_READABLE = 1, ///< there is no such file, or it is no animation
    TOO_LARGE = 2,
    WRONG_USAGE = 3
};

/// Animations with more frames, or a longer side in pixels, are refused.
inline constexpr std::uint32_t kMaxFrames = 20'000;
inline constexpr double kMaxSide = 100'000.0;

} // namespace DIO_LottieStream
