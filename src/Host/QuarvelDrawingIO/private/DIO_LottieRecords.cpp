// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each read advances, or fails for good; the loops end at the first failure.
#include "QuarvelDrawingIO/private/DIO_LottieRecords.h"

#include <QtEndian>

#include <bit>
#include <cmath>

using namespace DIO_LottieStream;

namespace {

constexpr int kMaxDepth = 70;

// Coordinates beyond this are mistakes; the painter could not cope with them.
constexpr float kMaxCoordinate = 1e6F;

bool isUsable(const float* values, int count)
{
    for (int i = 0; i < count; ++i)
        if (!(std::abs(values[i]) <= kMaxCoordinate))
            return false;
    return true;
}

int coordinatesOf(Element element)
{
    switch (element) {
    case MOVE_TO:
    case LINE_TO:
        return 2;
    case CUBIC_TO:
        return 6;
    case CLOSE:
        break;
    }
    return 0;
}

void append(QPainterPath& path, Element element, const float* c)
{
    const auto point = [c](int i) { return QPointF(static_cast<double>(c[i]), static_cast<double>(c[i + 1])); };
    switch (element) {
    case MOVE_TO:
        path.moveTo(point(0));
        break;
    case LINE_TO:
        path.lineTo(point(0));
        break;
    case CUBIC_TO:
        path.cubicTo(point(0), point(2), point(4));
        break;
    case CLOSE:
        path.closeSubpath();
        break;
    }
}

} // namespace

unsigned DIO_LottieStreamReader::byte()
{
    _ok = has(1);
    return _ok ? static_cast<unsigned char>(_bytes[_at++]) : 0U;
}

quint32 DIO_LottieStreamReader::u32()
{
    _ok = has(4);
    if (!_ok)
        return 0;
    const auto value = qFromLittleEndian<quint32>(_bytes.constData() + _at);
    _at += 4;
    return value;
}

float DIO_LottieStreamReader::f32()
{
    return std::bit_cast<float>(u32());
}

double DIO_LottieStreamReader::f64()
{
    const quint64 low = u32();
    const quint64 high = u32();
    return std::bit_cast<double>(low | high << 32);
}

template<typename Enum>
Enum DIO_LottieStreamReader::choice(Enum last)
{
    const unsigned value = byte();
    _ok = _ok && value <= static_cast<unsigned>(last);
    return _ok ? static_cast<Enum>(value) : Enum{};
}

QString DIO_LottieStreamReader::text()
{
    const qsizetype length = u32();
    _ok = has(length);
    if (!_ok)
        return {};
    _at += length;
    return QString::fromUtf8(_bytes.constData() + _at - length, length);
}

QPainterPath DIO_LottieStreamReader::path(Qt::FillRule rule)
{
    const qsizetype elementCount = u32();
    _ok = has(elementCount);
    if (!_ok)
        return {};
    const char* const elements = _bytes.constData() + _at;
    _at += elementCount;
    const qsizetype coordinateCount = u32();
    _ok = has(coordinateCount * 4);
    if (!_ok)
        return {};

    QPainterPath read;
    read.setFillRule(rule);
    qsizetype left = coordinateCount;
    bool usable = true;
    for (qsizetype i = 0; i < elementCount && _ok; ++i) {
        const auto element = static_cast<Element>(elements[i]);
        const int count = element <= CLOSE ? coordinatesOf(element) : 0;
        _ok = element <= CLOSE && count <= left && (i > 0 || element == MOVE_TO);
        float values[6] = {};
        for (int k = 0; k < count && _ok; ++k)
            values[k] = f32();
        left -= count;
        usable = usable && isUsable(values, count);
        if (_ok && usable)
            append(read, element, values);
    }
    _ok = _ok && left == 0;
    return _ok && usable ? read : QPainterPath();
}

std::optional<DIO_LottieHeader> DIO_LottieStreamReader::readHeader()
{
    if (!_bytes.startsWith(QByteArrayView(kMagic.data(), static_cast<qsizetype>(kMagic.size()))))
        return std::nullopt;
    _at = static_cast<qsizetype>(kMagic.size());
    DIO_LottieHeader header;
    header.width = f64();
    header.height = f64();
    header.frameRate = f64();
    const quint32 frames = u32();
    const auto isSide = [](double side) { return side > 0.0 && side <= kMaxSide; };
    if (!_ok || !isSide(header.width) || !isSide(header.height) || frames == 0 || frames > kMaxFrames)
        return std::nullopt;
    header.frames = static_cast<int>(frames);
    return header;
}

std::optional<DIO_LottieLayer> DIO_LottieStreamReader::readFrame()
{
    const qsizetype begin = _at;
    DIO_LottieLayer root;
    _ok = byte() == FRAME;
    if (_ok)
        layer(root, 0);
    if (_ok)
        return root;
    _at = begin;
    _ok = true;
    return std::nullopt;
}

bool DIO_LottieStreamReader::readEnd()
{
    return byte() == END && _at == _bytes.size();
}

void DIO_LottieStreamReader::layer(DIO_LottieLayer& layer, int depth)
{
    const qsizetype begin = _at;
    const DIO_LottieLayerFacts& facts = factsOf(text());
    layer.name = facts.name;
    layer.matte = choice(LUMA_INVERTED_MATTE);
    layer.visible = byte() != 0;
    layer.alpha = byte() / 255.0;
    layer.clip = path();
    const quint32 masks = u32();
    for (quint32 i = 0; i < masks && _ok; ++i)
        layer.masks.push_back(mask());
    applyFacts(facts.masks, layer.masks);
    const quint32 nodes = u32();
    for (quint32 i = 0; i < nodes && _ok; ++i)
        layer.nodes.push_back(node());
    const quint32 layers = u32();
    _ok = _ok && depth < kMaxDepth;
    for (quint32 i = 0; i < layers && _ok; ++i)
        this->layer(layer.layers.emplace_back(), depth + 1);
    layer.bytes = QByteArray::fromRawData(_bytes.constData() + begin, _at - begin);
}

DIO_LottieMask DIO_LottieStreamReader::mask()
{
    const auto mode = choice(DIFFERENCE_MASK);
    const double opacity = byte() / 255.0;
    return {mode, opacity, false, path()};
}

void DIO_LottieStreamReader::applyFacts(const std::vector<DIO_LottieLayerFacts::Mask>& facts,
                                        std::vector<DIO_LottieMask>& masks)
{
    std::vector<DIO_LottieMask> working;
    for (std::size_t i = 0; i < masks.size(); ++i) {
        masks[i].inverted = i < facts.size() && facts[i].isInverted;
        if (i >= facts.size() || !facts[i].isOff)
            working.push_back(std::move(masks[i]));
    }
    masks = std::move(working);
}

// The document was given numbers for names; the outermost layer has a name of the library's own.
const DIO_LottieLayerFacts& DIO_LottieStreamReader::factsOf(const QString& number) const
{
    static const DIO_LottieLayerFacts none;
    bool isNumber = false;
    const std::size_t index = number.toUInt(&isNumber);
    return isNumber && index < _facts.size() ? _facts[index] : none;
}

DIO_LottieNode DIO_LottieStreamReader::node()
{
    DIO_LottieNode node;
    node.brush = choice(PICTURE_BRUSH);
    const auto rule = choice(WINDING);
    const auto channel = [this] { return static_cast<int>(byte()); };
    const int red = channel();
    const int green = channel();
    const int blue = channel();
    node.colour = QColor(red, green, blue, channel());
    const bool isStroke = byte() != 0;
    const QPen stroke = pen();
    if (isStroke)
        node.stroke = stroke;
    node.stops = stops();
    node.path = path(rule == EVEN_ODD ? Qt::OddEvenFill : Qt::WindingFill);
    return node;
}

QPen DIO_LottieStreamReader::pen()
{
    constexpr Qt::PenCapStyle kCaps[] = {Qt::FlatCap, Qt::SquareCap, Qt::RoundCap};
    constexpr Qt::PenJoinStyle kJoins[] = {Qt::SvgMiterJoin, Qt::BevelJoin, Qt::RoundJoin};
    const float width = f32();
    const auto cap = choice(ROUND_CAP);
    const auto join = choice(ROUND_JOIN);
    const float miterLimit = f32();
    const bool usable = isUsable(&width, 1) && width > 0.0F;
    QPen pen(usable ? Qt::SolidLine : Qt::NoPen);
    pen.setWidthF(usable ? static_cast<double>(width) : 0.0);
    pen.setCapStyle(kCaps[cap]);
    pen.setJoinStyle(kJoins[join]);
    if (isUsable(&miterLimit, 1) && miterLimit >= 1.0F)
        pen.setMiterLimit(static_cast<double>(miterLimit));
    return pen;
}

QGradientStops DIO_LottieStreamReader::stops()
{
    QGradientStops read;
    const quint32 count = u32();
    for (quint32 i = 0; i < count && _ok; ++i) {
        const float position = f32();
        const int red = static_cast<int>(byte());
        const int green = static_cast<int>(byte());
        const int blue = static_cast<int>(byte());
        const int alpha = static_cast<int>(byte());
        const auto place = static_cast<double>(position);
        if (place >= 0.0 && place <= 1.0)
            read.append({place, QColor(red, green, blue, alpha)});
    }
    return read;
}
