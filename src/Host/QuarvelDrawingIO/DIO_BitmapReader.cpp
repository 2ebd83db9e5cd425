// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Bitmaps by way of Qt's image readers. Those that read drawings are left out: they would open other files.
#include "QuarvelDrawingIO/DIO_BitmapReader.h"

#include "QuarvelBaseCore/UT_PlainFile.h"
#include "QuarvelDrawingIO/DIO_Palette.h"
#include "QuarvelDrawingIO/private/DIO_AverageColour.h"
#include "QuarvelDrawingIO/private/DIO_PictureForm.h"
#include "QuarvelDrawingIO/private/DIO_PixelLimit.h"
#include "QuarvelDrawingIO/private/DIO_PngParts.h"

#include <QFileInfo>
#include <QImageReader>
#include <QRegularExpression>

namespace {

bool isBitmapFormat(const QByteArray& format)
{
    return !format.isEmpty() && format != "svg" && format != "svgz" && format != "pdf";
}

UT_Error problem(const QString& path, const QString& what)
{
    return {path + QStringLiteral(": ") + what};
}

// Of TIFF files there are kinds that Qt's reader refuses; nothing tells them from damaged ones.
UT_Error unreadable(const QString& path, const QByteArray& format, const QImageReader& reader)
{
    if (format == "tiff")
        return problem(path,
                       QStringLiteral("the TIFF file is damaged, or of a kind that is not read, such as 16 bits a "
                                      "channel in tiles or in CMYK; save it as RGB in strips, or as PNG"));
    return problem(path, QStringLiteral("the picture is damaged: %1").arg(reader.errorString()));
}

bool isTooLarge(const QSize& size)
{
    return qint64{size.width()} * size.height() > DIO_mostPixels();
}

UT_Error tooLarge(const QString& path, const QSize& size)
{
    return problem(path, QStringLiteral("the picture has ") + DIO_tooManyPixels(size.width(), size.height()));
}

DIO_Paint averagePaint(const QImage& image)
{
    return DIO_solidPaint(DIO_averageColour(image));
}

} // namespace

QStringList DIO_bitmapSuffixes()
{
    QStringList suffixes;
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        if (isBitmapFormat(format))
            suffixes.append(QString::fromLatin1(format).toLower());
    // Animated PNG files are PNG files, too: their first frame is read.
    if (suffixes.contains(QLatin1String("png")))
        suffixes.append(QStringLiteral("apng"));
    suffixes.removeDuplicates();
    suffixes.sort();
    return suffixes;
}

UT_Result<QImage> DIO_readImage(const QString& path, QStringList& warnings)
{
    QFile file(path);
    if (const UT_Result<void> opened = UT_openPlainFile(file); !opened)
        return problem(path, opened.error().text);
    if (const UT_Result<void> whole = DIO_checkPngParts(file); !whole)
        return problem(path, whole.error().text);
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    // Asked before anything is read: the reader of a file that failed has none.
    const QByteArray format = reader.format();
    if (!isBitmapFormat(format))
        return problem(path, QStringLiteral("the contents are not a picture of a known kind; is the file complete?"));
    // Asked first: once the reader of TIFF files has looked into one, it counts no more.
    const int count = reader.imageCount();
    const QSize size = reader.size();
    if (size.isValid() && isTooLarge(size))
        return tooLarge(path, size);
    const QImage image = reader.read();
    if (image.isNull())
        return unreadable(path, format, reader);
    if (isTooLarge(image.size()))
        return tooLarge(path, image.size());
    if (count > 1)
        warnings.append(QStringLiteral("only the first of %1 pictures is read").arg(count));
    return DIO_inOneForm(image);
}

DIO_Drawing DIO_bitmapDrawing(const QImage& image, const QString& name)
{
    DIO_Drawing drawing;
    drawing.name = name;
    drawing.size = image.size();
    drawing.viewBox = QRectF(QPointF(), drawing.size);
    drawing.palette.push_back(averagePaint(image));
    DIO_Shape shape;
    shape.path.addRect(drawing.viewBox);
    shape.picture = image;
    drawing.layers.push_back({name, true, {shape}});
    return drawing;
}

QString DIO_nameWithoutNumber(const QString& path)
{
    static const QRegularExpression number(QStringLiteral("[\\s._-]*[0-9]+(?=[^0-9]*$)"));
    const QString stem = QFileInfo(path).completeBaseName();
    const QString name = QString(stem).remove(number);
    return name.isEmpty() ? stem : name;
}

UT_Result<DIO_Drawing> DIO_readBitmap(const QString& path)
{
    QStringList warnings;
    const UT_Result<QImage> image = DIO_readImage(path, warnings);
    if (!image)
        return image.error();
    DIO_Drawing drawing = DIO_bitmapDrawing(*image, DIO_nameWithoutNumber(path));
    drawing.name = QFileInfo(path).completeBaseName();
    drawing.warnings = warnings;
    drawing.opaqueEdge = DIO_hasOpaqueEdge(*image);
    if (!DIO_showsSomething(*image))
        drawing.warnings.append(QStringLiteral("the picture is transparent everywhere: nothing in it shows"));
    return drawing;
}
