// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The cel: its representation, its messages, and the conversion of vectors to pixels.
#include "QuarvelCelCore/CEL_Cel.h"

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelCelCore/CEL_PixmapConversion.h"
#include "QuarvelCelCore/CEL_PixmapFactory.h"

namespace {

bool isColour(int format)
{
    return format == CEL_FORMAT_RGBA16 || format == CEL_FORMAT_RGBAFLOAT;
}

CEL_DeferredPixels::Make painterOf(const UT_SharedPtr<CELVEC_Kvd>& drawing, const CELVEC_RenderArgs& args, int format,
                                   const Math::Box2di& rect)
{
    return [=] {
        auto target = CEL_PixmapFactory::create2d(format, args.size, args.canvas);
        drawing->render(args, *target);
        // A stage that keeps to its description left the rectangle as it was.
        target->realloc(rect, true);
        return target;
    };
}

} // namespace

CEL_Message::~CEL_Message() = default;

CEL_Cel::CEL_Cel() = default;

CEL_Cel::~CEL_Cel() = default;

void CEL_Cel::setRepresentation(UT_SharedPtr<CEL_Representation> representation)
{
    _representation = std::move(representation);
}

UT_SharedPtr<CEL_PixmapArea> CEL_Cel::pixmap() const
{
    return _representation.dynamicCast<CEL_PixmapArea>();
}

UT_SharedPtr<CELVEC_Kvd> CEL_Cel::findBestVectorRepresentation() const
{
    return _representation.dynamicCast<CELVEC_Kvd>();
}

void CEL_Cel::setRenderArgs(const CELVEC_RenderArgs& args)
{
    _renderArgs = args;
}

CA_CelRef CEL_Cel::convertTo(int format)
{
    if (isEmpty() || (pixmap() && pixmap()->format() == format))
        return CA_CelRef(this);
    auto converted = UT_makeShared<CEL_Cel>();
    converted->_messages = _messages;
    converted->_renderArgs = _renderArgs;
    converted->_representation = makePixmap(format);
    return converted;
}

CA_CelRef CEL_Cel::getWorkingCopy(int format)
{
    CA_CelRef copy = convertTo(format);
    if (copy.get() != this)
        return copy;
    copy = UT_makeShared<CEL_Cel>();
    copy->_messages = _messages;
    copy->_renderArgs = _renderArgs;
    if (const auto own = pixmap())
        copy->_representation = own->clone();
    return copy;
}

void CEL_Cel::addMessage(const UT_DynKey& key, UT_SharedPtr<CEL_Message> message)
{
    _messages[&key] = std::move(message);
}

UT_SharedPtr<CEL_Message> CEL_Cel::findMessage(const UT_DynKey& key) const
{
    const auto found = _messages.find(&key);
    return found == _messages.end() ? nullptr : found->second;
}

UT_SharedPtr<CEL_PixmapArea> CEL_Cel::makePixmap(int format) const
{
    if (const auto pixels = pixmap())
        return CEL_convertPixmap(pixels, format);
    const auto drawing = findBestVectorRepresentation();
    if (!drawing || !_renderArgs)
        return nullptr;
    const CELVEC_RenderArgs& args = *_renderArgs;
    auto target = CEL_PixmapFactory::create2d(format, args.size, args.canvas);
    if (!target)
        return nullptr;
    const std::optional<Math::Box2di> rect = drawing->renderedRect(args);
    if (rect && isColour(format))
        target->defer(*rect, painterOf(drawing->shareForRendering(), args, format, *rect));
    else
        drawing->render(args, *target);
    return target;
}
