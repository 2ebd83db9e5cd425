// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writes drawings as XML.
#include "QuarvelSceneIO/private/SIO_Drawing.h"
#include "QuarvelSceneIO/private/SIO_DrawingNames.h"
#include "QuarvelSceneIO/private/SIO_Limits.h"
#include "QuarvelSceneIO/private/SIO_PathText.h"
#include "QuarvelSceneIO/private/SIO_PictureText.h"

#include <QCoreApplication>

#include <cmath>

using namespace SIO_DrawingNames;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SIO_Drawing)
};

// Writes one drawing. After a problem the output is unusable, so only the problem is returned.
class Writer
{
public:
    Writer(const CELVEC_Kvd& drawing, PO_XmlWriter& xml)
        : _drawing(drawing), _loaded(dynamic_cast<const SIO_Drawing*>(&drawing)), _xml(xml)
    {}

    // Returns why the drawing cannot be written; empty if it was written.
    QString write()
    {
        _xml.startElement(kElementDrawing);
        _xml.attribute(kPIO_atributeVersion, kVersion);
        if (_drawing.palette())
            _xml.attribute(kAttributePalette, _drawing.palette()->GetId().AsString().ToQString());
        if (_loaded)
            _loaded->unknown.writeAttributes(_xml);
        for (const GR_Art art : kGR_allArts)
            writeArt(art);
        if (_loaded)
            _loaded->unknown.writeElements(_xml);
        _xml.endElement();
        return _problem;
    }

private:
    void writeArt(GR_Art art)
    {
        const auto shapes = _drawing.shapes(art);
        PO_UnknownXml unknown;
        if (_loaded && _loaded->unknownOfArts.contains(art))
            unknown = _loaded->unknownOfArts.at(art);
        if (shapes.empty() && unknown.isEmpty())
            return;
        _shapeCount += shapes.size();
        if (_shapeCount > kSIO_maxShapes)
            _problem = Texts::tr("it has more than %1 shapes").arg(kSIO_maxShapes);
        _xml.startElement(kElementArt);
        _xml.attribute(kAttributeName, kArts[static_cast<std::size_t>(art)]);
        unknown.writeAttributes(_xml);
        for (std::size_t i = 0; i < shapes.size() && _problem.isEmpty(); ++i)
            writeShape(shapes[i], extrasOf(art, i));
        unknown.writeElements(_xml);
        _xml.endElement();
    }

    SIO_Drawing::ShapeExtras extrasOf(GR_Art art, std::size_t index) const
    {
        if (!_loaded)
            return {};
        const auto found = _loaded->shapeExtras.find({art, index});
        return found == _loaded->shapeExtras.end() ? SIO_Drawing::ShapeExtras() : found->second;
    }

    void writeShape(const CELVEC_Shape& shape, const SIO_Drawing::ShapeExtras& extras)
    {
        if (!std::isfinite(shape.opacity))
            _problem = Texts::tr("an opacity is not a number");
        _xml.startElement(kElementShape);
        if (!shape.color.isNull())
            _xml.attribute(kAttributeColour, shape.color.AsString().ToQString());
        if (shape.opacity != 1.0)
            _xml.attribute(kAttributeOpacity, shape.opacity);
        extras.shape.writeAttributes(_xml);
        writePath(kElementPath, shape.path, extras.path);
        if (shape.clip)
            writePath(kElementClip, *shape.clip, extras.clip);
        if (!shape.picture.isNull())
            writePicture(shape.picture, extras.picture);
        extras.shape.writeElements(_xml);
        _xml.endElement();
    }

    void writePath(const QString& name, const QPainterPath& path, const PO_UnknownXml& unknown)
    {
        const auto text = SIO_pathText(path);
        if (!text)
            _problem = Texts::tr("a path has a point that is not a number or too far away");
        _xml.startElement(name);
        _xml.attribute(kAttributePoints, text.value_or(QString()));
        _xml.attribute(kAttributeFill, path.fillRule() == Qt::WindingFill ? kNonZero : kEvenOdd);
        unknown.writeAttributes(_xml);
        unknown.writeElements(_xml);
        _xml.endElement();
    }

    void writePicture(const QImage& picture, const PO_UnknownXml& unknown)
    {
        const QImage plain = SIO_plainPicture(picture);
        _pictureBytes += plain.sizeInBytes();
        const auto text = SIO_pictureText(plain);
        if (!text || _pictureBytes > kSIO_maxDrawingPictureBytes)
            _problem = Texts::tr("a picture is too large");
        _xml.startElement(kElementPicture);
        if (plain.pixelFormat().premultiplied() == QPixelFormat::Premultiplied)
            _xml.attribute(kAttributePremultiplied, true);
        unknown.writeAttributes(_xml);
        _xml.text(text.value_or(QString()));
        unknown.writeElements(_xml);
        _xml.endElement();
    }

    const CELVEC_Kvd& _drawing;
    const SIO_Drawing* _loaded;
    PO_XmlWriter& _xml;
    QString _problem;
    std::size_t _shapeCount = 0;
    qint64 _pictureBytes = 0;
};

} // namespace

UT_Result<QByteArray> SIO_writeDrawing(const CELVEC_Kvd& drawing, const QString& name)
{
    QString problem;
    const QByteArray bytes = SIO_document([&](PO_XmlWriter& xml) { problem = Writer(drawing, xml).write(); });
    if (problem.isEmpty() && bytes.size() > kSIO_maxFileBytes)
        problem = Texts::tr("its file would be larger than %1 MiB").arg(kSIO_maxFileBytes >> 20);
    if (!problem.isEmpty())
        return UT_Error{Texts::tr("the drawing \"%1\" cannot be saved: %2").arg(name, problem)};
    return bytes;
}
