// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// GIF and WebP by Qt's readers, which put the frames together; animated PNG by our own.
#include "QuarvelDrawingIO/private/layered/DIO_MovingPicture.h"

#include "QuarvelBaseCore/UT_PlainFile.h"
#include "QuarvelDrawingIO/private/layered/DIO_Apng.h"
#include "QuarvelDrawingIO/private/layered/DIO_FileLimits.h"
#include "QuarvelDrawingIO/private/layered/DIO_FrameTimes.h"
#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>

namespace {

// Pictures that follow each other. A picture that equals the one before is shown for longer.
class Film
{
public:
    UT_Result<void> add(const QImage& picture, int milliseconds)
    {
        if (_layer.cels.size() >= DIO_kMostFrames)
            return UT_Error{QStringLiteral("it has more than the %1 frames that can be read").arg(DIO_kMostFrames)};
        const bool isDeep = picture.pixelFormat().redSize() > 8;
        const QImage form = GR_imageInFormat(picture, isDeep ? QImage::Format_RGBA64 : QImage::Format_ARGB32);
        const bool isNew = _layer.cels.empty() || _layer.cels.back().image != form;
        if (isNew) {
            if (UT_Result<void> taken = _budget.take(form.width(), form.height()); !taken)
                return taken;
            _layer.cels.push_back({form, {}, 1.0});
        }
        _cels.push_back(static_cast<int>(_layer.cels.size()) - 1);
        _times.push_back(milliseconds);
        return {};
    }

    UT_Result<DIO_BitmapLayers> take(const QString& path)
    {
        if (_cels.empty())
            return DIO_damaged();
        DIO_BitmapLayers made;
        made.size = _layer.cels.front().image.size();
        const DIO_FrameTimes times = DIO_frameTimes(_times);
        for (std::size_t i = 0; i < _cels.size(); ++i)
            _layer.shown.insert(_layer.shown.end(), static_cast<std::size_t>(times.counts[i]), _cels[i]);
        made.frames = static_cast<int>(_layer.shown.size());
        made.frameRate = times.frameRate;
        _layer.name = QFileInfo(path).completeBaseName();
        made.layers.push_back(std::move(_layer));
        return made;
    }

private:
    DIO_BitmapLayer _layer;
    DIO_PixelBudget _budget;
    std::vector<int> _cels;
    std::vector<int> _times;
};

UT_Result<void> readByQt(const QByteArray& bytes, Film& film)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    DIO_PixelBudget canvas;
    if (UT_Result<void> taken = canvas.take(size.width(), size.height()); !taken)
        return taken;
    const int count = reader.imageCount();
    int read = 0;
    for (QImage picture; reader.read(&picture); ++read)
        if (UT_Result<void> added = film.add(picture, reader.nextImageDelay()); !added)
            return added;
    return count > 0 && read < count ? DIO_damaged() : UT_Result<void>();
}

} // namespace

bool DIO_isMovingPicture(const QString& path)
{
    if (!UT_checkPlainFile(path))
        return false;
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    if (reader.format() == "png") {
        const UT_Result<QByteArray> bytes = DIO_readBytes(path);
        return bytes && DIO_isApng(DIO_bytesOf(*bytes));
    }
    return reader.supportsAnimation() && reader.imageCount() > 1;
}

UT_Result<DIO_BitmapLayers> DIO_readMovingPicture(const QString& path)
{
    const UT_Result<QByteArray> bytes = DIO_readBytes(path);
    if (!bytes)
        return bytes.error();
    Film film;
    const auto take = [&](const QImage& picture, int milliseconds) { return film.add(picture, milliseconds); };
    const auto file = DIO_bytesOf(*bytes);
    if (UT_Result<void> read = DIO_isApng(file) ? DIO_readApng(file, take) : readByQt(*bytes, film); !read)
        return read.error();
    return film.take(path);
}
