// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// "maindoc.xml" lists layers from the top down; groups hold lists of their own.
#include "QuarvelDrawingIO/private/layered/DIO_Krita.h"

#include "QuarvelDrawingIO/private/layered/DIO_KritaTiles.h"
#include "QuarvelDrawingIO/private/layered/DIO_ZipFile.h"

#include <QSet>
#include <QXmlStreamReader>

#include <algorithm>
#include <optional>

namespace {

// The groups around a layer.
struct Around
{
    QString names;         // "head/eyes/"
    DIO_BitmapGroup group; // the outermost
    double opacity = 1.0;
    bool visible = true;
    int depth = 0;
};

std::optional<DIO_KritaForm> formOf(const QString& colours)
{
    if (colours == QLatin1String("RGBA"))
        return DIO_KritaForm{4, 1};
    if (colours == QLatin1String("RGBA16"))
        return DIO_KritaForm{4, 2};
    if (colours == QLatin1String("GRAYA"))
        return DIO_KritaForm{2, 1};
    if (colours == QLatin1String("GRAYAU16"))
        return DIO_KritaForm{2, 2};
    return {};
}

class KritaFile
{
public:
    explicit KritaFile(const DIO_ZipFile& archive) : _archive(archive) {}

    UT_Result<DIO_BitmapLayers> read()
    {
        constexpr qint64 kMostText = 16'000'000;
        const UT_Result<QByteArray> text = _archive.read(QStringLiteral("maindoc.xml"), kMostText);
        if (!text)
            return text.error();
        _xml.addData(*text);
        if (!_xml.readNextStartElement() || !_xml.readNextStartElement() || _xml.name() != QLatin1String("IMAGE"))
            return DIO_damaged();
        _folder = value("name") + QStringLiteral("/layers/");
        _made.size = QSize(value("width").toInt(), value("height").toInt());
        DIO_PixelBudget canvas;
        if (UT_Result<void> taken = canvas.take(_made.size.width(), _made.size.height()); !taken)
            return taken.error();
        if (UT_Result<void> read = readLists({}); !read)
            return read.error();
        if (_xml.hasError())
            return DIO_damaged();
        std::ranges::reverse(_made.layers);
        DIO_warnOfBlendModes(_modes, _made.warnings);
        if (!_left.isEmpty())
            _made.warnings.append(
                QStringLiteral("only paint layers are read, of RGB or grey in 8 or 16 bits; left out: %1")
                    .arg(_left.mid(0, 8).join(QStringLiteral(", "))));
        if (!_masked.isEmpty())
            _made.warnings.append(QStringLiteral("layers are shown without their masks and filters: %1")
                                      .arg(_masked.mid(0, 8).join(QStringLiteral(", "))));
        return std::move(_made);
    }

private:
    QString value(const char* name) const { return _xml.attributes().value(QLatin1String(name)).toString(); }

    // The lists "layers" in the current element.
    UT_Result<void> readLists(const Around& around)
    {
        if (around.depth > DIO_kDeepestGroup)
            return DIO_tooDeepGroups();
        while (_xml.readNextStartElement()) {
            if (_xml.name() != QLatin1String("layers")) {
                _xml.skipCurrentElement();
                continue;
            }
            while (_xml.readNextStartElement())
                if (UT_Result<void> read = readLayer(around); !read)
                    return read;
        }
        return {};
    }

    UT_Result<void> readLayer(const Around& around)
    {
        if (++_count > DIO_kMostLayers)
            return DIO_tooManyLayers();
        const QString name = DIO_layerName({}, value("name"));
        const QString type = value("nodetype");
        Around own = around;
        own.names = DIO_layerName(around.names, name);
        own.opacity *= std::clamp(value("opacity").toInt(), 0, 255) / 255.0;
        own.visible = own.visible && value("visible") == QLatin1String("1");
        const QString mode = value("compositeop");
        if (own.visible && mode != QLatin1String("normal") && !mode.isEmpty())
            _modes << QStringLiteral("%1 (%2)").arg(mode, own.names);
        if (type == QLatin1String("grouplayer")) {
            own.group = DIO_outermost(around.group, name, _count);
            own.names += QLatin1Char('/');
            ++own.depth;
            return readLists(own);
        }
        const std::optional<DIO_KritaForm> form = formOf(value("colorspacename"));
        UT_Result<void> made;
        if (own.visible && type == QLatin1String("paintlayer") && form)
            made = readPaint(own, *form);
        else if (own.visible)
            _left << own.names;
        noteMasks(own);
        return made;
    }

    // Reads the rest of a layer's element.
    void noteMasks(const Around& own)
    {
        while (_xml.readNextStartElement()) {
            if (own.visible && _xml.name() == QLatin1String("masks"))
                _masked << own.names;
            _xml.skipCurrentElement();
        }
    }

    UT_Result<void> readPaint(const Around& own, const DIO_KritaForm& form)
    {
        constexpr qint64 kMostBytes = 500'000'000;
        const QString file = _folder + value("filename");
        // Krita gives each layer a file of its own; thousands that name one large file would all be decoded.
        if (_files.contains(file))
            return DIO_damaged();
        _files.insert(file);
        const UT_Result<QByteArray> tiles = _archive.read(file, kMostBytes);
        if (!tiles)
            return tiles.error();
        const UT_Result<QByteArray> usual =
            _archive.read(file + QStringLiteral(".defaultpixel"), static_cast<qint64>(form.pixelBytes()));
        if (!usual)
            return usual.error();
        const auto pixels = DIO_readKritaTiles(DIO_bytesOf(*tiles), form, DIO_bytesOf(*usual), _made.size, _budget);
        if (!pixels)
            return pixels.error();
        const QPoint offset(value("x").toInt(), value("y").toInt());
        if (!DIO_isClose(offset))
            return DIO_damaged();
        _made.layers.push_back({own.names, own.group, {{pixels->image, pixels->place + offset, own.opacity}}, {0}});
        return {};
    }

    const DIO_ZipFile& _archive;
    QXmlStreamReader _xml;
    DIO_PixelBudget _budget;
    DIO_BitmapLayers _made;
    QString _folder;
    QSet<QString> _files; // of the layers that were read
    QStringList _modes;
    QStringList _left;
    QStringList _masked;
    int _count = 0;
};

} // namespace

UT_Result<DIO_BitmapLayers> DIO_readKrita(const QString& path)
{
    const UT_Result<DIO_ZipFile> archive = DIO_ZipFile::open(path);
    if (!archive)
        return archive.error();
    return KritaFile(*archive).read();
}
