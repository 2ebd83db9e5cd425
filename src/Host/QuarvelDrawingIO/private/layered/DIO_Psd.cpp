// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Records of all layers come first, from the bottom up, then the pixels of all of them in the same order. A group is a
// record below its layers, which ends it, and one above them, which has its name.
#include "QuarvelDrawingIO/private/layered/DIO_Psd.h"

#include "QuarvelDrawingIO/private/layered/DIO_PsdPixels.h"

#include <QFileInfo>

#include <algorithm>

namespace {

using Bytes = std::span<const std::uint8_t>;
using Reader = DIO_ByteReader<DIO_ByteOrder::BIG>;

enum Section : int
{
    NO_SECTION = 0,
    OPEN_GROUP = 1,
    CLOSED_GROUP = 2,
    END_OF_GROUP = 3
};

struct Channel
{
    int id = 0; // 0 red, 1 green, 2 blue, -1 alpha, -2 mask
    std::size_t size = 0;
};

struct Record
{
    QRect place;
    std::vector<Channel> channels;
    QByteArray blend;
    double opacity = 1.0; // without that of its groups
    bool visible = true;  // the same
    bool clipped = false;
    int section = NO_SECTION;
    QString name;
    DIO_PsdMask mask;
    Bytes pixels;
};

QByteArray keyOf(Reader& reader)
{
    const Bytes bytes = reader.bytes(4);
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

// Corners may be anything; a rectangle without pixels is empty.
QRect rectOf(Reader& reader)
{
    const std::int64_t top = reader.i32();
    const std::int64_t left = reader.i32();
    const std::int64_t bottom = reader.i32();
    const std::int64_t right = reader.i32();
    constexpr std::int64_t kFarthest = 1'000'000;
    const bool isSane = std::max({std::abs(top), std::abs(left), std::abs(bottom), std::abs(right)}) <= kFarthest;
    if (!isSane || bottom <= top || right <= left)
        return {};
    return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(right - left),
            static_cast<int>(bottom - top)};
}

QString blendName(const QByteArray& key)
{
    static const std::pair<const char*, const char*> names[] = {
        {"mul ", "multiply"},    {"scrn", "screen"},       {"over", "overlay"},     {"dark", "darken"},
        {"lite", "lighten"},     {"div ", "colour dodge"}, {"idiv", "colour burn"}, {"hLit", "hard light"},
        {"sLit", "soft light"},  {"diff", "difference"},   {"smud", "exclusion"},   {"hue ", "hue"},
        {"sat ", "saturation"},  {"colr", "colour"},       {"lum ", "luminosity"},  {"lddg", "linear dodge"},
        {"lbrn", "linear burn"}, {"diss", "dissolve"}};
    for (const auto& [known, name] : names)
        if (key == known)
            return QString::fromLatin1(name);
    return QString::fromLatin1(key).simplified();
}

class PsdFile
{
public:
    UT_Result<DIO_BitmapLayers> read(Bytes bytes, const QString& path)
    {
        Reader file(bytes);
        if (UT_Result<void> header = readHeader(file); !header)
            return header.error();
        file.skip(file.u32()); // colours of indexed pictures
        file.skip(file.u32()); // resources: thumbnails, guides and so on
        Reader all = file.block(length(file));
        if (file.hasFailed())
            return DIO_damaged();
        if (UT_Result<void> read = readLayers(all); !read)
            return read.error();
        if (UT_Result<void> made = hasPixels() ? makeLayers() : readWhole(file, path); !made)
            return made.error();
        DIO_warnOfBlendModes(_modes, _made.warnings);
        if (!_clipped.isEmpty())
            _made.warnings.append(QStringLiteral("layers that others clip are shown whole: %1")
                                      .arg(_clipped.mid(0, 8).join(QStringLiteral(", "))));
        return std::move(_made);
    }

private:
    // Some programs write an empty layer into files that have none.
    bool hasPixels() const
    {
        return std::ranges::any_of(_records, [](const Record& record) { return !record.place.isEmpty(); });
    }

    // A number of bytes: of 32 bits, in PSB files of 64.
    std::size_t length(Reader& reader) const
    {
        const bool isTooLong = _form.isLarge && reader.u32() != 0;
        const std::size_t size = reader.u32();
        if (isTooLong)
            reader.skip(reader.left() + 1);
        return size;
    }

    UT_Result<void> readHeader(Reader& file)
    {
        constexpr int kGrey = 1;
        constexpr int kRgb = 3;
        const bool isKnown = keyOf(file) == "8BPS";
        const int version = file.u16();
        file.skip(6);
        _channels = file.u16();
        const std::uint32_t height = file.u32();
        const std::uint32_t width = file.u32();
        _form.depth = file.u16();
        const int mode = file.u16();
        if (!isKnown || (version != 1 && version != 2))
            return UT_Error{QStringLiteral("this is no PSD file")};
        if (file.hasFailed())
            return DIO_damaged();
        if ((mode != kGrey && mode != kRgb) || (_form.depth != 8 && _form.depth != 16))
            return UT_Error{QStringLiteral("its colours are not those that can be read: RGB or grey of 8 or 16 bits; "
                                           "convert it and save it again")};
        _form.isLarge = version == 2;
        _form.isGrey = mode == kGrey;
        DIO_PixelBudget canvas;
        if (UT_Result<void> taken = canvas.take(width, height); !taken)
            return taken;
        _made.size = QSize(static_cast<int>(width), static_cast<int>(height));
        return {};
    }

    // Layers of 16 bits stand behind others, in a block of their own.
    UT_Result<void> readLayers(Reader& all)
    {
        if (all.left() == 0)
            return {};
        Reader layers = all.block(length(all));
        if (all.hasFailed())
            return DIO_damaged();
        if (layers.left() > 0)
            return readRecords(layers);
        if (all.left() < 4)
            return {};
        all.skip(all.u32()); // the mask of the whole picture
        constexpr std::size_t kLeast = 12;
        while (all.left() >= kLeast) {
            all.skip(4);
            const QByteArray key = keyOf(all);
            const bool isLong = _form.isLarge && (key == "Lr16" || key == "LMsk" || key == "Layr" || key == "Alph");
            const std::size_t size = isLong ? length(all) : all.u32();
            Reader block = all.block(size);
            all.skip(std::min<std::size_t>((4 - size % 4) % 4, all.left()));
            if (all.hasFailed())
                return DIO_damaged();
            if (key == "Lr16" || key == "Layr")
                return readRecords(block);
        }
        return {};
    }

    UT_Result<void> readRecords(Reader& layers)
    {
        const int count = layers.i16();
        if (std::abs(count) > DIO_kMostLayers)
            return UT_Error{QStringLiteral("it has more than the %1 layers that can be read").arg(DIO_kMostLayers)};
        for (int i = 0; i < std::abs(count); ++i) {
            Record record;
            if (UT_Result<void> read = readRecord(layers, record); !read)
                return read;
            _records.push_back(std::move(record));
        }
        for (Record& record : _records) {
            std::size_t size = 0;
            for (const Channel& channel : record.channels)
                size += channel.size;
            record.pixels = layers.bytes(size);
        }
        return layers.hasFailed() ? UT_Result<void>(DIO_damaged()) : UT_Result<void>();
    }

    UT_Result<void> readRecord(Reader& layers, Record& record)
    {
        constexpr int kMostChannels = 64;
        constexpr unsigned kHidden = 2;
        record.place = rectOf(layers);
        const int channels = layers.u16();
        if (channels > kMostChannels)
            return DIO_damaged();
        for (int i = 0; i < channels; ++i) {
            const int id = layers.i16();
            record.channels.push_back({id, length(layers)});
        }
        const bool isKnown = keyOf(layers) == "8BIM";
        record.blend = keyOf(layers);
        record.opacity = layers.u8() / 255.0;
        record.clipped = layers.u8() != 0;
        record.visible = (layers.u8() & kHidden) == 0;
        layers.skip(1);
        Reader extra = layers.block(layers.u32());
        if (layers.hasFailed() || !isKnown)
            return DIO_damaged();
        Reader mask = extra.block(extra.u32());
        readMask(mask, record.mask);
        extra.skip(extra.u32()); // which brightnesses are blended
        const std::size_t nameBytes = extra.u8();
        const Bytes name = extra.bytes(nameBytes);
        record.name =
            QString::fromUtf8(reinterpret_cast<const char*>(name.data()), static_cast<qsizetype>(name.size()));
        extra.skip(std::min<std::size_t>((4 - (nameBytes + 1) % 4) % 4, extra.left()));
        readMore(extra, record);
        return {};
    }

    static void readMask(Reader& mask, DIO_PsdMask& made)
    {
        constexpr unsigned kOff = 2;
        constexpr std::size_t kLeast = 18;
        if (mask.left() < kLeast)
            return;
        made.place = rectOf(mask);
        made.outside = mask.u8();
        made.isOn = (mask.u8() & kOff) == 0;
    }

    // Blocks after the name; most kinds are skipped.
    void readMore(Reader& extra, Record& record) const
    {
        constexpr std::size_t kLeast = 12;
        while (extra.left() >= kLeast) {
            extra.skip(4);
            const QByteArray key = keyOf(extra);
            const std::size_t size = extra.u32();
            Reader block = extra.block(size);
            extra.skip(std::min<std::size_t>(size % 2, extra.left()));
            if (key == "luni")
                record.name = wideText(block);
            else if (key == "lsct" || key == "lsdk")
                record.section = static_cast<int>(block.u32());
            else if (key == "iOpa")
                record.opacity *= block.u8() / 255.0;
        }
    }

    static QString wideText(Reader& block)
    {
        const std::size_t count = std::min<std::size_t>(block.u32(), block.left() / 2);
        QString text;
        for (std::size_t i = 0; i < count; ++i)
            text.append(QChar(block.u16()));
        while (text.endsWith(QChar(0)))
            text.chop(1);
        return text;
    }

    struct Around
    {
        QString names;
        QString group;
        double opacity = 1.0;
        bool visible = true;
    };

    // From the top down, where a group's name comes before its layers.
    UT_Result<void> makeLayers()
    {
        std::vector<Around> open{Around()};
        for (auto record = _records.rbegin(); record != _records.rend(); ++record) {
            const Around& around = open.back();
            if (record->section == END_OF_GROUP) {
                if (open.size() > 1)
                    open.pop_back();
                continue;
            }
            const bool visible = around.visible && record->visible;
            if (visible && record->blend != "norm" && record->blend != "pass")
                _modes << QStringLiteral("%1 (%2)").arg(blendName(record->blend), around.names + record->name);
            if (record->section == OPEN_GROUP || record->section == CLOSED_GROUP) {
                open.push_back({around.names + record->name + QLatin1Char('/'),
                                around.group.isEmpty() ? record->name : around.group, around.opacity * record->opacity,
                                visible});
                continue;
            }
            if (!visible || record->place.isEmpty())
                continue;
            if (record->clipped)
                _clipped << around.names + record->name;
            if (UT_Result<void> made = makeLayer(*record, around); !made)
                return made;
        }
        std::ranges::reverse(_made.layers);
        return {};
    }

    UT_Result<void> makeLayer(Record& record, const Around& around)
    {
        if (UT_Result<void> taken = _budget.take(record.place.width(), record.place.height()); !taken)
            return taken;
        DIO_PsdPlanes planes;
        Reader pixels(record.pixels);
        for (const Channel& channel : record.channels)
            if (UT_Result<void> read = readChannel(pixels.block(channel.size), channel.id, record, planes); !read)
                return read;
        if (planes.red.empty())
            return {};
        if (record.mask.isOn && !(record.mask.samples.empty() && !record.mask.place.isEmpty())) {
            if (planes.alpha.empty())
                planes.alpha.assign(planes.red.size(), 65535);
            DIO_applyPsdMask(planes.alpha, record.place, record.mask);
        }
        const QImage image = DIO_psdImage(planes, record.place.size(), _form);
        if (image.isNull())
            return UT_noMemory(QStringLiteral("its pictures"), QStringLiteral("make it smaller"));
        _made.layers.push_back({around.names + record.name,
                                around.group,
                                {{image, record.place.topLeft(), record.opacity * around.opacity}},
                                {0}});
        return {};
    }

    UT_Result<void> readChannel(Reader channel, int id, Record& record, DIO_PsdPlanes& planes)
    {
        constexpr int kMask = -2;
        DIO_PsdPlane* const target = id == 0                    ? &planes.red
                                     : id == 1 && !_form.isGrey ? &planes.green
                                     : id == 2 && !_form.isGrey ? &planes.blue
                                     : id == -1                 ? &planes.alpha
                                     : id == kMask              ? &record.mask.samples
                                                                : nullptr;
        const QSize size = id == kMask ? record.mask.place.size() : record.place.size();
        if (!target || size.isEmpty() || channel.left() < 2)
            return {};
        if (id == kMask)
            if (UT_Result<void> taken = _budget.take(size.width(), size.height()); !taken)
                return taken;
        const int packing = channel.u16();
        UT_Result<DIO_PsdPlane> plane = DIO_psdPlane(channel.rest(), packing, size, _form);
        if (!plane)
            return plane.error();
        *target = std::move(*plane);
        return {};
    }

    // The picture of all layers, which stands at the end of the file: one packing, then the channels, one after the
    // other. Of packed rows the counts of all channels come first.
    UT_Result<void> readWhole(Reader& file, const QString& path)
    {
        const int packing = file.u16();
        const int wanted = _form.isGrey ? 1 : 3;
        const QSize& size = _made.size;
        if (file.hasFailed() || _channels < wanted || packing > 1)
            return DIO_damaged();
        const std::size_t height = static_cast<std::size_t>(size.height());
        const std::size_t countBytes = _form.isLarge ? 4 : 2;
        const Bytes counts =
            packing == 1 ? file.bytes(countBytes * height * static_cast<std::size_t>(_channels)) : Bytes();
        const std::size_t plainBytes =
            static_cast<std::size_t>(size.width()) * height * static_cast<std::size_t>(_form.depth / 8);
        DIO_PsdPlanes planes;
        DIO_PsdPlane* const targets[] = {&planes.red, &planes.green, &planes.blue};
        for (int i = 0; i < wanted; ++i) {
            const Bytes own =
                packing == 1 && !file.hasFailed()
                    ? counts.subspan(countBytes * height * static_cast<std::size_t>(i), countBytes * height)
                    : Bytes();
            const Bytes packed = file.bytes(packing == 1 ? sumOf(own) : plainBytes);
            std::vector<std::uint8_t> channel(own.begin(), own.end());
            channel.insert(channel.end(), packed.begin(), packed.end());
            UT_Result<DIO_PsdPlane> plane = DIO_psdPlane(channel, packing, size, _form);
            if (!plane)
                return plane.error();
            *targets[i] = std::move(*plane);
        }
        const QImage image = DIO_psdImage(planes, size, _form);
        if (image.isNull())
            return UT_noMemory(QStringLiteral("its pictures"), QStringLiteral("make it smaller"));
        _made.layers.push_back({QFileInfo(path).completeBaseName(), {}, {{image, {}, 1.0}}, {0}});
        return {};
    }

    std::size_t sumOf(Bytes counts) const
    {
        Reader reader(counts);
        std::size_t sum = 0;
        while (reader.left() > 0)
            sum += _form.isLarge ? reader.u32() : reader.u16();
        return sum;
    }

    DIO_BitmapLayers _made;
    DIO_PsdForm _form;
    DIO_PixelBudget _budget;
    std::vector<Record> _records; ///< bottom up
    QStringList _modes;
    QStringList _clipped;
    int _channels = 0;
};

} // namespace

UT_Result<DIO_BitmapLayers> DIO_readPsd(const QString& path)
{
    const UT_Result<QByteArray> bytes = DIO_readBytes(path);
    if (!bytes)
        return bytes.error();
    return PsdFile().read(DIO_bytesOf(*bytes), path);
}
