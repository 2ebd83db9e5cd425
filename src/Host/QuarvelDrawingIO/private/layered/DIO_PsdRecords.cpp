// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Records of all layers come first, from the bottom up, then the pixels of all of them in the same order.
#include "QuarvelDrawingIO/private/layered/DIO_PsdRecords.h"

#include <algorithm>

namespace {

using Bytes = std::span<const std::uint8_t>;
using Reader = DIO_PsdReader;

// Corners may be anything; a rectangle without pixels is empty.
QRect rectOf(Reader& reader)
{
    const std::int64_t top = reader.i32();
    const std::int64_t left = reader.i32();
    const std::int64_t bottom = reader.i32();
    const std::int64_t right = reader.i32();
    const bool isSane = std::max({std::abs(top), std::abs(left), std::abs(bottom), std::abs(right)}) <= DIO_kFarthest;
    if (!isSane || bottom <= top || right <= left)
        return {};
    return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(right - left),
            static_cast<int>(bottom - top)};
}

// Blocks of bytes are padded to a multiple; the last one's padding may be missing.
void skipPadding(Reader& reader, std::size_t size, std::size_t multiple)
{
    reader.skip(std::min((multiple - size % multiple) % multiple, reader.left()));
}

void readMask(Reader& mask, DIO_PsdMask& made)
{
    constexpr unsigned kOff = 2;
    constexpr std::size_t kLeast = 18;
    if (mask.left() < kLeast)
        return;
    made.place = rectOf(mask);
    made.outside = mask.u8();
    made.isOn = (mask.u8() & kOff) == 0;
}

// A length byte, the text, and padding.
QString shortText(Reader& reader)
{
    const std::size_t size = reader.u8();
    const Bytes name = reader.bytes(size);
    skipPadding(reader, size + 1, 4);
    return QString::fromUtf8(reinterpret_cast<const char*>(name.data()), static_cast<qsizetype>(name.size()));
}

QString wideText(Reader& block)
{
    const std::size_t count = std::min<std::size_t>(block.u32(), block.left() / 2);
    QString text;
    for (std::size_t i = 0; i < count; ++i)
        text.append(QChar(block.u16()));
    while (text.endsWith(QChar(0)))
        text.chop(1);
    return text;
}

// The length of a block with a key. Those of large documents have eight bytes for some kinds of blocks, as the format's
// published description lists them.
std::size_t blockLength(Reader& reader, const DIO_PsdForm& form, const QByteArray& key)
{
    static constexpr const char* kLong[] = {"LMsk", "Lr16", "Lr32", "Layr", "Mt16", "Mt32", "Mtrn",
                                            "Alph", "FMsk", "lnk2", "FEid", "FXid", "PxSD"};
    const bool isLong = std::ranges::any_of(kLong, [&](const char* name) { return key == name; });
    return isLong ? DIO_psdLength(reader, form) : reader.u32();
}

// Blocks after the name; most kinds are skipped.
void readMore(Reader& extra, const DIO_PsdForm& form, DIO_PsdRecord& record)
{
    constexpr std::size_t kLeast = 12;
    while (extra.left() >= kLeast) {
        extra.skip(4);
        const QByteArray key = DIO_psdKey(extra);
        const std::size_t size = blockLength(extra, form, key);
        Reader block = extra.block(size);
        skipPadding(extra, size, 2);
        if (key == "luni")
            record.name = wideText(block);
        else if (key == "lsct" || key == "lsdk")
            record.section = static_cast<DIO_PsdSection>(block.u32());
        else if (key == "iOpa")
            record.opacity *= block.u8() / 255.0;
    }
}

UT_Result<DIO_PsdRecord> readRecord(Reader& layers, const DIO_PsdForm& form)
{
    constexpr int kMostChannels = 64;
    constexpr unsigned kHidden = 2;
    DIO_PsdRecord record;
    record.place = rectOf(layers);
    const int channels = layers.u16();
    if (channels > kMostChannels)
        return DIO_damaged();
    for (int i = 0; i < channels; ++i) {
        const int id = layers.i16();
        record.channels.push_back({id, DIO_psdLength(layers, form)});
    }
    const bool isKnown = DIO_psdKey(layers) == "8BIM";
    record.blend = DIO_psdKey(layers);
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
    record.name = shortText(extra);
    readMore(extra, form, record);
    return record;
}

UT_Result<std::vector<DIO_PsdRecord>> readRecords(Reader& layers, const DIO_PsdForm& form)
{
    const int count = std::abs(layers.i16());
    if (count > DIO_kMostLayers)
        return DIO_tooManyLayers();
    std::vector<DIO_PsdRecord> records;
    for (int i = 0; i < count; ++i) {
        UT_Result<DIO_PsdRecord> record = readRecord(layers, form);
        if (!record)
            return record.error();
        records.push_back(std::move(*record));
    }
    for (DIO_PsdRecord& record : records) {
        std::size_t size = 0;
        for (const DIO_PsdChannel& channel : record.channels)
            size += channel.size;
        record.pixels = layers.bytes(size);
    }
    if (layers.hasFailed())
        return DIO_damaged();
    return records;
}

} // namespace

QByteArray DIO_psdKey(DIO_PsdReader& reader)
{
    const Bytes bytes = reader.bytes(4);
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

std::size_t DIO_psdLength(DIO_PsdReader& reader, const DIO_PsdForm& form)
{
    const bool isTooLong = form.isLarge && reader.u32() != 0;
    const std::size_t size = reader.u32();
    if (isTooLong)
        reader.skip(reader.left() + 1);
    return size;
}

// Layers of 16 bits stand after other blocks, in a block of their own.
UT_Result<std::vector<DIO_PsdRecord>> DIO_psdRecords(DIO_PsdReader& all, const DIO_PsdForm& form)
{
    const std::vector<DIO_PsdRecord> none;
    if (all.left() == 0)
        return none;
    Reader layers = all.block(DIO_psdLength(all, form));
    if (all.hasFailed())
        return DIO_damaged();
    if (layers.left() > 0)
        return readRecords(layers, form);
    if (all.left() < 4)
        return none;
    all.skip(all.u32()); // the mask of the whole picture
    constexpr std::size_t kLeast = 12;
    while (all.left() >= kLeast) {
        all.skip(4);
        const QByteArray key = DIO_psdKey(all);
        const std::size_t size = blockLength(all, form, key);
        Reader block = all.block(size);
        skipPadding(all, size, 4);
        if (all.hasFailed())
            return DIO_damaged();
        if (key == "Lr16" || key == "Layr")
            return readRecords(block, form);
    }
    return none;
}
