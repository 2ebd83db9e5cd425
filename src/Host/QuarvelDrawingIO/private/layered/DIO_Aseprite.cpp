// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A file is frames, a frame is chunks. In each frame the palettes, layers and tiles are read first, then the pictures
// that need them, whatever their order is.
#include "QuarvelDrawingIO/private/layered/DIO_Aseprite.h"

#include "QuarvelDrawingIO/private/layered/DIO_AsepritePixels.h"
#include "QuarvelDrawingIO/private/layered/DIO_FrameTimes.h"

#include <map>

namespace {

using Reader = DIO_ByteReader<DIO_ByteOrder::LITTLE>;

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

enum LayerType
{
    PIXELS = 0,
    GROUP = 1,
    TILE_MAP = 2
};

struct Layer
{
    bool visible = false; // with all groups that it is in
    bool background = false;
    int type = PIXELS;
    int level = 0;
    int blend = 0;
    double opacity = 1.0; // with that of its groups
    QString name;         // the same
    QString group;
    QString groups; // what the names of the layers in it begin with
    std::uint32_t tiles = 0;
};

struct Tag
{
    int from = 0;
    int to = 0;
    QString name;
};

QString textOf(Reader& reader)
{
    const auto bytes = reader.bytes(reader.u16());
    return QString::fromUtf8(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
}

QString blendName(int blend)
{
    static const char* const names[] = {"normal",     "multiply",     "screen",      "overlay",    "darken",
                                        "lighten",    "colour dodge", "colour burn", "hard light", "soft light",
                                        "difference", "exclusion",    "hue",         "saturation", "colour",
                                        "luminosity", "addition",     "subtract",    "divide"};
    const auto index = static_cast<std::size_t>(blend);
    return index < std::size(names) ? QString::fromLatin1(names[index]) : QString::number(blend);
}

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
        _layersHaveOpacity = (flags & 1U) != 0;
        _groupsHaveOpacity = (flags & 2U) != 0;
        header.skip(2 + 8);
        _mode.transparentIndex = header.u8();
        if (!isKnown)
            return UT_Error{QStringLiteral("this is no file of Aseprite")};
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
            readTags(chunk);
            return {};
        case PALETTE:
            _hasPalette = true;
            return readPalette(chunk);
        case OLD_PALETTE:
        case OLDEST_PALETTE:
            if (!_hasPalette)
                readOldPalette(chunk, type == OLDEST_PALETTE);
            return {};
        default:
            return {};
        }
    }

    UT_Result<void> readLayer(Reader& chunk)
    {
        enum Flag : unsigned
        {
            VISIBLE = 1,
            BACKGROUND = 8,
            REFERENCE = 64
        };
        Layer layer;
        const unsigned flags = chunk.u16();
        layer.type = chunk.u16();
        layer.level = chunk.u16();
        chunk.skip(4);
        layer.blend = chunk.u16();
        const double opacity = chunk.u8() / 255.0;
        chunk.skip(3);
        layer.name = textOf(chunk);
        layer.tiles = layer.type == TILE_MAP ? chunk.u32() : 0;
        layer.visible = (flags & VISIBLE) != 0 && (flags & REFERENCE) == 0;
        layer.background = (flags & BACKGROUND) != 0;
        layer.opacity = (layer.type == GROUP ? _groupsHaveOpacity : _layersHaveOpacity) ? opacity : 1.0;
        if (_layers.size() >= DIO_kMostLayers)
            return UT_Error{QStringLiteral("it has more than the %1 layers that can be read").arg(DIO_kMostLayers)};
        while (!_open.empty() && _layers[_open.back()].level >= layer.level)
            _open.pop_back();
        if (!_open.empty())
            placeInto(_layers[_open.back()], layer);
        layer.groups = layer.name + QLatin1Char('/');
        if (layer.type == GROUP)
            _open.push_back(_layers.size());
        _layers.push_back(layer);
        _made.layers.push_back({layer.name, layer.group, {}, {}});
        return {};
    }

    void placeInto(const Layer& group, Layer& layer) const
    {
        layer.group = group.group.isEmpty() ? group.name : group.group;
        layer.name = group.groups + layer.name;
        layer.visible = layer.visible && group.visible;
        layer.opacity *= group.opacity;
    }

    UT_Result<void> readPalette(Reader& chunk)
    {
        constexpr std::uint32_t kMost = 65536;
        const std::uint32_t count = chunk.u32();
        const std::uint32_t first = chunk.u32();
        const std::uint32_t last = chunk.u32();
        chunk.skip(8);
        if (count > kMost || first > last || last >= kMost)
            return DIO_damaged();
        if (_mode.palette.size() <= last)
            _mode.palette.resize(last + 1, 0);
        for (std::uint32_t i = first; i <= last && !chunk.hasFailed(); ++i) {
            const bool hasName = (chunk.u16() & 1U) != 0;
            const auto colour = chunk.bytes(4);
            if (!colour.empty())
                _mode.palette[i] = qRgba(colour[0], colour[1], colour[2], colour[3]);
            if (hasName)
                (void)textOf(chunk);
        }
        return {};
    }

    // Packets: the number of entries to skip, then the number of entries that follow.
    void readOldPalette(Reader& chunk, bool isSixBits)
    {
        std::size_t at = 0;
        const int packets = chunk.u16();
        for (int packet = 0; packet < packets && !chunk.hasFailed(); ++packet) {
            at += chunk.u8();
            const int count = chunk.u8();
            for (int i = 0; i < (count == 0 ? 256 : count); ++i, ++at) {
                const auto colour = chunk.bytes(3);
                if (colour.empty())
                    return;
                const auto wide = [&](std::uint8_t value) { return isSixBits ? value * 255 / 63 : value; };
                if (_mode.palette.size() <= at)
                    _mode.palette.resize(at + 1, 0);
                _mode.palette[at] = qRgb(wide(colour[0]), wide(colour[1]), wide(colour[2]));
            }
        }
    }

    void readTags(Reader& chunk)
    {
        const int count = chunk.u16();
        chunk.skip(8);
        for (int i = 0; i < count && !chunk.hasFailed(); ++i) {
            Tag tag;
            tag.from = chunk.u16();
            tag.to = chunk.u16();
            chunk.skip(1 + 2 + 6 + 3 + 1);
            tag.name = textOf(chunk);
            if (tag.from <= tag.to && tag.to < _frames)
                _tags.push_back(tag);
        }
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
        (void)textOf(chunk);
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
        if (index >= _layers.size())
            return DIO_damaged();
        const Layer& layer = _layers[index];
        if (!layer.visible || layer.type == GROUP)
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
        const DIO_FrameTimes times = DIO_frameTimes(_times);
        std::vector<int> firsts;
        int frames = 0;
        for (const int count : times.counts) {
            firsts.push_back(frames);
            frames += count;
        }
        if (_layers.size() * static_cast<std::size_t>(frames) > kMostPlaces)
            return UT_Error{QStringLiteral("it has %1 layers and %2 frames, which is too much together")
                                .arg(_layers.size())
                                .arg(frames)};
        _made.frames = frames;
        _made.frameRate = times.frameRate;
        for (std::size_t layer = 0; layer < _layers.size(); ++layer)
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
        QStringList modes;
        for (const Layer& layer : _layers)
            if (layer.visible && layer.blend != 0)
                modes << QStringLiteral("%1 (%2)").arg(blendName(layer.blend), layer.name);
        DIO_warnOfBlendModes(modes, _made.warnings);
        if (_movesInDepth)
            _made.warnings.append(QStringLiteral("layers keep their order in all frames; the file changes it in some"));
        QStringList tags;
        for (const Tag& tag : _tags) {
            const auto next = static_cast<std::size_t>(tag.to) + 1;
            const int last = next < firsts.size() ? firsts[next] : _made.frames;
            tags << QStringLiteral("%1 is %2-%3")
                        .arg(tag.name)
                        .arg(firsts[static_cast<std::size_t>(tag.from)] + 1)
                        .arg(last);
        }
        if (_made.frames > 1 && !tags.isEmpty())
            _made.warnings.append(
                QStringLiteral("tags are not kept; as ranges of frames, %1").arg(tags.mid(0, 20).join(u", ")));
    }

    DIO_BitmapLayers _made;
    DIO_AsepriteMode _mode;
    DIO_PixelBudget _budget;
    std::vector<Layer> _layers;
    std::vector<std::size_t> _open; ///< the groups around the next layer, by their indices
    std::map<std::uint32_t, DIO_AsepriteTiles> _tiles;
    std::map<std::pair<std::size_t, int>, int> _shown; ///< of a layer at a frame of the file: its cel
    std::vector<Tag> _tags;
    std::vector<int> _times;
    int _frames = 0;
    bool _layersHaveOpacity = false;
    bool _groupsHaveOpacity = false;
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
