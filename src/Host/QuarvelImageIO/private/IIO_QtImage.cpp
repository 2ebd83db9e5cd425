// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts row by row and calls Qt's readers and writers.
#include "QuarvelImageIO/private/IIO_QtImage.h"

#include "QuarvelImageIO/IIO_AtomicFile.h"
#include "QuarvelImageIO/IIO_Samples.h"

#include <QImageReader>
#include <QImageWriter>

#include <array>

namespace {

// 96 dots per inch. Without this, Qt would store the density of the screen, and files would differ between machines.
constexpr int kDotsPerMetre = 3780;

// Which channel of the picture each channel of the image comes from; -1 for none.
struct Form
{
    QImage::Format format = QImage::Format_Invalid;
    int imageChannels = 0;
    std::array<int, 4> source{};
};

Form formOf(const QStringList& channels)
{
    if (channels == IIO_channelsRgba())
        return {QImage::Format_RGBA64, 4, {0, 1, 2, 3}};
    if (channels == IIO_channelsRgb())
        return {QImage::Format_RGBX64, 4, {0, 1, 2, -1}};
    if (channels == IIO_channelsGreyAlpha())
        return {QImage::Format_RGBA64, 4, {0, 0, 0, 1}};
    if (channels == IIO_channelsGrey())
        return {QImage::Format_Grayscale16, 1, {0}};
    return {};
}

UT_Error noMemory(const QSize& size)
{
    return UT_noMemory(QStringLiteral("an image of %1 x %2 pixels").arg(size.width()).arg(size.height()),
                       QStringLiteral("make it smaller"));
}

UT_Result<void> addTexts(QImage& image, const IIO_Metadata& metadata)
{
    for (const auto& [key, value] : metadata.entries()) {
        if (!IIO_Metadata::isValidKey(key))
            return UT_Error{QStringLiteral("\"%1\" cannot be a metadata key; take 1 to 79 Latin letters").arg(key)};
        image.setText(key, value);
    }
    return {};
}

// Converts a row of the picture to one of the image; channels that the picture lacks get the full value.
template<typename Sample>
void convertRow(std::span<const Sample> source, int sourceChannels, const Form& form, std::uint16_t* target)
{
    const auto pixels = source.size() / static_cast<std::size_t>(sourceChannels);
    for (std::size_t x = 0; x < pixels; ++x) {
        const Sample* pixel = source.data() + x * static_cast<std::size_t>(sourceChannels);
        for (int c = 0; c < form.imageChannels; ++c) {
            const int from = form.source[static_cast<std::size_t>(c)];
            *target++ = from < 0 ? std::uint16_t{65535} : IIO_toSample16(pixel[from]);
        }
    }
}

template<typename Sample>
void convertRows(const IIO_Picture& picture, const Form& form, QImage& image)
{
    const Math::Box2di& frame = picture.displayWindow();
    const Math::Box2di shared = frame.getIntersection(picture.dataWindow());
    if (shared.isEmpty())
        return;
    const auto first = static_cast<std::size_t>(shared.x1 - picture.dataWindow().x1);
    const auto channels = static_cast<std::size_t>(picture.channelCount());
    const auto length = static_cast<std::size_t>(shared.width()) * channels;
    for (int y = shared.y1; y < shared.y2; ++y) {
        auto* target = reinterpret_cast<std::uint16_t*>(image.scanLine(y - frame.y1));
        target += std::ptrdiff_t{shared.x1 - frame.x1} * form.imageChannels;
        convertRow(picture.row<Sample>(y).subspan(first * channels, length), picture.channelCount(), form, target);
    }
}

UT_Result<QImage> convertedImage(const IIO_Picture& picture, const Form& form)
{
    const Math::Box2di& frame = picture.displayWindow();
    QImage image(frame.width(), frame.height(), form.format);
    if (image.isNull())
        return noMemory({frame.width(), frame.height()});
    if (!picture.dataWindow().contains(frame))
        image.fill(0);
    if (picture.sampleType() == IIO_SampleType::UINT16)
        convertRows<std::uint16_t>(picture, form, image);
    else
        convertRows<float>(picture, form, image);
    return image;
}

bool canShare(const IIO_Picture& picture, const Form& form)
{
    return picture.sampleType() == IIO_SampleType::UINT16 && picture.displayWindow() == picture.dataWindow() &&
           picture.channelCount() == form.imageChannels;
}

// Qt copies the samples before the image could be written to.
QImage sharedImage(const IIO_Picture& picture, const Form& form)
{
    const auto* samples = picture.row<std::uint16_t>(picture.dataWindow().y1).data();
    const auto bytesPerRow = qsizetype{picture.width()} * form.imageChannels * qsizetype{sizeof(std::uint16_t)};
    return QImage(reinterpret_cast<const uchar*>(samples), picture.width(), picture.height(), bytesPerRow, form.format);
}

} // namespace

UT_Result<QImage> IIO_imageOf(const IIO_Picture& picture)
{
    const Form form = formOf(picture.channels());
    if (form.format == QImage::Format_Invalid)
        return UT_Error{QStringLiteral("this format holds colours (R G B, with or without A) or grey (Y), not the "
                                       "channels %1; write an exr file")
                            .arg(picture.channels().join(QLatin1Char(' ')))};
    auto image =
        canShare(picture, form) ? UT_Result<QImage>(sharedImage(picture, form)) : convertedImage(picture, form);
    if (!image)
        return image;
    image->setDotsPerMeterX(kDotsPerMetre);
    image->setDotsPerMeterY(kDotsPerMetre);
    if (const auto texts = addTexts(*image, picture.metadata()); !texts)
        return texts.error();
    return image;
}

UT_Result<QImage> IIO_image8(const QImage& image, bool alpha)
{
    const bool grey = image.format() == QImage::Format_Grayscale16;
    const QImage::Format withColour = alpha ? QImage::Format_RGBA8888 : QImage::Format_RGBX8888;
    QImage result(image.size(), grey ? QImage::Format_Grayscale8 : withColour);
    if (result.isNull())
        return noMemory(image.size());
    const int samples = image.width() * (grey ? 1 : 4);
    for (int y = 0; y < image.height(); ++y) {
        const auto* source = reinterpret_cast<const std::uint16_t*>(image.constScanLine(y));
        uchar* target = result.scanLine(y);
        for (int i = 0; i < samples; ++i)
            target[i] = IIO_toSample8(source[i]);
        // The fourth channel of RGBX8888 must have the full value.
        for (int i = 3; !grey && !alpha && i < samples; i += 4)
            target[i] = 255;
    }
    result.setDotsPerMeterX(kDotsPerMetre);
    result.setDotsPerMeterY(kDotsPerMetre);
    for (const QString& key : image.textKeys())
        result.setText(key, image.text(key));
    return result;
}

UT_Result<IIO_Picture> IIO_pictureOf(const QImage& image)
{
    const bool grey = image.format() == QImage::Format_Grayscale8 || image.format() == QImage::Format_Grayscale16;
    const bool alpha = image.hasAlphaChannel();
    const QImage wide = image.convertToFormat(grey ? QImage::Format_Grayscale16 : QImage::Format_RGBA64);
    if (wide.isNull())
        return noMemory(image.size());

    const QStringList colours = alpha ? IIO_channelsRgba() : IIO_channelsRgb();
    auto picture = IIO_Picture::create(IIO_SampleType::UINT16, {image.width(), image.height()},
                                       grey ? IIO_channelsGrey() : colours);
    if (!picture)
        return picture;
    const int step = grey ? 1 : 4;
    for (int y = 0; y < wide.height(); ++y) {
        const auto* source = reinterpret_cast<const std::uint16_t*>(wide.constScanLine(y));
        std::uint16_t* target = picture->row<std::uint16_t>(y).data();
        for (int x = 0; x < wide.width(); ++x, source += step)
            target = std::copy_n(source, picture->channelCount(), target);
    }
    for (const QString& key : image.textKeys())
        picture->metadata().set(key, image.text(key));
    return picture;
}

UT_Result<void> IIO_writeImage(const QString& path, const QImage& image, const QByteArray& format, int quality)
{
    IIO_AtomicFile file(path);
    if (auto opened = file.open(); !opened)
        return opened;
    QImageWriter writer(&file.device(), format);
    writer.setQuality(quality);
    if (writer.write(image))
        return file.commit();
    // If a write to the disk failed, the file's error explains the failure better than Qt's.
    if (auto abandoned = file.abandon(); !abandoned)
        return abandoned;
    return UT_Error{
        QStringLiteral("cannot write \"%1\": %2; try another size or format").arg(path, writer.errorString())};
}

UT_Result<IIO_Picture> IIO_readImage(const QString& path, const QByteArray& format)
{
    QImageReader reader(path, format);
    const QImage image = reader.read();
    if (image.isNull())
        return UT_Error{QStringLiteral("cannot read \"%1\": %2").arg(path, reader.errorString())};
    return IIO_pictureOf(image);
}
