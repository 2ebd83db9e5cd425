// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The layers, palettes and tags of Aseprite files: the chunks that stand before the pictures that need them.
#pragma once

#include "QuarvelDrawingIO/private/layered/DIO_AsepritePixels.h"
#include "QuarvelDrawingIO/private/layered/DIO_BitmapLayers.h"

#include <QString>

/// Bytes of an Aseprite file, in its order.
using DIO_AsepriteReader = DIO_ByteReader<DIO_ByteOrder::LITTLE>;

/// What a layer holds.
enum class DIO_AsepriteLayerType : int
{
    PIXELS = 0,
    GROUP = 1,
    TILE_MAP = 2
};

/// A layer or a group of layers.
struct DIO_AsepriteLayer
{
    bool visible = false; ///< with all groups that it is in; never for a reference layer
    bool background = false;
    DIO_AsepriteLayerType type = DIO_AsepriteLayerType::PIXELS;
    int level = 0;           ///< how many groups it is in
    int blend = 0;           ///< 0 is the usual mode
    double opacity = 1.0;    ///< 0 to 1, with that of its groups
    QString name;            ///< with those of its groups, "body/head"
    DIO_BitmapGroup group;   ///< the outermost one that it is in
    std::uint32_t tiles = 0; ///< the number of a tile map's tiles
};

/// Frames with a name.
struct DIO_AsepriteTag
{
    int from = 0; ///< counted from 0
    int to = 0;   ///< the last one
    QString name;
};

/// Which opacities count; the others are stored, but stand for nothing.
struct DIO_AsepriteOpacities
{
    bool ofLayers = false;
    bool ofGroups = false;
};

/// The layers of a file in the order of their chunks, from the bottom up, each after the group that it is in.
class DIO_AsepriteLayers
{
public:
    /// Reads the next layer's chunk.
    ///
    /// @return an error when there are more than DIO_kMostLayers
    UT_Result<void> add(DIO_AsepriteReader& chunk, const DIO_AsepriteOpacities& opacities);

    const std::vector<DIO_AsepriteLayer>& all() const { return _layers; }

    /// The visible layers whose blend mode is not the usual one, as "multiply (shadow)".
    QStringList blendModes() const;

private:
    std::vector<DIO_AsepriteLayer> _layers;
    std::vector<std::size_t> _open; ///< the groups around the next layer, by their indices
};

/// A text behind its length in bytes.
QString DIO_asepriteText(DIO_AsepriteReader& reader);

/// Reads a chunk of palette entries into a palette, which grows as needed.
UT_Result<void> DIO_readAsepritePalette(DIO_AsepriteReader& chunk, std::vector<QRgb>& palette);

/// The same for the two older kinds of chunk.
///
/// @param isSixBits whether colours go from 0 to 63
void DIO_readOldAsepritePalette(DIO_AsepriteReader& chunk, bool isSixBits, std::vector<QRgb>& palette);

/// Reads the tags; those with frames that the file does not have are left out.
std::vector<DIO_AsepriteTag> DIO_asepriteTags(DIO_AsepriteReader& chunk, int frames);
