// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Keyframes are the objects with a time "t" in an array that is a member "k". One pass finds the last object of each
// such array. One that holds such arrays itself is no keyframe; it is left alone, so that no text is read once more for
// each array around it.
#include "QuarvelDrawingIO/private/DIO_LottieKeys.h"

#include "QuarvelDrawingIO/private/DIO_JsonText.h"

#include <QByteArrayList>

#include <algorithm>
#include <vector>

namespace {

bool isEasing(QByteArrayView key)
{
    return key == "i" || key == "o";
}

class Rewriter
{
public:
    explicit Rewriter(const QByteArray& text) : _text(text) {}

    QByteArray rewritten()
    {
        for (; _at < _text.size(); ++_at)
            visit(_text[_at]);
        return _made + _text.sliced(_written);
    }

private:
    // An object or array that is not closed yet.
    struct Open
    {
        qsizetype begin;
        bool isKeys;                // an array that is a member "k"
        bool isKeyNext = false;     // the next text is a member's key
        bool holdsKeys = false;     // there are arrays of keyframes in it
        QByteArrayView key = {};    // of an object's latest member
        QByteArrayView latest = {}; // the latest object in an array of keyframes; empty if it holds keyframes
    };

    void visit(char c)
    {
        if (c == '"')
            takeString();
        else if (c == '{' || c == '[')
            open(c == '{');
        else if (c == '}' || c == ']')
            close();
        else if (c == ',' && !_open.empty())
            _open.back().isKeyNext = true;
    }

    // Ends at the closing quotation mark.
    void takeString()
    {
        const qsizetype begin = ++_at;
        for (; _at < _text.size() && _text[_at] != '"'; ++_at)
            if (_text[_at] == '\\')
                ++_at;
        if (!_open.empty() && _open.back().isKeyNext) {
            _open.back().key = QByteArrayView(_text).sliced(begin, std::min(_at, _text.size()) - begin);
            _open.back().isKeyNext = false;
        }
    }

    void open(bool isObject)
    {
        const bool isKeys = !isObject && !_open.empty() && _open.back().key == "k";
        _open.push_back({_at, isKeys, isObject});
    }

    void close()
    {
        if (_open.empty())
            return;
        const Open closed = _open.back();
        _open.pop_back();
        if (closed.isKeys && !closed.latest.isEmpty())
            write(closed.latest);
        if (_open.empty())
            return;
        Open& around = _open.back();
        around.holdsKeys = around.holdsKeys || closed.holdsKeys || closed.isKeys;
        if (around.isKeys)
            around.latest = closed.holdsKeys ? QByteArrayView()
                                             : QByteArrayView(_text).sliced(closed.begin, _at + 1 - closed.begin);
    }

    // Writes the text so far, with the last keyframe that was found changed.
    void write(QByteArrayView keyframe)
    {
        if (!keyframe.startsWith('{'))
            return;
        const auto members = DIO_jsonMembers(keyframe);
        const auto isTime = [](const auto& member) { return member.first == "t"; };
        const auto hasEasing = [](const auto& member) { return isEasing(member.first); };
        if (std::ranges::none_of(members, isTime) || std::ranges::none_of(members, hasEasing))
            return;
        QByteArrayList kept;
        for (const auto& [key, value] : members)
            if (!isEasing(key))
                kept.append('"' + key.toByteArray() + "\":" + value.toByteArray());
        const qsizetype begin = keyframe.data() - _text.constData();
        _made += QByteArrayView(_text).sliced(_written, begin - _written);
        _made += '{' + kept.join(',') + '}';
        _written = begin + keyframe.size();
    }

    const QByteArray& _text;
    QByteArray _made;
    qsizetype _written = 0; // how much of the text was written
    qsizetype _at = 0;
    std::vector<Open> _open;
};

} // namespace

QByteArray DIO_withoutLastEasings(const QByteArray& document)
{
    return Rewriter(document).rewritten();
}
