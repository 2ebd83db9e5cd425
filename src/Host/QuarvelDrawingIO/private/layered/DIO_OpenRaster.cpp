// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// "stack.xml" lists layers and stacks of them from the top down.
#include "QuarvelDrawingIO/private/layered/DIO_OpenRaster.h"

#include "QuarvelDrawingIO/private/DIO_PngParts.h"
#include "QuarvelDrawingIO/private/layered/DIO_FileLimits.h"
#include "QuarvelDrawingIO/private/layered/DIO_ZipFile.h"
#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <QBuffer>
#include <QHash>
#include <QImageReader>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

// The stacks around a layer.
struct Around
{
    QString names;         // "head/eyes/"
    DIO_BitmapGroup group; // the outermost
    double opacity = 1.0;
    bool visible = true;
};

class StackReader
{
public:
    explicit StackReader(const DIO_ZipFile& archive) : _archive(archive) {}

    UT_Result<DIO_BitmapLayers> read()
    {
        constexpr qint64 kMostText = 16'000'000;
        const UT_Result<QByteArray> text = _archive.read(QStringLiteral("stack.xml"), kMostText);
        if (!text)
            return text.error();
        _xml.addData(*text);
        if (!_xml.readNextStartElement() || _xml.name() != QLatin1String("image"))
            return DIO_damaged();
        if (UT_Result<void> sized = readSize(); !sized)
            return sized.error();
        while (_xml.readNextStartElement()) {
            if (UT_Result<void> read = readElement({}, 0); !read)
                return read.error();
        }
        if (_xml.hasError())
            return DIO_damaged();
        std::ranges::reverse(_made.layers);
        DIO_warnOfBlendModes(_modes, _made.warnings);
        return std::move(_made);
    }

private:
    QString value(const char* name) const { return _xml.attributes().value(QLatin1String(name)).toString(); }

    UT_Result<void> readSize()
    {
        const int width = value("w").toInt();
        const int height = value("h").toInt();
        _made.size = QSize(width, height);
        DIO_PixelBudget canvas;
        return canvas.take(width, height);
    }

    UT_Result<void> readElement(const Around& around, int depth)
    {
        const bool isLayer = _xml.name() == QLatin1String("layer");
        if (!isLayer && _xml.name() != QLatin1String("stack")) {
            _xml.skipCurrentElement();
            return {};
        }
        // Depth 0 is the root of all stacks, an element "stack" of its own.
        if (depth > DIO_kDeepestGroup)
            return DIO_tooDeepGroups();
        Around own = ownOf(around, depth == 0 && !isLayer);
        if (isLayer) {
            UT_Result<void> read = readLayer(own);
            _xml.skipCurrentElement();
            return read;
        }
        if (depth > 0)
            own.group = DIO_outermost(around.group, value("name"), ++_groups);
        while (_xml.readNextStartElement())
            if (UT_Result<void> read = readElement(own, depth + 1); !read)
                return read;
        return {};
    }

    // What the element adds to what is around it. The root of all stacks has no name; a layer in its place has one.
    Around ownOf(const Around& around, bool isRoot)
    {
        Around own = around;
        bool isNumber = false;
        const double opacity = value("opacity").toDouble(&isNumber);
        own.opacity *= isNumber ? std::clamp(opacity, 0.0, 1.0) : 1.0;
        own.visible = own.visible && value("visibility") != QLatin1String("hidden");
        if (isRoot)
            return own;
        const QString name = DIO_layerName({}, value("name"));
        const QString mode = value("composite-op").remove(QLatin1String("svg:"));
        // MyPaint's usual mode mixes colours as pigments do; coverage is that of the normal mode.
        const bool isUsual =
            mode.isEmpty() || mode == QLatin1String("src-over") || mode == QLatin1String("mypaint:spectral-wgm");
        if (own.visible && !isUsual)
            _modes << QStringLiteral("%1 (%2)").arg(mode, own.names + name);
        own.names = DIO_layerName(around.names, name) + QLatin1Char('/');
        return own;
    }

    // What MyPaint puts below all layers: it fills the picture, and belongs to the place where one paints.
    bool isPaper() const
    {
        return std::ranges::any_of(_xml.attributes(), [](const QXmlStreamAttribute& attribute) {
            return attribute.name() == QLatin1String("background-tile");
        });
    }

    UT_Result<void> readLayer(const Around& own)
    {
        if (++_count > DIO_kMostLayers)
            return DIO_tooManyLayers();
        if (!own.visible || !(own.opacity > 0.0))
            return {};
        if (isPaper()) {
            _made.warnings.append(QStringLiteral("MyPaint's paper is left out: %1").arg(own.names.chopped(1)));
            return {};
        }
        const QPoint place(value("x").toInt(), value("y").toInt());
        if (!DIO_isClose(place))
            return DIO_damaged();
        const UT_Result<QImage> image = readPicture(value("src"));
        if (!image)
            return image.error();
        _made.layers.push_back({own.names.chopped(1), own.group, {{*image, place, own.opacity}}, {0}});
        return {};
    }

    // Layers may share a picture. It is decoded and kept once, and counts for each of them.
    UT_Result<QImage> readPicture(const QString& name)
    {
        if (const auto known = _pictures.constFind(name); known != _pictures.constEnd()) {
            if (UT_Result<void> taken = _budget.take(known->width(), known->height()); !taken)
                return taken.error();
            return *known;
        }
        UT_Result<QImage> picture = decode(name);
        if (picture)
            _pictures.insert(name, *picture);
        return picture;
    }

    UT_Result<QImage> decode(const QString& name)
    {
        constexpr qint64 kMostBytes = 500'000'000;
        UT_Result<QByteArray> bytes = _archive.read(name, kMostBytes);
        if (!bytes)
            return bytes.error();
        const UT_Error damaged{QStringLiteral("\"%1\" in it is not a complete PNG file").arg(name.left(80))};
        QBuffer buffer(&*bytes);
        if (!buffer.open(QIODevice::ReadOnly) || !DIO_checkPngParts(buffer))
            return damaged;
        QImageReader reader(&buffer, "png");
        const QSize size = reader.size();
        if (UT_Result<void> taken = _budget.take(size.width(), size.height()); !taken)
            return taken.error();
        const QImage image = reader.read();
        if (image.isNull())
            return damaged;
        const bool isDeep = image.pixelFormat().redSize() > 8;
        return GR_imageInFormat(image, isDeep ? QImage::Format_RGBA64 : QImage::Format_ARGB32);
    }

    const DIO_ZipFile& _archive;
    QXmlStreamReader _xml;
    DIO_PixelBudget _budget;
    DIO_BitmapLayers _made;
    QHash<QString, QImage> _pictures; // by their names in the archive
    QStringList _modes;
    int _count = 0; // of layers
    int _groups = 0;
};

} // namespace

UT_Result<DIO_BitmapLayers> DIO_readOpenRaster(const QString& path)
{
    const UT_Result<DIO_ZipFile> archive = DIO_ZipFile::open(path);
    if (!archive)
        return archive.error();
    return StackReader(*archive).read();
}
