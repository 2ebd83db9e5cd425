// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Exposures, in memory and in files.
#include "QuarvelSceneCore/attributes/AT_ExposureSheet.h"

#include "QuarvelPersistentObj/PO_XmlReading.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace {

constexpr QLatin1String kFrame{"frame"};
constexpr QLatin1String kDrawing{"drawing"};

PO_UnknownXml unknownOf(const QDomElement& element)
{
    PO_UnknownXml unknown;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QString name = attributes.item(i).nodeName();
        if (name != kFrame && name != kDrawing)
            unknown.addAttribute(name, attributes.item(i).nodeValue());
    }
    for (QDomElement inner = element.firstChildElement(); !inner.isNull(); inner = inner.nextSiblingElement())
        unknown.addElement(inner);
    return unknown;
}

} // namespace

void AT_ExposureSheet::setExposure(int frame, const QString& drawing)
{
    _exposures[frame] = drawing;
    _unknown.erase(frame);
}

bool AT_ExposureSheet::removeExposure(int frame)
{
    _unknown.erase(frame);
    return _exposures.erase(frame) > 0;
}

QString AT_ExposureSheet::drawing(double frame) const
{
    if (std::isnan(frame))
        return QString();
    constexpr double kFirst = std::numeric_limits<int>::min();
    constexpr double kLast = std::numeric_limits<int>::max();
    if (frame < kFirst)
        return QString();
    const auto next = _exposures.upper_bound(static_cast<int>(std::floor(std::min(frame, kLast))));
    return next == _exposures.begin() ? QString() : std::prev(next)->second;
}

void AT_ExposureSheet::writeXml(PO_XmlWriter& writer) const
{
    for (const auto& [frame, drawing] : _exposures) {
        writer.startElement(kElementName);
        writer.attribute(kFrame, frame);
        writer.attribute(kDrawing, drawing);
        const auto unknown = _unknown.find(frame);
        if (unknown != _unknown.end()) {
            unknown->second.writeAttributes(writer);
            unknown->second.writeElements(writer);
        }
        writer.endElement();
    }
}

AT_ExposureSheet::Parsed AT_ExposureSheet::parseExposure(const QDomElement& element)
{
    const std::optional<int> frame = PO_intAttribute(element, kFrame);
    if (!frame || !element.hasAttribute(kDrawing))
        return Parsed::REFUSED;
    setExposure(*frame, PO_attribute(element, kDrawing));
    PO_UnknownXml unknown = unknownOf(element);
    if (unknown.isEmpty())
        return Parsed::YES;
    _unknown.insert_or_assign(*frame, std::move(unknown));
    return Parsed::PARTLY;
}
