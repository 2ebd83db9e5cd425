// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts samples to the file's type in bands of rows, so that no second copy of the picture is in memory.
#include "QuarvelImageIO/IIO_ExrFile.h"

#include "QuarvelBaseCore/UT_PlainFile.h"
#include "QuarvelImageIO/IIO_AtomicFile.h"
#include "QuarvelImageIO/IIO_Samples.h"
#include "QuarvelImageIO/private/IIO_ExrHeader.h"
#include "QuarvelImageIO/private/IIO_ExrStream.h"
#include "QuarvelImageIO/private/IIO_KritaLayers.h"

#include <OpenEXR/ImfChannelList.h>
#include <OpenEXR/ImfFrameBuffer.h>
#include <OpenEXR/ImfHeader.h>
#include <OpenEXR/ImfInputFile.h>
#include <OpenEXR/ImfOutputFile.h>
#include <OpenEXR/ImfStringAttribute.h>
#include <QFile>

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace {

// A multiple of the block height of every compression, so that bands end where blocks end.
constexpr int kBandRows = 256;

template<typename Stored>
constexpr Imf::PixelType kPixelType = sizeof(Stored) == 2 ? Imf::HALF : Imf::FLOAT;

// The library's boxes include their last row and column.
Imath::Box2i exrBox(const Math::Box2di& box)
{
    return {{box.x1, box.y1}, {box.x2 - 1, box.y2 - 1}};
}

std::optional<Math::Box2di> houseBox(const Imath::Box2i& box)
{
    constexpr int kMost = std::numeric_limits<int>::max() / 2;
    if (box.isEmpty() || box.min.x < -kMost || box.min.y < -kMost || box.max.x > kMost || box.max.y > kMost)
        return std::nullopt;
    return Math::Box2di(box.min.x, box.min.y, box.max.x + 1, box.max.y + 1);
}

void setCompression(Imf::Header& header, IIO_Compression compression)
{
    constexpr int kFastLevel = 4;
    constexpr int kSmallLevel = 9;
    header.compression() = compression == IIO_Compression::NONE ? Imf::NO_COMPRESSION : Imf::ZIP_COMPRESSION;
    header.zipCompressionLevel() = compression == IIO_Compression::SMALL ? kSmallLevel : kFastLevel;
}

Imf::Header headerOf(const IIO_Picture& picture, const IIO_WriteOptions& options)
{
    Imf::Header header(exrBox(picture.displayWindow()), exrBox(picture.dataWindow()));
    setCompression(header, options.compression);
    const Imf::PixelType type = options.exrDepth == IIO_ExrDepth::HALF ? Imf::HALF : Imf::FLOAT;
    for (const QString& channel : picture.channels())
        header.channels().insert(channel.toStdString(), Imf::Channel(type));
    for (const auto& [key, value] : picture.metadata().entries())
        header.insert(key.toStdString(), Imf::StringAttribute(value.toStdString()));
    if (const auto hidden = IIO_kritaLayers(header.channels()))
        header.insert(kIIO_kritaLayers, Imf::StringAttribute(*hidden));
    return header;
}

// The first metadata key that the file cannot hold; empty if there is none. Metadata must not overwrite the format's
// own attributes (the windows, the channels).
QString unfitKey(const IIO_Metadata& metadata)
{
    const Imf::Header standard;
    for (const auto& [key, value] : metadata.entries())
        if (!IIO_Metadata::isValidKey(key) || standard.find(key.toStdString()) != standard.end() ||
            key == QLatin1String("tiles") || key == QLatin1String("type") || key == QLatin1String("version"))
            return key;
    return {};
}

template<typename Stored>
Imf::FrameBuffer frameBufferOf(const QStringList& channels, const Math::Box2di& rows, const Stored* samples)
{
    const auto pixelBytes = static_cast<std::size_t>(channels.size()) * sizeof(Stored);
    const auto rowBytes = pixelBytes * static_cast<std::size_t>(rows.width());
    Imf::FrameBuffer frameBuffer;
    for (int c = 0; c < channels.size(); ++c)
        frameBuffer.insert(channels[c].toStdString(),
                           Imf::Slice::Make(kPixelType<Stored>, samples + c, exrBox(rows), pixelBytes, rowBytes));
    return frameBuffer;
}

template<typename Stored, typename Sample>
void writeBands(Imf::OutputFile& file, const IIO_Picture& picture)
{
    const Math::Box2di& window = picture.dataWindow();
    const auto rowLength = static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.channelCount());
    std::vector<Stored> samples(rowLength * static_cast<std::size_t>(std::min(kBandRows, picture.height())));
    for (int first = window.y1; first < window.y2; first += kBandRows) {
        const Math::Box2di band(window.x1, first, window.x2, std::min(first + kBandRows, window.y2));
        auto target = samples.begin();
        for (int y = band.y1; y < band.y2; ++y) {
            const std::span<const Sample> row = picture.row<Sample>(y);
            target = std::transform(row.begin(), row.end(), target,
                                    [](Sample value) { return static_cast<Stored>(IIO_toSampleFloat(value)); });
        }
        file.setFrameBuffer(frameBufferOf(picture.channels(), band, samples.data()));
        file.writePixels(band.height());
    }
}

template<typename Stored>
void writeSamples(Imf::OutputFile& file, const IIO_Picture& picture)
{
    if (picture.sampleType() == IIO_SampleType::UINT16)
        writeBands<Stored, std::uint16_t>(file, picture);
    else
        writeBands<Stored, float>(file, picture);
}

void writeStream(QIODevice& device, const QByteArray& name, const IIO_Picture& picture, const IIO_WriteOptions& options)
{
    IIO_ExrOutput stream(device, name.constData());
    {
        Imf::OutputFile file(stream, headerOf(picture, options));
        if (options.exrDepth == IIO_ExrDepth::HALF)
            writeSamples<Imath::half>(file, picture);
        else
            writeSamples<float>(file, picture);
    }
    if (!stream.isComplete())
        throw std::runtime_error("there is not enough memory to compress it");
}

// The file's channels, colours first. Empty if any channel is subsampled.
QStringList channelsOf(const Imf::Header& header)
{
    QStringList names;
    for (auto it = header.channels().begin(); it != header.channels().end(); ++it) {
        if (it.channel().xSampling != 1 || it.channel().ySampling != 1)
            return {};
        names << QString::fromUtf8(it.name());
    }
    QStringList ordered;
    for (const QString& colour : IIO_channelsRgba() + IIO_channelsGreyAlpha())
        if (names.removeOne(colour))
            ordered << colour;
    // Grey pictures have Y before A.
    if (ordered == QStringList{QStringLiteral("A"), QStringLiteral("Y")})
        ordered = IIO_channelsGreyAlpha();
    return ordered + names;
}

UT_Result<IIO_Picture> readStream(QIODevice& device, const QByteArray& name)
{
    IIO_ExrInput stream(device, name.constData());
    Imf::InputFile file(stream);
    const auto displayWindow = houseBox(file.header().displayWindow());
    const auto dataWindow = houseBox(file.header().dataWindow());
    const QStringList channels = channelsOf(file.header());
    if (!displayWindow || !dataWindow || channels.isEmpty())
        return UT_Error{QStringLiteral("its windows or channels are of a kind that this program does not read")};

    auto picture = IIO_Picture::create(IIO_SampleType::FLOAT, *displayWindow, *dataWindow, channels);
    if (!picture)
        return picture;
    file.setFrameBuffer(frameBufferOf(channels, *dataWindow, picture->row<float>(dataWindow->y1).data()));
    file.readPixels(dataWindow->y1, dataWindow->y2 - 1);
    for (auto it = file.header().begin(); it != file.header().end(); ++it)
        if (const auto* text = dynamic_cast<const Imf::StringAttribute*>(&it.attribute());
            text && std::string_view(it.name()) != kIIO_kritaLayers)
            picture->metadata().set(QString::fromUtf8(it.name()), QString::fromStdString(text->value()));
    return picture;
}

UT_Error readError(const QString& path, const QString& why)
{
    return {QStringLiteral("cannot read \"%1\": %2").arg(path, why)};
}

} // namespace

UT_Result<void> IIO_writeExr(const QString& path, const IIO_Picture& picture, const IIO_WriteOptions& options)
{
    if (const QString key = unfitKey(picture.metadata()); !key.isEmpty())
        return UT_Error{QStringLiteral("cannot write \"%1\": \"%2\" cannot be a metadata key").arg(path, key)};
    IIO_AtomicFile file(path);
    if (auto opened = file.open(); !opened)
        return opened;
    try {
        writeStream(file.device(), path.toUtf8(), picture, options);
    } catch (const std::exception& exception) {
        if (auto abandoned = file.abandon(); !abandoned)
            return abandoned;
        return UT_Error{QStringLiteral("cannot write \"%1\": %2").arg(path, QString::fromLocal8Bit(exception.what()))};
    }
    return file.commit();
}

UT_Result<IIO_Picture> IIO_readExr(const QString& path)
{
    QFile file(path);
    if (const UT_Result<void> opened = UT_openPlainFile(file); !opened)
        return readError(path, opened.error().text);
    if (const auto checked = IIO_checkExrHeader(file); !checked)
        return checked.error().at(QStringLiteral("cannot read \"%1\"").arg(path));
    try {
        auto picture = readStream(file, path.toUtf8());
        if (!picture)
            return picture.error().at(QStringLiteral("cannot read \"%1\"").arg(path));
        return picture;
    } catch (const std::exception& exception) {
        return readError(path, QString::fromLocal8Bit(exception.what()));
    }
}
