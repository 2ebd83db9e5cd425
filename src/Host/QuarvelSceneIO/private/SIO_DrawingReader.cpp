// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads drawings from XML.
#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelSceneIO/private/SIO_Drawing.h"
#include "QuarvelSceneIO/private/SIO_DrawingNames.h"
#include "QuarvelSceneIO/private/SIO_Limits.h"
#include "QuarvelSceneIO/private/SIO_PathText.h"
#include "QuarvelSceneIO/private/SIO_PictureText.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

using namespace SIO_DrawingNames;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SIO_Drawing)
};

// Reads one drawing, shape by shape.
class Reader
{
public:
    Reader(const SIO_XmlContext& context, SIO_Drawing& drawing) : _context(context), _drawing(drawing) {}

    UT_Result<void> readArts(const QDomElement& root)
    {
        _context.keepOtherAttributes(root, {kPIO_atributeVersion, kAttributePalette}, _drawing.unknown);
        for (QDomElement child = root.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
            const auto art = std::find(kArts.begin(), kArts.end(), PO_attribute(child, kAttributeName));
            if (child.tagName() != kElementArt || art == kArts.end())
                _context.keepElement(child, _drawing.unknown);
            else if (auto read = readArt(child, static_cast<GR_Art>(art - kArts.begin())); !read)
                return read;
        }
        return {};
    }

private:
    UT_Result<void> readArt(const QDomElement& element, GR_Art art)
    {
        PO_UnknownXml unknown = _drawing.unknownOfArts[art];
        _context.keepOtherAttributes(element, {kAttributeName}, unknown);
        for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
            if (child.tagName() != kElementShape)
                _context.keepElement(child, unknown);
            else if (auto read = readShape(child, art); !read)
                return read;
        }
        _drawing.unknownOfArts[art] = unknown;
        return {};
    }

    UT_Result<void> readShape(const QDomElement& element, GR_Art art)
    {
        if (++_shapeCount > kSIO_maxShapes)
            return _context.error(element, Texts::tr("a drawing with more than %1 shapes").arg(kSIO_maxShapes));
        CELVEC_Shape shape;
        SIO_Drawing::ShapeExtras extras;
        if (element.hasAttribute(kAttributeColour) && !shape.color.parseXml(PO_attribute(element, kAttributeColour)))
            return _context.error(element, Texts::tr("the colour is not an identifier of 16 hexadecimal digits"));
        if (element.hasAttribute(kAttributeOpacity))
            shape.opacity = PO_doubleAttribute(element, kAttributeOpacity).value_or(std::nan(""));
        if (!std::isfinite(shape.opacity))
            return _context.error(element, Texts::tr("the opacity is not a number"));
        _context.keepOtherAttributes(element, {kAttributeColour, kAttributeOpacity}, extras.shape);
        if (auto read = readParts(element, shape, extras); !read)
            return read;
        const std::size_t index = _drawing.shapes(art).size();
        if (!extras.shape.isEmpty() || !extras.path.isEmpty() || !extras.clip.isEmpty() || !extras.picture.isEmpty())
            _drawing.shapeExtras[{art, index}] = extras;
        _drawing.addShape(art, std::move(shape));
        return {};
    }

    UT_Result<void> readParts(const QDomElement& element, CELVEC_Shape& shape, SIO_Drawing::ShapeExtras& extras)
    {
        bool hasPath = false;
        for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
            const QString name = child.tagName();
            UT_Result<void> read;
            if (name == kElementPath && !hasPath) {
                read = readPath(child, shape.path, extras.path);
                hasPath = true;
            } else if (name == kElementClip && !shape.clip) {
                read = readPath(child, shape.clip.emplace(), extras.clip);
            } else if (name == kElementPicture && shape.picture.isNull()) {
                read = readPicture(child, shape.picture, extras.picture);
            } else {
                _context.keepElement(child, extras.shape);
            }
            if (!read)
                return read;
        }
        if (!hasPath)
            return _context.error(element, Texts::tr("the shape has no path"));
        return {};
    }

    UT_Result<void> readPath(const QDomElement& element, QPainterPath& path, PO_UnknownXml& unknown)
    {
        const QString fill = PO_attribute(element, kAttributeFill, kEvenOdd);
        if (fill != kEvenOdd && fill != kNonZero)
            return _context.error(element, Texts::tr("the fill rule is neither \"evenodd\" nor \"nonzero\""));
        const auto parsed =
            SIO_parsePath(element.attribute(kAttributePoints), fill == kNonZero ? Qt::WindingFill : Qt::OddEvenFill);
        if (!parsed)
            return _context.error(element, Texts::tr("the points are not a path"));
        path = *parsed;
        _context.keepOtherAttributes(element, {kAttributePoints, kAttributeFill}, unknown);
        _context.keepAllElements(element, unknown);
        return {};
    }

    UT_Result<void> readPicture(const QDomElement& element, QImage& picture, PO_UnknownXml& unknown)
    {
        const bool premultiplied = PO_boolAttribute(element, kAttributePremultiplied).value_or(false);
        const auto parsed = SIO_parsePicture(PO_text(element), premultiplied);
        if (!parsed)
            return _context.error(element, Texts::tr("the picture is damaged or too large"));
        picture = *parsed;
        _pictureBytes += picture.sizeInBytes();
        if (_pictureBytes > kSIO_maxDrawingPictureBytes)
            return _context.error(element, Texts::tr("the drawing's pictures are too large"));
        _context.keepOtherAttributes(element, {kAttributePremultiplied}, unknown);
        _context.keepAllElements(element, unknown);
        return {};
    }

    const SIO_XmlContext& _context;
    SIO_Drawing& _drawing;
    int _shapeCount = 0;
    qint64 _pictureBytes = 0;
};

} // namespace

SIO_Drawing::~SIO_Drawing() = default;

UT_SharedPtr<CELVEC_Kvd> SIO_Drawing::withPalette(const CM_SharedPtr<CM_Palette>& palette) const
{
    UT_SharedPtr<SIO_Drawing> copy(new SIO_Drawing(*this));
    copy->setPalette(palette);
    return copy;
}

UT_Result<UT_SharedPtr<SIO_Drawing>> SIO_readDrawing(const QByteArray& bytes, const SIO_PaletteFinder& palettes,
                                                     const SIO_XmlContext& context)
{
    const auto document = PO_parseDocument(bytes, context.file(), kSIO_maxDrawingParts);
    if (!document)
        return document.error();
    const QDomElement root = document->documentElement();
    if (root.tagName() != kElementDrawing)
        return context.error(root, Texts::tr("<%1> is not a drawing").arg(root.tagName()));
    context.checkVersion(root, kVersion);
    CM_SharedPtr<CM_Palette> palette;
    if (root.hasAttribute(kAttributePalette)) {
        UT_Id id;
        if (id.parseXml(PO_attribute(root, kAttributePalette)))
            palette = palettes(id);
        if (!palette)
            return context.error(
                root, Texts::tr("the scene has no palette \"%1\"").arg(PO_attribute(root, kAttributePalette)));
    }
    auto drawing = UT_makeShared<SIO_Drawing>(palette);
    if (const auto read = Reader(context, *drawing).readArts(root); !read)
        return read.error();
    return drawing;
}
