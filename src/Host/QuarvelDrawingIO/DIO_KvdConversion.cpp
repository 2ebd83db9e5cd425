// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Conversion of drawings to the host's objects.
#include "QuarvelDrawingIO/DIO_KvdConversion.h"

#include <cassert>

namespace {

// The kind's name as it goes into identifiers, hence not to be changed.
QString kindName(DIO_Paint::Kind kind)
{
    switch (kind) {
    case DIO_Paint::Kind::GRADIENT:
        return QStringLiteral("gradient");
    case DIO_Paint::Kind::PICTURE:
        return QStringLiteral("picture");
    case DIO_Paint::Kind::PATTERN:
        return QStringLiteral("pattern");
    case DIO_Paint::Kind::SOLID:
        break;
    }
    return QStringLiteral("solid");
}

CM_TextureColor::enTextureKind textureKind(DIO_Paint::Kind kind)
{
    switch (kind) {
    case DIO_Paint::Kind::PICTURE:
        return CM_TextureColor::PICTURE_TEXTURE;
    case DIO_Paint::Kind::PATTERN:
        return CM_TextureColor::PATTERN_TEXTURE;
    default:
        return CM_TextureColor::GRADIENT_TEXTURE;
    }
}

CM_Rgba toRgba(const QColor& colour)
{
    const auto byte = [](int channel) { return static_cast<std::uint8_t>(channel); };
    return {byte(colour.red()), byte(colour.green()), byte(colour.blue()), 255};
}

} // namespace

CM_ColorId_t DIO_colorId(const DIO_Paint& paint)
{
    const QString text = kindName(paint.kind) + u' ' + paint.colour.name();
    return UT_Id::fromName(paint.kind == DIO_Paint::Kind::SOLID ? text : text + u' ' + paint.name);
}

CM_SharedPtr<CM_BaseColorObj> DIO_toColor(const DIO_Paint& paint)
{
    CM_SharedPtr<CM_BaseColorObj> color;
    if (paint.kind == DIO_Paint::Kind::SOLID)
        color = UT_makeShared<CM_Color>(UT_String(paint.name), CM_Color::NORMAL_COLOR, DIO_colorId(paint));
    else
        color = UT_makeShared<CM_TextureColor>(UT_String(paint.name), textureKind(paint.kind), DIO_colorId(paint));
    color->SetNominalColor(toRgba(paint.colour));
    return color;
}

CM_SharedPtr<CM_Palette> DIO_toPalette(const DIO_Drawing& drawing)
{
    auto palette = UT_makeShared<CM_Palette>(UT_String(drawing.name), UT_Id::fromName("palette " + drawing.name));
    for (const DIO_Paint& paint : drawing.palette)
        palette->addColor(DIO_toColor(paint));
    return palette;
}

UT_SharedPtr<CELVEC_Kvd> DIO_toKvd(std::span<const DIO_Shape> shapes, std::span<const DIO_Paint> paints,
                                   const CM_SharedPtr<CM_Palette>& palette)
{
    auto kvd = UT_makeShared<CELVEC_Kvd>(palette);
    for (const DIO_Shape& shape : shapes) {
        const DIO_Paint& paint = paints[static_cast<std::size_t>(shape.paint)];
        kvd->addShape(GR_Art::COLOUR, {shape.path, DIO_colorId(paint), shape.opacity, shape.clip, shape.picture});
    }
    return kvd;
}

UT_SharedPtr<CELVEC_Kvd> DIO_toKvd(const DIO_Drawing& drawing, std::size_t layer,
                                   const CM_SharedPtr<CM_Palette>& palette)
{
    assert(layer < drawing.layers.size());
    return DIO_toKvd(drawing.layers[layer].shapes, drawing.palette, palette);
}
