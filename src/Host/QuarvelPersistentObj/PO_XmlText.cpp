// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Texts and numbers of files. Numbers go through <charconv>, which is independent of the locale and finds the shortest
// digits.
#include "QuarvelPersistentObj/PO_XmlText.h"

#include "QuarvelPersistentObj/private/XmlCharacters.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

namespace {

// Numbers from the first to the second of these are plain decimals; others have exponents.
constexpr double kSmallestPlain = 1e-5;
constexpr double kLargestPlain = 1e15;
// The longest plain decimal has 17 digits, 5 zeros, a point, a zero before it and a sign.
constexpr std::size_t kLongestNumber = 32;

// The text in ASCII; empty when it contains a character that is not allowed in a number.
std::string asciiNumber(const QString& text, std::string_view allowed)
{
    std::string ascii;
    for (const QChar c : text) {
        const char byte = c.unicode() < 0x80 ? c.toLatin1() : '\0';
        if (byte == '\0' || allowed.find(byte) == std::string_view::npos)
            return {};
        ascii.push_back(byte);
    }
    return ascii;
}

template<typename T>
std::optional<T> parseNumber(const std::string& ascii)
{
    T value{};
    const char* end = ascii.data() + ascii.size();
    const auto [stop, error] = std::from_chars(ascii.data(), end, value);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

} // namespace

QString PO_escape(const QString& text)
{
    return XmlCharacters::escape(text, XmlCharacters::Underscores::ESCAPED);
}

QString PO_unescape(const QString& text)
{
    return XmlCharacters::unescape(text);
}

QString PO_formatDouble(double value)
{
    QString text;
    PO_appendDouble(text, value);
    return text;
}

void PO_appendDouble(QString& text, double value)
{
    if (std::isnan(value)) {
        text += u"nan";
        return;
    }
    if (std::isinf(value)) {
        text += value < 0.0 ? u"-inf" : u"inf";
        return;
    }
    const double size = std::fabs(value);
    const bool plain = size == 0.0 || (size >= kSmallestPlain && size < kLargestPlain);
    std::array<char, kLongestNumber> buffer;
    const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format);
    text += QLatin1String(buffer.data(), error == std::errc() ? end - buffer.data() : 0);
}

std::optional<double> PO_parseDouble(const QString& text)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    if (text == u"inf")
        return kInfinity;
    if (text == u"-inf")
        return -kInfinity;
    if (text == u"nan")
        return std::numeric_limits<double>::quiet_NaN();
    return parseNumber<double>(asciiNumber(text, "0123456789.eE+-"));
}

std::optional<int> PO_parseInt(const QString& text)
{
    return parseNumber<int>(asciiNumber(text, "0123456789-"));
}

QString PO_formatBool(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

std::optional<bool> PO_parseBool(const QString& text)
{
    if (text == u"true" || text == u"1")
        return true;
    if (text == u"false" || text == u"0")
        return false;
    return std::nullopt;
}
