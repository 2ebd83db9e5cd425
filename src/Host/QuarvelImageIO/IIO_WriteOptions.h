// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// IIO_WriteOptions: how a picture is to be written, for all formats at once; each format takes what concerns it.
#pragma once

/// How hard to press a picture together. No such setting changes a value of a PNG or an OpenEXR file.
enum class IIO_Compression
{
    NONE, ///< as it is
    FAST, ///< the default: most of the gain for little time
    SMALL ///< smallest file, several times slower
};

/// The sample type of OpenEXR files.
enum class IIO_ExrDepth
{
    HALF, ///< 16-bit float: 11 significant bits, up to 65504
    FLOAT ///< 32-bit float: every value exactly
};

/// How to write a picture.
struct IIO_WriteOptions
{
    IIO_Compression compression = IIO_Compression::FAST;
    IIO_ExrDepth exrDepth = IIO_ExrDepth::HALF;
    /// Of a channel of a PNG file: 16, or 8, where every sample becomes the nearest of 256 steps.
    int pngBits = 16;
    /// Of lossy 8-bit formats, 0 (worst) to 100 (best).
    int quality = 95;
};
