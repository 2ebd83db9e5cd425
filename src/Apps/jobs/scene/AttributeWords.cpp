// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two visitors, a writer and a reader, with a function for each kind of attribute. The reader makes one command from
// all words, so that an error in the last word leaves the scene unchanged.
#include "jobs/scene/AttributeWords.h"

#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_AttrVisitor.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_EnumAttrBase.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"

#include <cmath>

namespace {

UT_Error expected(const QString& what, const QString& word)
{
    return UT_Error{QStringLiteral("expected %1, got \"%2\"").arg(what, word)};
}

QString interpolationWord(AT_Curve::Interpolation interpolation)
{
    switch (interpolation) {
    case AT_Curve::Interpolation::HOLD:
        return QStringLiteral(":hold");
    case AT_Curve::Interpolation::BEZIER:
        return QStringLiteral(":bezier");
    case AT_Curve::Interpolation::LINEAR:
        break;
    }
    return {};
}

QString curveWords(const AT_Curve& curve)
{
    QStringList words;
    for (const AT_Curve::Key& key : curve.keys())
        words << PO_formatDouble(key.frame) + u':' + PO_formatDouble(key.value) + interpolationWord(key.interpolation);
    return words.join(u' ');
}

QString exposureWords(const AT_ExposureSheet& sheet)
{
    QStringList words;
    for (const auto& [frame, drawing] : sheet.exposures())
        words << QStringLiteral("%1:%2").arg(frame).arg(drawing);
    return words.join(u' ');
}

QString choiceWord(const AT_EnumAttrBase& attr)
{
    for (auto [row, end] = attr.values(); row != end; ++row)
        if (row->first == attr.localInt())
            return row->second.keyword;
    return QString::number(attr.localInt());
}

// Writes the value of the visited attribute.
class Writer : public AT_AttrVisitor
{
public:
    void visitAttr(AT_Attr& attr) override { written = attr.displayText(0.0); }
    void visitBool(AT_BoolAttr& attr) override
    {
        written = linkOr(attr, attr.localValue() ? QStringLiteral("yes") : QStringLiteral("no"));
    }
    void visitString(AT_StringAttr& attr) override { written = attr.localValue(); }
    void visitDouble(AT_DoubleAttr& attr) override { written = curveOr(attr, PO_formatDouble(attr.localValue())); }
    void visitInt(AT_IntAttr& attr) override { written = curveOr(attr, QString::number(attr.localValue())); }
    void visitEnum(AT_EnumAttrBase& attr) override { written = linkOr(attr, choiceWord(attr)); }
    void visitDrawing(AT_DrawingAttr& attr) override { written = exposureWords(attr.exposures()); }

    QString written;

private:
    static QString linkOr(const AT_SimpleAttr& attr, const QString& value)
    {
        return attr.link() ? u'=' + attr.link()->path() : value;
    }
    static QString curveOr(const AT_AnimatableAttr& attr, const QString& value)
    {
        return linkOr(attr, attr.isAnimated() ? curveWords(attr.curve()) : value);
    }
};

enum class Numbers
{
    ALL,
    WHOLE
};

// "24:2.0:hold"
struct KeyWord
{
    double frame = 0.0;
    QString value;
    AT_Curve::Interpolation interpolation = AT_Curve::Interpolation::LINEAR;
};

UT_Result<AT_Curve::Interpolation> interpolationOf(const QString& word)
{
    if (word == QLatin1String("hold"))
        return AT_Curve::Interpolation::HOLD;
    if (word == QLatin1String("linear"))
        return AT_Curve::Interpolation::LINEAR;
    if (word == QLatin1String("bezier"))
        return AT_Curve::Interpolation::BEZIER;
    return expected(QStringLiteral("hold, linear or bezier"), word);
}

UT_Result<KeyWord> keyWord(const QString& word)
{
    const QStringList parts = word.split(u':');
    bool isFrame = false;
    KeyWord key;
    key.frame = parts.first().toDouble(&isFrame);
    if (!isFrame || !std::isfinite(key.frame) || parts.size() < 2 || parts.size() > 3)
        return expected(QStringLiteral("FRAME:VALUE, as in 24:2.0"), word);
    key.value = parts[1];
    if (parts.size() == 3) {
        const auto interpolation = interpolationOf(parts[2]);
        if (!interpolation)
            return interpolation.error();
        key.interpolation = *interpolation;
    }
    return key;
}

UT_Result<double> numberWithin(const AT_AnimatableAttr& attr, const QString& word, Numbers numbers)
{
    bool isNumber = false;
    const double number = word.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number) || number < attr.lower() || number > attr.upper())
        return expected(QStringLiteral("a number from %1 to %2").arg(attr.lower()).arg(attr.upper()), word);
    if (numbers == Numbers::WHOLE && number != std::floor(number))
        return expected(QStringLiteral("a whole number"), word);
    return number;
}

// Gives new keys level handles that reach a third of the way to the neighbouring keys, so that the curve is smooth.
AT_Curve withHandles(const AT_Curve& curve)
{
    AT_Curve result;
    const std::vector<AT_Curve::Key>& keys = curve.keys();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        AT_Curve::Key key = keys[i];
        const bool isNew = key.in == AT_Curve::Handle{} && key.out == AT_Curve::Handle{};
        if (isNew && i > 0)
            key.in.frame = (keys[i - 1].frame - key.frame) / 3.0;
        if (isNew && i + 1 < keys.size())
            key.out.frame = (keys[i + 1].frame - key.frame) / 3.0;
        result.setKey(key);
    }
    return result;
}

UT_Result<MO_EditCommand> changeCurve(AT_AnimatableAttr& attr, const QStringList& words, Numbers numbers)
{
    AT_Curve curve = attr.curve();
    bool hasBezier = false;
    for (const QString& word : words) {
        const auto key = keyWord(word);
        if (!key)
            return key.error();
        const auto value = numberWithin(attr, key->value, numbers);
        if (!value)
            return value.error();
        hasBezier = hasBezier || key->interpolation == AT_Curve::Interpolation::BEZIER;
        curve.setKey({.frame = key->frame,
                      .value = *value,
                      .interpolation = key->interpolation,
                      .in = {},
                      .out = {},
                      .unknown = {}});
    }
    return MO_curveCmd(attr, hasBezier ? withHandles(curve) : curve);
}

// Reads words for the visited attribute.
class Reader : public AT_AttrVisitor
{
public:
    Reader(const AT_LinkScope& scope, const QStringList& words) : _scope(scope), _words(words) {}

    void visitAttr(AT_Attr& attr) override
    {
        read = UT_Error{QStringLiteral("%1 is of a kind that has no text").arg(attr.keyword())};
    }
    void visitBool(AT_BoolAttr& attr) override
    {
        if (isLink(attr) || !isOneWord(attr))
            return;
        const auto value = truthInWord(_words.first());
        read = value ? made(attr.setValueCmd(0.0, *value)) : Read(value.error());
    }
    void visitString(AT_StringAttr& attr) override
    {
        if (isOneWord(attr))
            read = made(attr.setValueCmd(0.0, _words.first()));
    }
    void visitDouble(AT_DoubleAttr& attr) override { readNumber(attr, Numbers::ALL); }
    void visitInt(AT_IntAttr& attr) override { readNumber(attr, Numbers::WHOLE); }
    void visitEnum(AT_EnumAttrBase& attr) override
    {
        if (!isLink(attr) && isOneWord(attr))
            readChoice(attr);
    }
    void visitDrawing(AT_DrawingAttr& attr) override { readExposures(attr); }

    using Read = UT_Result<MO_EditCommand>;
    Read read = MO_EditCommand();

private:
    // The caller owns the command that an attribute made.
    static Read made(CO_Command* command) { return MO_EditCommand(command); }

    bool isOneWord(const AT_Attr& attr)
    {
        if (_words.size() > 1)
            read = UT_Error{QStringLiteral("%1 cannot be animated: give it one value").arg(attr.keyword())};
        return _words.size() == 1;
    }

    bool isLink(AT_SimpleAttr& attr)
    {
        if (_words.size() != 1 || !_words.first().startsWith(u'='))
            return false;
        const QString path = _words.first().mid(1);
        const auto link = path.isEmpty() ? nullptr : UT_makeShared<AT_AttrLink>(path);
        if (!attr.isLinkable())
            read = UT_Error{QStringLiteral("%1 cannot read another attribute").arg(attr.keyword())};
        else if (link && !link->resolve(_scope))
            read = UT_Error{QStringLiteral("there is no attribute \"%1\" with a number").arg(path)};
        else
            read = MO_driveCmd(attr, link);
        return true;
    }

    void readNumber(AT_AnimatableAttr& attr, Numbers numbers)
    {
        if (isLink(attr))
            return;
        if (_words.size() > 1 || _words.first().contains(u':')) {
            read = changeCurve(attr, _words, numbers);
            return;
        }
        const auto value = numberWithin(attr, _words.first(), numbers);
        read = value ? Read(MO_constantCmd(attr, *value)) : Read(value.error());
    }

    void readChoice(AT_EnumAttrBase& attr)
    {
        const QString& word = _words.first();
        QStringList known;
        for (auto [row, end] = attr.values(); row != end; ++row) {
            if (AT_Attr::parseString(word, row->second.label, row->second.keyword)) {
                read = made(attr.setIntCmd(0.0, row->first));
                return;
            }
            if (!row->second.flag)
                known << row->second.keyword;
        }
        read = expected(QStringLiteral("one of %1").arg(known.join(QStringLiteral(", "))), word);
    }

    void readExposures(AT_DrawingAttr& attr)
    {
        AT_ExposureSheet sheet = attr.exposures();
        for (const QString& word : _words) {
            const qsizetype colon = word.indexOf(u':');
            bool isFrame = false;
            const int frame = word.left(colon).toInt(&isFrame);
            if (colon < 0 || !isFrame) {
                read = expected(QStringLiteral("FRAME:DRAWING, as in 3:walk_2"), word);
                return;
            }
            sheet.setExposure(frame, word.mid(colon + 1));
        }
        read = MO_exposuresCmd(attr, sheet);
    }

    const AT_LinkScope& _scope;
    const QStringList& _words;
};

} // namespace

QString attributeInWords(AT_Attr& attr)
{
    Writer writer;
    attr.accept(writer);
    return writer.written;
}

UT_Result<MO_EditCommand> changeByWords(const AT_LinkScope& scope, AT_Attr& attr, const QStringList& words)
{
    Reader reader(scope, words);
    attr.accept(reader);
    return std::move(reader.read);
}

UT_Result<bool> truthInWord(const QString& word)
{
    if (const std::optional<bool> truth = AT_BoolAttr::meaningOf(word))
        return *truth;
    return expected(QStringLiteral("yes or no"), word);
}
