// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is drawn in a frame of its own: copies, symbols and inner drawings.
#include "QuarvelDrawingIO/private/DIO_SvgWalk.h"

#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"
#include "QuarvelDrawingIO/private/DIO_SvgTransform.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <algorithm>

QRectF DIO_SvgWalk::frameOf(const DIO_XmlNode& user, const DIO_XmlNode& node, const Surroundings& around,
                            QSizeF fallback)
{
    const auto length = [&](const char* name, double percentOf, double otherwise) {
        for (const DIO_XmlNode* from : {&user, &node})
            if (const auto value = DIO_readLength(from->attribute(QLatin1String(name)), {percentOf, 16.0}))
                return *value;
        return otherwise;
    };
    const double x = length("x", around.viewport.width(), 0.0);
    const double y = length("y", around.viewport.height(), 0.0);
    return {x, y, length("width", around.viewport.width(), fallback.width()),
            length("height", around.viewport.height(), fallback.height())};
}

void DIO_SvgWalk::writeInnerDrawing(const DIO_XmlNode& node, const DIO_XmlNode& user, const DIO_SvgStyle& style,
                                    const Surroundings& around, const DIO_SvgProperties& properties)
{
    QRectF frame = frameOf(user, node, around, around.viewport);
    if (&user != &node)
        frame.moveTo(0.0, 0.0); // The copy's place is part of the <use>'s transform.
    const std::optional<QRectF> viewBox = DIO_readViewBox(node.attribute(QLatin1String("viewBox")));
    if (!(frame.width() > 0.0 && frame.height() > 0.0))
        return;
    Surroundings inner = around;
    inner.viewport = viewBox ? viewBox->size() : frame.size();
    const bool clipped = properties.value(QStringLiteral("overflow"), QStringLiteral("hidden")) == u"hidden";
    if (clipped && !around.inClip) {
        _writer->clipTo(frame);
    }
    const DIO_AspectFit fit = DIO_readAspectFit(node.attribute(QLatin1String("preserveAspectRatio")));
    _writer->beginGroup(DIO_matrixText(viewBox ? DIO_fitTransform(*viewBox, frame, fit)
                                               : QTransform::fromTranslate(frame.x(), frame.y())));
    visitContent(node, style, inner);
    _writer->endGroup();
    if (clipped && !around.inClip)
        _writer->mark(DIO_SvgMark::Command::CLIP_POP);
}

void DIO_SvgWalk::writeUse(const DIO_XmlNode& node, const DIO_SvgStyle& style, const Surroundings& around)
{
    const QString link = node.link();
    const DIO_XmlNode* const target = _tree.find(link);
    const bool endless = std::find(_ancestry.begin(), _ancestry.end(), target) != _ancestry.end();
    if (!target || endless) {
        ++_leftOut[link.startsWith(u'#') ? (endless ? QStringLiteral("copy of what contains the copy")
                                                    : QStringLiteral("copy of something that is not there"))
                                         : QStringLiteral("copy from another file")];
        return;
    }
    if (!countInstance())
        return;
    Surroundings inner = around;
    inner.inUse = true;
    const DIO_LengthContext horizontal{around.viewport.width(), style.fontSize};
    const DIO_LengthContext vertical{around.viewport.height(), style.fontSize};
    const double x = DIO_readLength(node.attribute(QLatin1String("x")), horizontal).value_or(0.0);
    const double y = DIO_readLength(node.attribute(QLatin1String("y")), vertical).value_or(0.0);
    _writer->beginGroup(DIO_matrixText(QTransform::fromTranslate(x, y)));
    if (withinLimits()) {
        if (target->name == u"symbol")
            writeSymbol(*target, node, style, inner);
        else
            visit(*target, style, inner);
    }
    _writer->endGroup();
}

void DIO_SvgWalk::writeSymbol(const DIO_XmlNode& symbol, const DIO_XmlNode& user, const DIO_SvgStyle& outer,
                              const Surroundings& around)
{
    _ancestry.push_back(&symbol);
    const DIO_SvgProperties properties = DIO_cascade(_sheet, _ancestry);
    const DIO_SvgStyle style = outer.inheritedBy(properties, around.diagonal());
    if (symbol.attribute(QLatin1String("viewBox")).isEmpty())
        visitContent(symbol, style, around);
    else
        writeInnerDrawing(symbol, user, style, around, properties);
    _ancestry.pop_back();
}
