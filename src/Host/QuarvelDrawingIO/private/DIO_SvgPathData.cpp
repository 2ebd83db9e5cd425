// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reading of path data by the grammar of SVG. Of an elliptic arc only its ends and the directions there are worked out,
// by its centre (SVG 2, appendix B.2.4).
#include "QuarvelDrawingIO/private/DIO_SvgPathData.h"

#include <QTransform>

#include <cmath>
#include <optional>

namespace {

QPointF firstOf(std::initializer_list<QPointF> directions)
{
    for (const QPointF& direction : directions)
        if (!direction.isNull())
            return direction;
    return {};
}

struct Arc
{
    double rx;
    double ry;
    double degrees;
    bool large;
    bool sweep;
};

// The directions in which an arc leaves and arrives.
std::pair<QPointF, QPointF> directionsOf(const Arc& arc, const QPointF& from, const QPointF& to)
{
    const QPointF chord = to - from;
    if (arc.rx == 0.0 || arc.ry == 0.0 || chord.isNull())
        return {chord, chord};
    // In these coordinates the arc is one of the unit circle, up to a scale that the chord may ask for.
    QTransform toCircle;
    toCircle.scale(1.0 / std::abs(arc.rx), 1.0 / std::abs(arc.ry));
    toCircle.rotate(-arc.degrees);
    const QPointF a = toCircle.map(from);
    const QPointF b = toCircle.map(to);
    const QPointF half = (b - a) / 2.0;
    const double length = std::hypot(half.x(), half.y());
    const double height = length < 1.0 ? std::sqrt(1.0 - length * length) : 0.0;
    const double side = arc.large == arc.sweep ? 1.0 : -1.0;
    const QPointF centre = (a + b) / 2.0 + QPointF(half.y(), -half.x()) / length * height * side;
    const double turn = arc.sweep ? 1.0 : -1.0;
    const auto tangent = [&](const QPointF& p) {
        const QPointF radius = p - centre;
        const QPointF onCircle(-radius.y() * turn, radius.x() * turn);
        return toCircle.inverted().map(onCircle) - toCircle.inverted().map(QPointF());
    };
    return {tangent(a), tangent(b)};
}

class Reader
{
public:
    explicit Reader(QStringView data) : _data(data) {}

    std::vector<DIO_PathVertex> read()
    {
        skipSeparators();
        while (_at < _data.size()) {
            const char16_t c = _data[_at].unicode();
            if ((c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z')) {
                _command = _data[_at].toLower().unicode();
                _relative = _data[_at].isLower();
                ++_at;
            } else if (_command == u'm') {
                _command = u'l'; // further points of a move are lines
            } else if (_command == u'z') {
                break;
            }
            if (!readSegment())
                break;
            skipSeparators();
        }
        return std::move(_vertices);
    }

private:
    void skipSeparators()
    {
        while (_at < _data.size() && (_data[_at].isSpace() || _data[_at] == u','))
            ++_at;
    }

    std::optional<double> number()
    {
        skipSeparators();
        const qsizetype begin = _at;
        const auto digits = [this] {
            while (_at < _data.size() && _data[_at] >= u'0' && _data[_at] <= u'9')
                ++_at;
        };
        const auto sign = [this] {
            if (_at < _data.size() && (_data[_at] == u'+' || _data[_at] == u'-'))
                ++_at;
        };
        sign();
        digits();
        if (_at < _data.size() && _data[_at] == u'.') {
            ++_at;
            digits();
        }
        if (_at + 1 < _data.size() && (_data[_at] == u'e' || _data[_at] == u'E')) {
            ++_at;
            sign();
            digits();
        }
        bool ok = false;
        const double value = _data.sliced(begin, _at - begin).toDouble(&ok);
        return ok && std::isfinite(value) ? std::optional(value) : std::nullopt;
    }

    // A flag may stand without anything between it and the next number.
    std::optional<bool> flag()
    {
        skipSeparators();
        if (_at >= _data.size() || (_data[_at] != u'0' && _data[_at] != u'1'))
            return std::nullopt;
        return _data[_at++] == u'1';
    }

    std::optional<QPointF> point()
    {
        const std::optional<double> x = number();
        const std::optional<double> y = x ? number() : std::nullopt;
        if (!y)
            return std::nullopt;
        return QPointF(*x, *y) + (_relative ? _current : QPointF());
    }

    bool readSegment()
    {
        switch (_command) {
        case u'm':
            return readMove();
        case u'z':
            segment(_start, _start - _current, _start - _current);
            _closed = true;
            return true;
        case u'l':
        case u't':
            return readTo(0);
        case u'q':
        case u's':
            return readTo(1);
        case u'c':
            return readTo(2);
        case u'h':
        case u'v':
            return readStraight();
        case u'a':
            return readArc();
        default:
            return false;
        }
    }

    bool readMove()
    {
        const std::optional<QPointF> to = point();
        if (!to)
            return false;
        move(*to);
        return true;
    }

    // A line or a curve with so many control points of its own; short forms mirror the last one.
    bool readTo(int controls)
    {
        std::optional<QPointF> points[3];
        for (int i = 0; i <= controls; ++i)
            if (!(points[i] = point()))
                return false;
        const QPointF to = *points[controls];
        const bool mirrors = (_command == u's' && _cubic) || (_command == u't' && _quadratic);
        const QPointF mirrored = mirrors ? _current * 2.0 - _control : _current;
        const QPointF first = _command == u's' || _command == u't' ? mirrored : controls > 0 ? *points[0] : to;
        const QPointF last = _command == u't' ? mirrored : controls > 0 ? *points[controls - 1] : _current;
        const QPointF from = _current;
        segment(to, firstOf({first - from, last - from, to - from}), firstOf({to - last, to - first, to - from}));
        _cubic = _command == u'c' || _command == u's';
        _quadratic = _command == u'q' || _command == u't';
        _control = last;
        return true;
    }

    bool readStraight()
    {
        const std::optional<double> value = number();
        if (!value)
            return false;
        QPointF to = _current;
        double& axis = _command == u'h' ? to.rx() : to.ry();
        axis = *value + (_relative ? axis : 0.0);
        segment(to, to - _current, to - _current);
        return true;
    }

    bool readArc()
    {
        const std::optional<double> rx = number();
        const std::optional<double> ry = rx ? number() : std::nullopt;
        const std::optional<double> degrees = ry ? number() : std::nullopt;
        const std::optional<bool> large = degrees ? flag() : std::nullopt;
        const std::optional<bool> sweep = large ? flag() : std::nullopt;
        const std::optional<QPointF> to = sweep ? point() : std::nullopt;
        if (!to)
            return false;
        const auto [leaving, arriving] = directionsOf({*rx, *ry, *degrees, *large, *sweep}, _current, *to);
        segment(*to, leaving, arriving);
        return true;
    }

    void move(const QPointF& to)
    {
        _vertices.push_back({to, {}, {}, true});
        _current = _start = to;
        _closed = _cubic = _quadratic = false;
    }

    void segment(const QPointF& to, const QPointF& leaving, const QPointF& arriving)
    {
        if (_vertices.empty() || _closed)
            move(_vertices.empty() ? QPointF() : _start);
        _vertices.back().onwards = leaving;
        _vertices.push_back({to, arriving, {}, false});
        _current = to;
        _cubic = _quadratic = false;
    }

    QStringView _data;
    qsizetype _at = 0;
    char16_t _command = u' ';
    bool _relative = false;
    bool _closed = false;
    bool _cubic = false;     // the segment before was a cubic curve
    bool _quadratic = false; // the segment before was a quadratic curve
    QPointF _current;
    QPointF _start; // of the subpath
    QPointF _control;
    std::vector<DIO_PathVertex> _vertices;
};

} // namespace

std::vector<DIO_PathVertex> DIO_pathVertices(QStringView data)
{
    return Reader(data).read();
}

std::vector<QPointF> DIO_pathDots(QStringView data)
{
    std::vector<QPointF> dots;
    const std::vector<DIO_PathVertex> vertices = DIO_pathVertices(data);
    for (std::size_t i = 0; i < vertices.size();) {
        std::size_t end = i + 1;
        bool hasLength = false;
        for (; end < vertices.size() && !vertices[end].moved; ++end)
            hasLength = hasLength || !vertices[end - 1].onwards.isNull() || vertices[end].at != vertices[i].at;
        if (end > i + 1 && !hasLength)
            dots.push_back(vertices[i].at);
        i = end;
    }
    return dots;
}
