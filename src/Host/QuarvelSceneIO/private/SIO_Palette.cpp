// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads and writes palettes as XML.
#include "QuarvelSceneIO/private/SIO_Palette.h"

#include "QuarvelPersistentObj/PIO_XmlWritable.h"
#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelSceneIO/private/SIO_Limits.h"

#include <QCoreApplication>

#include <array>
#include <optional>

namespace {

constexpr int kVersion = 1;

const QString kElementPalette = QStringLiteral("palette");
const QString kElementColour = QStringLiteral("colour");
const QString kAttributeId = QStringLiteral("id");
const QString kAttributeName = QStringLiteral("name");
const QString kAttributeKind = QStringLiteral("kind");
const QString kAttributeType = QStringLiteral("type");
const QString kSolid = QStringLiteral("solid");
const QString kNormal = QStringLiteral("normal");
const QString kGuide = QStringLiteral("guide");
// In the order of CM_TextureColor::enTextureKind.
const std::array<QString, 3> kTextures = {QStringLiteral("gradient"), QStringLiteral("picture"),
                                          QStringLiteral("pattern")};
const QStringList kPaletteAttributes = {kPIO_atributeVersion, kAttributeId, kAttributeName};
const QStringList kColourAttributes = {kAttributeId,           kAttributeName,         kAttributeKind,
                                       kAttributeType,         QStringLiteral("red"),  QStringLiteral("green"),
                                       QStringLiteral("blue"), QStringLiteral("alpha")};

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SIO_Palette)
};

std::optional<std::uint8_t> channel(const QDomElement& element, const char* name, int fallback)
{
    const QString attribute = QString::fromLatin1(name);
    const auto value =
        element.hasAttribute(attribute) ? PO_intAttribute(element, attribute) : std::optional<int>(fallback);
    return value && *value >= 0 && *value <= 255 ? std::optional(static_cast<std::uint8_t>(*value)) : std::nullopt;
}

// The colour of an element; std::nullopt if red, green or blue is missing or a channel is outside 0 .. 255.
std::optional<CM_Rgba> nominal(const QDomElement& element)
{
    const auto red = channel(element, "red", -1);
    const auto green = channel(element, "green", -1);
    const auto blue = channel(element, "blue", -1);
    const auto alpha = channel(element, "alpha", 255);
    if (!red || !green || !blue || !alpha)
        return std::nullopt;
    return CM_Rgba{*red, *green, *blue, *alpha};
}

CM_SharedPtr<CM_BaseColorObj> makeColour(const QDomElement& element, const CM_ColorId_t& id,
                                         SIO_Palette::ColourExtras& extras, const SIO_XmlContext& context)
{
    const UT_String name(PO_attribute(element, kAttributeName));
    const QString kind = PO_attribute(element, kAttributeKind, kSolid);
    for (std::size_t i = 0; i < kTextures.size(); ++i)
        if (kind == kTextures[i]) {
            if (element.hasAttribute(kAttributeType))
                extras.type = PO_attribute(element, kAttributeType);
            return UT_makeShared<CM_TextureColor>(name, static_cast<CM_TextureColor::enTextureKind>(i), id);
        }
    const QString type = PO_attribute(element, kAttributeType, kNormal);
    if (kind != kSolid) {
        extras.kind = kind;
        extras.type = element.hasAttribute(kAttributeType) ? type : QString();
        context.warn(element, Texts::tr("a colour of the kind \"%1\" is shown as a plain one; it is kept").arg(kind));
    } else if (type != kNormal && type != kGuide) {
        extras.type = type;
        context.warn(element, Texts::tr("a colour of the type \"%1\" is taken for a plain one").arg(type));
    }
    return UT_makeShared<CM_Color>(name, type == kGuide ? CM_Color::GUIDE_COLOR : CM_Color::NORMAL_COLOR, id);
}

UT_Result<void> readColour(const QDomElement& element, SIO_Palette& palette, const SIO_XmlContext& context)
{
    CM_ColorId_t id;
    if (!id.parseXml(PO_attribute(element, kAttributeId)) || id.isNull())
        return context.error(element, Texts::tr("the colour has no identifier of 16 hexadecimal digits"));
    const auto rgba = nominal(element);
    if (!rgba)
        return context.error(element, Texts::tr("red, green, blue and alpha are whole numbers from 0 to 255"));
    SIO_Palette::ColourExtras extras;
    const auto colour = makeColour(element, id, extras, context);
    colour->SetNominalColor(*rgba);
    if (!palette.addColor(colour))
        return context.error(element, Texts::tr("a second colour has the identifier %1").arg(id.AsString().c_str()));
    context.keepOtherAttributes(element, kColourAttributes, extras.unknown);
    context.keepAllElements(element, extras.unknown);
    if (!extras.kind.isEmpty() || !extras.type.isEmpty() || !extras.unknown.isEmpty())
        palette.colourExtras[id] = extras;
    return {};
}

void writeKind(PO_XmlWriter& writer, const CM_BaseColorObj& colour, const SIO_Palette::ColourExtras& extras)
{
    QString kind = kSolid;
    QString type;
    if (const auto* solid = dynamic_cast<const CM_Color*>(&colour))
        type = solid->GetColorType() == CM_Color::GUIDE_COLOR ? kGuide : kNormal;
    else if (const auto* texture = dynamic_cast<const CM_TextureColor*>(&colour))
        kind = kTextures[static_cast<std::size_t>(texture->GetTextureKind())];
    if (!extras.kind.isEmpty()) {
        kind = extras.kind;
        type.clear();
    }
    if (!extras.type.isEmpty())
        type = extras.type;
    writer.attribute(kAttributeKind, kind);
    if (!type.isEmpty())
        writer.attribute(kAttributeType, type);
}

void writeColour(PO_XmlWriter& writer, const CM_BaseColorObj& colour, const SIO_Palette::ColourExtras& extras)
{
    const CM_Rgba& rgba = colour.GetNominalColor();
    writer.startElement(kElementColour);
    writer.attribute(kAttributeId, colour.GetColorId().AsString().ToQString());
    writer.attribute(kAttributeName, colour.GetColorName().ToQString());
    writeKind(writer, colour, extras);
    writer.attribute(QStringLiteral("red"), int{rgba.red});
    writer.attribute(QStringLiteral("green"), int{rgba.green});
    writer.attribute(QStringLiteral("blue"), int{rgba.blue});
    writer.attribute(QStringLiteral("alpha"), int{rgba.alpha});
    extras.unknown.writeAttributes(writer);
    extras.unknown.writeElements(writer);
    writer.endElement();
}

} // namespace

SIO_Palette::~SIO_Palette() = default;

UT_Result<UT_SharedPtr<SIO_Palette>> SIO_readPalette(const QByteArray& bytes, const UT_Id& id,
                                                     const SIO_XmlContext& context)
{
    const auto document = PO_parseDocument(bytes, context.file(), kSIO_maxParts);
    if (!document)
        return document.error();
    const QDomElement root = document->documentElement();
    if (root.tagName() != kElementPalette)
        return context.error(root, Texts::tr("<%1> is not a palette").arg(root.tagName()));
    context.checkVersion(root, kVersion);
    UT_Id own;
    if (!own.parseXml(PO_attribute(root, kAttributeId)) || own != id)
        return context.error(root, Texts::tr("the palette's identifier is not %1").arg(id.AsString().c_str()));
    auto palette = UT_makeShared<SIO_Palette>(UT_String(PO_attribute(root, kAttributeName)), id);
    context.keepOtherAttributes(root, kPaletteAttributes, palette->unknown);
    for (QDomElement child = root.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        if (child.tagName() != kElementColour)
            context.keepElement(child, palette->unknown);
        else if (const auto read = readColour(child, *palette, context); !read)
            return read.error();
    }
    return palette;
}

QByteArray SIO_writePalette(const CM_Palette& palette)
{
    const auto* const loaded = dynamic_cast<const SIO_Palette*>(&palette);
    const auto extrasOf = [&](const CM_ColorId_t& id) {
        if (!loaded)
            return SIO_Palette::ColourExtras();
        const auto found = loaded->colourExtras.find(id);
        return found == loaded->colourExtras.end() ? SIO_Palette::ColourExtras() : found->second;
    };
    return SIO_document([&](PO_XmlWriter& writer) {
        writer.startElement(kElementPalette);
        writer.attribute(kPIO_atributeVersion, kVersion);
        writer.attribute(kAttributeId, palette.GetId().AsString().ToQString());
        writer.attribute(kAttributeName, palette.GetName().ToQString());
        if (loaded)
            loaded->unknown.writeAttributes(writer);
        for (const auto& colour : palette.colors())
            writeColour(writer, *colour, extrasOf(colour->GetColorId()));
        if (loaded)
            loaded->unknown.writeElements(writer);
        writer.endElement();
    });
}
