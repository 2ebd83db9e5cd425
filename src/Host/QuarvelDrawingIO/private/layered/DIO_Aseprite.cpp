// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A file is frames, a frame is chunks. In each frame the palettes, layers and tiles are read first, then the pictures
// that need them, whatever their order is.
#include "QuarvelDrawingIO/private/layered/DIO_Aseprite.h"

#include "QuarvelDrawingIO/private/layered/DIO_AsepriteLayers.h"
#include "QuarvelDrawingIO/private/layered/DIO_FrameTimes.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace {

using Reader = DIO_AsepriteReader;
using Layer = DIO_AsepriteLayer;
using LayerType = DIO_AsepriteLayerType;

enum Chunk : int
{
    OLD_PALETTE = 0x0004,
    OLDEST_PALETTE = 0x0011,
    LAYER = 0x2004,
    CEL = 0x2005,
    TAGS = 0x2018,
    PALETTE = 0x2019,
    TILES = 0x2023
};

class AsepriteFile
{
public:
    UT_Result<DIO_BitmapLayers> read(std::span<const std::uint8_t> bytes)
    {
        Reader file(bytes);
        if (UT_Result<void> header = readHeader(file); !header)
            return header.error();
        for (int frame = 0; frame < _frames; ++frame)
            if (UT_Result<void> read = readFrame(file, frame); !read)
                return read.error();
        return finished();
    }

private:
    UT_Result<void> readHeader(Reader& file)
    {
        constexpr std::size_t kHeaderBytes = 128;
        constexpr int kMagic = 0xA5E0;
        Reader header = file.block(kHeaderBytes);
        header.skip(4);
        const bool isKnown = header.u16() == kMagic;
        _frames = header.u16();
        const int width = header.u16();
        const int height = header.u16();
        _made.size = QSize(width, height);
        _mode.depth = header.u16();
        const std::uint32_t flags = header.u32();
        _opacities.ofLayers = (flags & 1U) != 0;
        _opacities.ofGroups = (flags & 2U) != 0;
        header.skip(2 + 8);
        _mode.transparentIndex = header.u8();
        if (!isKnown)
            return UT_Error{QStringLiteral("this is not a file of Aseprite")};
        if (file.hasFailed() || _frames < 1 || (_mode.depth != 8 && _mode.depth != 16 && _mode.depth != 32))
            return DIO_damaged();
        if (_frames > DIO_kMostFrames)
            return UT_Error{QStringLiteral("it has %1 frames, more than the %2 that can be read")
                                .arg(_frames)
                                .arg(DIO_kMostFrames)};
        DIO_PixelBudget canvas;
        return canvas.take(width, height);
    }

    UT_Result<void> readFrame(Reader& file, int frame)
    {
        constexpr int kMagic = 0xF1FA;
        constexpr std::size_t kHeaderBytes = 16;
        Reader header = file.block(kHeaderBytes);
        const std::uint32_t size = header.u32();
        const bool isKnown = header.u16() == kMagic;
        header.skip(2);
        _times.push_back(header.u16());
        if (file.hasFailed() || !isKnown || size < kHeaderBytes)
            return DIO_damaged();
        const auto chunks = file.bytes(size - kHeaderBytes);
        if (file.hasFailed())
            return DIO_damaged();
        for (const bool cels : {false, true})
            if (UT_Result<void> read = readChunks(chunks, frame, cels); !read)
                return read;
        return {};
    }

    UT_Result<void> readChunks(std::span<const std::uint8_t> bytes, int frame, bool cels)
    {
        constexpr std::size_t kHeaderBytes = 6;
        Reader chunks(bytes);
        while (chunks.left() >= kHeaderBytes) {
            const std::size_t size = chunks.u32();
            const int type = chunks.u16();
            if (size < kHeaderBytes)
                return DIO_damaged();
            Reader chunk = chunks.block(size - kHeaderBytes);
            if (chunks.hasFailed())
                return DIO_damaged();
            if ((type == CEL) != cels)
                continue;
            if (UT_Result<void> read = readChunk(type, chunk, frame); !read)
                return read;
            if (chunk.hasFailed())
                return DIO_damaged();
        }
        return {};
    }

    UT_Result<void> readChunk(int type, Reader& chunk, int frame)
    {
        switch (type) {
        case LAYER:
            return readLayer(chunk);
        case CEL:
            return readCel(chunk, frame);
        case TILES:
            return readTiles(chunk);
        case TAGS:
            std::ranges::move(DIO_asepriteTags(chunk, _frames), std::back_inserter(_tags));
            return {};
        case PALETTE:
            _hasPalette = true;
            return DIO_readAsepritePalette(chunk, _mode.palette);
        case OLD_PALETTE:
        case OLDEST_PALETTE:
            if (!_hasPalette)
                DIO_readOldAsepritePalette(chunk, type == OLDEST_PALETTE, _mode.palette);
            return {};
        default:
            return {};
        }
    }

    UT_Result<void> readLayer(Reader& chunk)
    {
        if (UT_Result<void> added = _layers.add(chunk, _opacities); !added)
            return added;
        const Layer& layer = _layers.all().back();
        _made.layers.push_back({layer.name, layer.group, {}, {}});
        return {};
    }

    UT_Result<void> readTiles(Reader& chunk)
    {
        enum Flag : unsigned
        {
            OUTSIDE = 1,
            INSIDE = 2
        };
        const std::uint32_t id = chunk.u32();
        const std::uint32_t flags = chunk.u32();
        const std::uint32_t count = chunk.u32();
        DIO_AsepriteTiles tiles;
        const int width = chunk.u16();
        const int height = chunk.u16();
        tiles.tile = QSize(width, height);
        chunk.skip(2 + 14);
        (void)DIO_asepriteText(chunk);
        if ((flags & OUTSIDE) != 0)
            chunk.skip(8);
        if ((flags & INSIDE) == 0)
            return UT_Error{QStringLiteral("its tiles lie in another file, which is not read; embed them")};
        const auto packed = chunk.bytes(chunk.u32());
        if (UT_Result<void> taken = _budget.take(width, std::int64_t{height} * count); !taken)
            return taken;
        tiles.count = static_cast<int>(count);
        const QSize all(width, height * tiles.count);
        const auto pixels = DIO_inflate(packed, bytesOf(all));
        if (!pixels)
            return pixels.error();
        tiles.all = DIO_asepriteImage(*pixels, all, _mode, false);
        if (tiles.all.isNull())
            return UT_noMemory(QStringLiteral("its tiles"), QStringLiteral("make it smaller"));
        _tiles[id] = tiles;
        return {};
    }

    std::size_t bytesOf(const QSize& size) const
    {
        return static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()) * _mode.pixelBytes();
    }

    UT_Result<void> readCel(Reader& chunk, int frame)
    {
        enum CelType
        {
            RAW = 0,
            LINK = 1,
            PACKED = 2,
            MAP = 3
        };
        const std::size_t index = chunk.u16();
        const int x = chunk.i16();
        const int y = chunk.i16();
        const double opacity = chunk.u8() / 255.0;
        const int type = chunk.u16();
        _movesInDepth = _movesInDepth || chunk.i16() != 0;
        chunk.skip(5);
        if (index >= _layers.all().size())
            return DIO_damaged();
        const Layer& layer = _layers.all()[index];
        if (!layer.visible || layer.type == LayerType::GROUP)
            return {};
        if (type == LINK)
            return link(index, frame, chunk.u16());
        UT_Result<QImage> image = type == MAP ? tileMap(chunk, layer) : picture(chunk, layer, type == PACKED);
        if (type > MAP)
            return DIO_damaged();
        if (!image)
            return image.error();
        if (image->isNull())
            return UT_noMemory(QStringLiteral("its pictures"), QStringLiteral("make it smaller"));
        DIO_BitmapLayer& made = _made.layers[index];
        made.cels.push_back({std::move(*image), {x, y}, opacity * layer.opacity});
        _shown[{index, frame}] = static_cast<int>(made.cels.size()) - 1;
        return {};
    }

    UT_Result<void> link(std::size_t layer, int frame, int to)
    {
        const auto found = _shown.find({layer, to});
        if (found == _shown.end())
            return to < _frames ? UT_Result<void>() : DIO_damaged();
        _shown[{layer, frame}] = found->second;
        return {};
    }

    UT_Result<QImage> picture(Reader& chunk, const Layer& layer, bool isPacked)
    {
        const int width = chunk.u16();
        const int height = chunk.u16();
        if (chunk.hasFailed())
            return DIO_damaged();
        if (UT_Result<void> taken = _budget.take(width, height); !taken)
            return taken.error();
        const QSize size(width, height);
        if (!isPacked) {
            const auto bytes = chunk.bytes(bytesOf(size));
            return chunk.hasFailed() ? UT_Result<QImage>(DIO_damaged())
                                     : DIO_asepriteImage(bytes, size, _mode, layer.background);
        }
        const auto bytes = DIO_inflate(chunk.rest(), bytesOf(size));
        if (!bytes)
            return bytes.error();
        return DIO_asepriteImage(*bytes, size, _mode, layer.background);
    }

    UT_Result<QImage> tileMap(Reader& chunk, const Layer& layer)
    {
        const int width = chunk.u16();
        const int height = chunk.u16();
        const int bitsPerTile = chunk.u16();
        DIO_AsepriteTileBits bits;
        for (std::uint32_t* const mask : {&bits.number, &bits.mirroredX, &bits.mirroredY, &bits.transposed})
            *mask = chunk.u32();
        chunk.skip(10);
        const auto tiles = _tiles.find(layer.tiles);
        if (chunk.hasFailed() || bitsPerTile != 32 || tiles == _tiles.end())
            return DIO_damaged();
        const QSize tile = tiles->second.tile;
        if (UT_Result<void> taken =
                _budget.take(std::int64_t{width} * tile.width(), std::int64_t{height} * tile.height());
            !taken)
            return taken.error();
        const auto map = DIO_inflate(chunk.rest(), std::size_t{4} * static_cast<std::size_t>(width) *
                                                       static_cast<std::size_t>(height));
        if (!map)
            return map.error();
        return DIO_asepriteTileMap(*map, {width, height}, bits, tiles->second);
    }

    UT_Result<DIO_BitmapLayers> finished()
    {
        constexpr std::size_t kMostPlaces = 20'000'000;
        const std::size_t layers = _layers.all().size();
        const DIO_FrameTimes times = DIO_frameTimes(_times);
        std::vector<int> firsts;
        int frames = 0;
        for (const int count : times.counts) {
            firsts.push_back(frames);
            frames += count;
        }
        if (layers * static_cast<std::size_t>(frames) > kMostPlaces)
            return UT_Error{
                QStringLiteral("it has %1 layers and %2 frames, which is too much together").arg(layers).arg(frames)};
        _made.frames = frames;
        _made.frameRate = times.frameRate;
        for (std::size_t layer = 0; layer < layers; ++layer)
            for (int frame = 0; frame < _frames; ++frame) {
                const auto found = _shown.find({layer, frame});
                const int count = times.counts[static_cast<std::size_t>(frame)];
                _made.layers[layer].shown.insert(_made.layers[layer].shown.end(), static_cast<std::size_t>(count),
                                                 found == _shown.end() ? -1 : found->second);
            }
        warn(firsts);
        return std::move(_made);
    }

    void warn(const std::vector<int>& firsts)
    {
        DIO_warnOfBlendModes(_layers.blendModes(), _made.warnings);
        if (_movesInDepth)
            _made.warnings.append(QStringLiteral("layers keep their order in all frames; the file changes it in some"));
        QStringList tags;
        for (const DIO_AsepriteTag& tag : _tags) {
            const auto next = static_cast<std::size_t>(tag.to) + 1;
            const int last = next < firsts.size() ? firsts[next] : _made.frames;
            tags << QStringLiteral("%1 is %2-%3")
                        .arg(tag.name, QString::number(firsts[static_cast<std::size_t>(tag.from)] + 1),
                             QString::number(last));
        }
        if (_made.frames > 1 && !tags.isEmpty())
            _made.warnings.append(
                QStringLiteral("tags are not kept; as ranges of frames, %1").arg(tags.mid(0, 20).join(u", ")));
    }

    DIO_BitmapLayers _made;
    DIO_AsepriteMode _mode;
    DIO_PixelBudget _budget;
    DIO_AsepriteLayers _layers;
    std::map<std::uint32_t, DIO_AsepriteTiles> _tiles;
    std::map<std::pair<std::size_t, int>, int> _shown; ///< of a layer at a frame of the file: its cel
    std::vector<DIO_AsepriteTag> _tags;
    std::vector<int> _times;
    int _frames = 0;
    DIO_AsepriteOpacities _opacities;
    bool _hasPalette = false;
    bool _movesInDepth = false;
};

} // namespace

UT_Result<DIO_BitmapLayers> DIO_readAseprite(const QString& path)
{
    const UT_Result<QByteArray> bytes = DIO_readBytes(path);
    if (!bytes)
        return bytes.error();
    return AsepriteFile().read(DIO_bytesOf(*bytes));
}
