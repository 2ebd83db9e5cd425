// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A value ends where a comma or a closing bracket follows outside all strings and brackets that it opened.
#include "QuarvelDrawingIO/private/DIO_JsonText.h"

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Goes through what stands between the brackets of an object or an array.
class Scanner
{
public:
    explicit Scanner(QByteArrayView text) : _text(text.trimmed())
    {
        _at = 1;
        skipBlanks();
    }

    bool atEnd() const { return _at >= _text.size() - 1; }

    QByteArrayView key()
    {
        const QByteArrayView quoted = value();
        ++_at; // the colon
        skipBlanks();
        return quoted.size() < 2 ? quoted : quoted.sliced(1, quoted.size() - 2);
    }

    // The value that begins here; afterwards the scanner is at the comma or colon behind it, or at the end.
    QByteArrayView value()
    {
        const qsizetype begin = _at;
        int depth = 0;
        for (; !atEnd(); ++_at) {
            const char c = _text[_at];
            if (c == '"')
                skipString();
            else if (c == '{' || c == '[')
                ++depth;
            else if (c == '}' || c == ']')
                --depth;
            else if (depth == 0 && (c == ',' || c == ':'))
                break;
        }
        return _text.sliced(begin, _at - begin).trimmed();
    }

    void next()
    {
        ++_at;
        skipBlanks();
    }

private:
    void skipBlanks()
    {
        while (!atEnd() && isBlank(_text[_at]))
            ++_at;
    }

    // Ends at the closing quotation mark.
    void skipString()
    {
        for (++_at; !atEnd() && _text[_at] != '"'; ++_at)
            if (_text[_at] == '\\')
                ++_at;
    }

    QByteArrayView _text;
    qsizetype _at = 0;
};

} // namespace

std::vector<std::pair<QByteArrayView, QByteArrayView>> DIO_jsonMembers(QByteArrayView object)
{
    std::vector<std::pair<QByteArrayView, QByteArrayView>> members;
    for (Scanner scanner(object); !scanner.atEnd(); scanner.next()) {
        const QByteArrayView key = scanner.key();
        members.emplace_back(key, scanner.value());
    }
    return members;
}

std::vector<QByteArrayView> DIO_jsonElements(QByteArrayView array)
{
    std::vector<QByteArrayView> elements;
    for (Scanner scanner(array); !scanner.atEnd(); scanner.next())
        elements.push_back(scanner.value());
    return elements;
}
