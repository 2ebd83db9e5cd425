// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// An SVG file passes through these stages: bytes, tree, flattened document, painting on the recording device, drawing.
#include "QuarvelDrawingIO/DIO_SvgReader.h"

#include "QuarvelBaseCore/UT_PlainFile.h"
#include "QuarvelDrawingIO/private/DIO_Gunzip.h"
#include "QuarvelDrawingIO/private/DIO_PictureCover.h"
#include "QuarvelDrawingIO/private/DIO_ShapeCollector.h"
#include "QuarvelDrawingIO/private/DIO_SvgFlattener.h"
#include "QuarvelDrawingIO/private/DIO_SvgRecording.h"
#include "QuarvelDrawingIO/private/DIO_SvgSize.h"

#include <QFileInfo>

namespace {

constexpr qint64 kMaxFileSize = 64 * 1024 * 1024;

// Shapes with impossible coordinates were dropped before, so no bound is infinite.
QRectF boundsOf(const DIO_Drawing& drawing)
{
    QRectF bounds;
    for (const DIO_Layer& layer : drawing.layers) {
        for (const DIO_Shape& shape : layer.shapes) {
            const QRectF whole = shape.path.boundingRect();
            bounds |= shape.clip ? whole & shape.clip->boundingRect() : whole;
        }
    }
    return bounds;
}

void nameLayers(DIO_Drawing& drawing)
{
    const bool whole = drawing.layers.size() == 1;
    for (DIO_Layer& layer : drawing.layers)
        if (!layer.declared)
            layer.name = whole ? drawing.name : QStringLiteral("Loose shapes");
}

void addLayerWarnings(DIO_Drawing& drawing, const DIO_SvgLayers& layers, const QStringList& hidden)
{
    if (!hidden.isEmpty())
        drawing.warnings.append(QStringLiteral("hidden layers are left out: ") + hidden.join(QStringLiteral(", ")));
    QStringList empty = layers.names;
    for (const QString& name : hidden)
        empty.removeOne(name);
    for (const DIO_Layer& layer : drawing.layers)
        if (layer.declared)
            empty.removeOne(layer.name);
    if (!empty.isEmpty())
        drawing.warnings.append(QStringLiteral("layers that paint nothing are left out: ") +
                                empty.join(QStringLiteral(", ")));
}

QString emptyText(const QString& path, const DIO_FlatSvg& flat)
{
    QString text = path + QStringLiteral(": the drawing is empty: nothing in it is filled or stroked");
    if (!flat.hiddenLayers.isEmpty())
        text += QStringLiteral("; hidden layers are left out: ") + flat.hiddenLayers.join(QStringLiteral(", "));
    for (const QString& warning : flat.warnings)
        text += QStringLiteral("; ") + warning;
    return text;
}

} // namespace

UT_Result<DIO_Drawing> DIO_readSvg(const QString& path, DIO_Grouping grouping, DIO_Blank blank)
{
    QFile file(path);
    if (const UT_Result<void> opened = UT_openFile(file); !opened)
        return UT_Error{QStringLiteral("%1: %2").arg(path, opened.error().text)};
    const QByteArray data = file.read(kMaxFileSize + 1);
    if (file.error() != QFileDevice::NoError)
        return UT_Error{QStringLiteral("%1: the file cannot be read: %2").arg(path, file.errorString())};
    return DIO_readSvgData(data, path, grouping, blank);
}

UT_Result<DIO_Drawing> DIO_readSvgData(const QByteArray& data, const QString& path, DIO_Grouping grouping,
                                       DIO_Blank blank)
{
    if (data.size() > kMaxFileSize)
        return UT_Error{QStringLiteral("%1: the file is larger than %2 MiB, the most that is read of a drawing")
                            .arg(path, QString::number(kMaxFileSize / (1024 * 1024)))};
    if (data.trimmed().isEmpty())
        return UT_Error{QStringLiteral("%1: the file is empty").arg(path)};
    if (DIO_isGzip(data)) {
        const std::optional<QByteArray> unpacked = DIO_gunzip(data, kMaxFileSize);
        if (!unpacked || DIO_isGzip(*unpacked))
            return UT_Error{QStringLiteral("%1: the packed file is damaged or incomplete").arg(path)};
        return DIO_readSvgData(*unpacked, path, grouping, blank);
    }

    UT_Result<DIO_XmlTree> tree = DIO_readXmlTree(data, path);
    if (!tree)
        return tree.error();
    tree->index();
    const DIO_SvgLayers layers = DIO_findLayers(tree->root, grouping);
    const DIO_SvgSize size = DIO_readSvgSize(tree->root);
    const UT_Result<DIO_FlatSvg> flat = DIO_flattenSvg(*tree, layers, size.viewport());
    if (!flat)
        return UT_Error{QStringLiteral("%1: the drawing %2").arg(path, flat.error().text)};

    DIO_ShapeCollector collector(layers, flat->servers, flat->picturePixels);
    int undashed = 0;
    if (!DIO_recordSvg(flat->document, size.stretchY, collector, undashed))
        return UT_Error{QStringLiteral("%1: the SVG library cannot read the drawing").arg(path)};
    DIO_Drawing drawing = collector.takeDrawing();
    if (drawing.layers.empty() && blank == DIO_Blank::REFUSED)
        return UT_Error{emptyText(path, *flat)};

    drawing.name = QFileInfo(path).completeBaseName();
    nameLayers(drawing);
    drawing.viewBox = size.isKnown() ? size.viewBox : boundsOf(drawing);
    drawing.size = size.isKnown() ? size.size : drawing.viewBox.size();
    addLayerWarnings(drawing, layers, flat->hiddenLayers);
    drawing.warnings = size.warnings + drawing.warnings + flat->warnings;
    DIO_limitPictures(drawing);
    if (undashed > 0)
        drawing.warnings.append(QStringLiteral("too finely dashed lines are drawn solid: %1").arg(undashed));
    return drawing;
}
