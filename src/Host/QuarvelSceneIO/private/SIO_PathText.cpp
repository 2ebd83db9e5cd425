// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Builds paths from a data stream of their elements, because lineTo() and similar functions drop elements of length
// zero, and a path from a file must keep all its elements.
#include "QuarvelSceneIO/private/SIO_PathText.h"

#include "QuarvelPersistentObj/PO_XmlText.h"

#include <QDataStream>
#include <QIODevice>
#include <QStringTokenizer>

#include <cmath>
#include <vector>

namespace {

using Element = QPainterPath::Element;

char16_t letterOf(QPainterPath::ElementType type)
{
    switch (type) {
    case QPainterPath::MoveToElement:
        return u'M';
    case QPainterPath::LineToElement:
        return u'L';
    case QPainterPath::CurveToElement:
        return u'C';
    case QPainterPath::CurveToDataElement:
        break;
    }
    return u'\0';
}

// Coordinates of paths must have a smaller absolute value.
constexpr double kFarthest = 1e128;

bool isCoordinate(double value)
{
    return std::fabs(value) < kFarthest;
}

// Reads words and points from a text one after the other.
class Points
{
public:
    explicit Points(const QString& text) : _tokens(text, u' ', Qt::SkipEmptyParts), _next(_tokens.begin()) {}

    bool atEnd() { return _next == _tokens.end(); }
    QStringView word() { return *_next++; }
    bool append(QPainterPath::ElementType type, std::vector<Element>& elements)
    {
        Element element{0.0, 0.0, type};
        if (!number(element.x) || !number(element.y))
            return false;
        elements.push_back(element);
        return true;
    }

private:
    bool number(double& value)
    {
        if (atEnd())
            return false;
        const auto parsed = PO_parseDouble(word().toString());
        if (!parsed || !isCoordinate(*parsed))
            return false;
        value = *parsed;
        return true;
    }

    QStringTokenizer<QStringView, QChar> _tokens;
    QStringTokenizer<QStringView, QChar>::iterator _next;
};

bool appendPart(QStringView letter, Points& points, std::vector<Element>& elements)
{
    if (letter == u"M")
        return points.append(QPainterPath::MoveToElement, elements);
    if (elements.empty())
        return false;
    if (letter == u"L")
        return points.append(QPainterPath::LineToElement, elements);
    return letter == u"C" && points.append(QPainterPath::CurveToElement, elements) &&
           points.append(QPainterPath::CurveToDataElement, elements) &&
           points.append(QPainterPath::CurveToDataElement, elements);
}

QPainterPath pathOf(const std::vector<Element>& elements, Qt::FillRule fillRule)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_6_0);
    int lastStart = 0;
    out << static_cast<qint32>(elements.size());
    for (std::size_t i = 0; i < elements.size(); ++i) {
        out << static_cast<qint32>(elements[i].type) << elements[i].x << elements[i].y;
        if (elements[i].type == QPainterPath::MoveToElement)
            lastStart = static_cast<int>(i);
    }
    out << qint32{lastStart} << static_cast<qint32>(fillRule);
    QDataStream in(bytes);
    in.setVersion(QDataStream::Qt_6_0);
    QPainterPath path;
    in >> path;
    return path;
}

} // namespace

std::optional<QString> SIO_pathText(const QPainterPath& path)
{
    // Setting the fill rule of an empty path adds one element at the origin; the path still counts as empty.
    if (path.elementCount() == 1 && path.elementAt(0).x == 0.0 && path.elementAt(0).y == 0.0)
        return QString();
    // A point of most drawings takes less than this.
    constexpr qsizetype kUsualLength = 24;
    QString text;
    text.reserve(kUsualLength * path.elementCount());
    for (int i = 0; i < path.elementCount(); ++i) {
        const Element& element = path.elementAt(i);
        if (!isCoordinate(element.x) || !isCoordinate(element.y))
            return std::nullopt;
        if (i > 0)
            text += u' ';
        if (const char16_t letter = letterOf(element.type)) {
            text += QChar(letter);
            text += u' ';
        }
        PO_appendDouble(text, element.x);
        text += u' ';
        PO_appendDouble(text, element.y);
    }
    return text;
}

std::optional<QPainterPath> SIO_parsePath(const QString& text, Qt::FillRule fillRule)
{
    std::vector<Element> elements;
    // Words are separated by spaces: XML readers replace other white space in attributes with spaces.
    for (Points points(text); !points.atEnd();)
        if (!appendPart(points.word(), points, elements))
            return std::nullopt;
    QPainterPath path = pathOf(elements, fillRule);
    path.setFillRule(fillRule);
    return path;
}
