// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// IIO_WriteOptions: how to write a picture. Each format uses the options that concern it.
#pragma once

/// How strongly to compress a picture. The compression of PNG and OpenEXR files is lossless with every setting.
enum class IIO_Compression
{
    NONE, ///< uncompressed
    FAST, ///< the default: most of the compression in little time
    SMALL ///< the smallest files, several times slower
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
    /// Bits per channel of a PNG file: 16, or 8; with 8, every sample becomes the nearest of 256 steps.
    int pngBits = 16;
    /// The quality of lossy 8-bit formats, 0 (worst) to 100 (best).
    int quality = 95;
};
