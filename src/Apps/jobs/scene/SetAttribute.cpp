// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each kind of value has a function that turns all the words into one command, so that a mistake in the last word
// leaves the scene alone.
#include "jobs/scene/SetAttribute.h"

#include "QuarvelCommand/CO_OrCommand.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_EnumAttrBase.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/editing/MO_EditCommands.h"

#include <QRegularExpression>

#include <cmath>

namespace {

// Null when nothing would change.
using MadeCommand = UT_Result<MO_EditCommand>;

UT_Error error(const QString& text)
{
    return UT_Error{text};
}

MO_EditCommand owned(CO_Command* command)
{
    return MO_EditCommand(command);
}

QStringList moduleNames(const MO_Scene& scene)
{
    QStringList names;
    scene.root().forEachModule([&](const MO_Module& module) { names << module.instanceName(); });
    return names;
}

QStringList keysOf(const MO_Module& module)
{
    QStringList keys;
    for (const AT_Attr* attr : module.attrs())
        keys << attr->keyword();
    return keys << QStringLiteral("name") << QStringLiteral("enabled");
}

UT_Result<bool> truthValue(const QString& word)
{
    static const QStringList yes{QStringLiteral("true"), QStringLiteral("on"), QStringLiteral("yes"),
                                 QStringLiteral("1")};
    static const QStringList no{QStringLiteral("false"), QStringLiteral("off"), QStringLiteral("no"),
                                QStringLiteral("0")};
    if (yes.contains(word.toLower()))
        return true;
    if (no.contains(word.toLower()))
        return false;
    return error(QStringLiteral("\"%1\" stands where yes or no is meant to stand").arg(word));
}

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
    return error(QStringLiteral("\"%1\" stands where hold, linear or bezier is meant to stand").arg(word));
}

UT_Result<KeyWord> keyWord(const QString& word)
{
    const QStringList parts = word.split(u':');
    bool isFrame = false;
    KeyWord key;
    key.frame = parts.first().toDouble(&isFrame);
    if (!isFrame || !std::isfinite(key.frame) || parts.size() > 3)
        return error(QStringLiteral("\"%1\" stands where FRAME:VALUE is meant to stand, as in 24:2.0").arg(word));
    key.value = parts[1];
    if (parts.size() == 3) {
        const auto interpolation = interpolationOf(parts[2]);
        if (!interpolation)
            return interpolation.error();
        key.interpolation = *interpolation;
    }
    return key;
}

UT_Result<double> numberWithin(const AT_AnimatableAttr& attr, const QString& word)
{
    bool isNumber = false;
    const double number = word.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number) || number < attr.lower() || number > attr.upper())
        return error(QStringLiteral("\"%1\" stands where a number from %2 to %3 is meant to stand")
                         .arg(word)
                         .arg(attr.lower())
                         .arg(attr.upper()));
    if (dynamic_cast<const AT_IntAttr*>(&attr) && number != std::floor(number))
        return error(QStringLiteral("\"%1\" stands where a whole number is meant to stand").arg(word));
    return number;
}

// Smooth from key to key: a third of the way to the neighbour, level.
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

MadeCommand changeCurve(AT_AnimatableAttr& attr, const QStringList& words)
{
    AT_Curve curve = attr.curve();
    bool hasBezier = false;
    for (const QString& word : words) {
        const auto key = keyWord(word);
        if (!key)
            return key.error();
        const auto value = numberWithin(attr, key->value);
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
    return owned(attr.setCurveCmd(hasBezier ? withHandles(curve) : curve));
}

// Without its animation the attribute's own value counts again, so the command for that comes second.
class SetNumberCmd : public CO_OrCommand
{
public:
    SetNumberCmd(AT_AnimatableAttr& attr, double value) : _attr(attr), _value(value) { append(attr.setCurveCmd({})); }

    QString name() const override { return QStringLiteral("Change %1").arg(_attr.label()); }
    bool hasEffect() const override { return true; }
    void execute() override
    {
        CO_OrCommand::execute();
        _second.reset(setValueCmd());
        if (_second)
            _second->execute();
    }
    void undo() override
    {
        if (_second)
            _second->undo();
        CO_OrCommand::undo();
    }
    void redo() override
    {
        CO_OrCommand::redo();
        if (_second)
            _second->redo();
    }

private:
    CO_Command* setValueCmd()
    {
        if (auto* integer = dynamic_cast<AT_IntAttr*>(&_attr))
            return integer->setValueCmd(0.0, static_cast<int>(_value));
        return static_cast<AT_DoubleAttr&>(_attr).setValueCmd(0.0, _value);
    }

    AT_AnimatableAttr& _attr;
    double _value;
    std::unique_ptr<CO_Command> _second;
};

MadeCommand changeNumber(AT_AnimatableAttr& attr, const QStringList& words)
{
    if (words.size() > 1 || words.first().contains(u':'))
        return changeCurve(attr, words);
    const auto value = numberWithin(attr, words.first());
    if (!value)
        return value.error();
    if (attr.isAnimated())
        return MO_EditCommand(std::make_unique<SetNumberCmd>(attr, *value));
    if (auto* integer = dynamic_cast<AT_IntAttr*>(&attr))
        return owned(integer->setValueCmd(0.0, static_cast<int>(*value)));
    return owned(static_cast<AT_DoubleAttr&>(attr).setValueCmd(0.0, *value));
}

MadeCommand changeExposures(AT_DrawingAttr& attr, const QStringList& words)
{
    AT_ExposureSheet sheet = attr.exposures();
    for (const QString& word : words) {
        const qsizetype colon = word.indexOf(u':');
        bool isFrame = false;
        const int frame = word.left(colon).toInt(&isFrame);
        if (colon < 0 || !isFrame)
            return error(
                QStringLiteral("\"%1\" stands where FRAME:DRAWING is meant to stand, as in 3:walk_2").arg(word));
        sheet.setExposure(frame, word.mid(colon + 1));
    }
    return owned(attr.setExposuresCmd(sheet));
}

MadeCommand changeEnum(AT_EnumAttrBase& attr, const QString& word)
{
    QStringList known;
    for (auto [row, end] = attr.values(); row != end; ++row) {
        if (AT_Attr::parseString(word, row->second.label, row->second.keyword))
            return owned(attr.setIntCmd(0.0, row->first));
        if (!row->second.flag)
            known << row->second.keyword;
    }
    return error(
        QStringLiteral("\"%1\" stands where one of %2 is meant to stand").arg(word, known.join(QStringLiteral(", "))));
}

MadeCommand changeLink(const MO_Scene& scene, AT_Attr& attr, const QString& path)
{
    auto* const simple = dynamic_cast<AT_SimpleAttr*>(&attr);
    if (!simple || !simple->isLinkable())
        return error(QStringLiteral("%1 cannot read another attribute").arg(attr.keyword()));
    if (path.isEmpty())
        return owned(simple->setSurrogateCmd(nullptr));
    const auto link = UT_makeShared<AT_AttrLink>(path);
    if (!link->resolve(scene))
        return error(QStringLiteral("there is no attribute \"%1\" with a number").arg(path));
    return owned(simple->setSurrogateCmd(link));
}

MadeCommand changeAttribute(const MO_Scene& scene, AT_Attr& attr, const QStringList& words)
{
    auto* const text = dynamic_cast<AT_StringAttr*>(&attr);
    if (words.size() == 1 && words.first().startsWith(u'=') && !text)
        return changeLink(scene, attr, words.first().mid(1));
    if (auto* number = dynamic_cast<AT_AnimatableAttr*>(&attr))
        return changeNumber(*number, words);
    if (auto* drawing = dynamic_cast<AT_DrawingAttr*>(&attr))
        return changeExposures(*drawing, words);
    if (words.size() > 1)
        return error(QStringLiteral("%1 cannot be animated: give it one value").arg(attr.keyword()));
    if (text)
        return owned(text->setValueCmd(0.0, words.first()));
    if (auto* choice = dynamic_cast<AT_EnumAttrBase*>(&attr))
        return changeEnum(*choice, words.first());
    if (auto* truth = dynamic_cast<AT_BoolAttr*>(&attr)) {
        const auto value = truthValue(words.first());
        return value ? MadeCommand(owned(truth->setValueCmd(0.0, *value))) : MadeCommand(value.error());
    }
    return error(QStringLiteral("%1 is of a kind that has no text").arg(attr.keyword()));
}

MadeCommand changeModule(MO_Module& module, const QString& key, const QString& word)
{
    if (key == QLatin1String("name"))
        return MO_EditCommand(MO_renameCmd(module, word));
    const auto enabled = truthValue(word);
    if (!enabled)
        return enabled.error();
    return MO_EditCommand(MO_enableCmd({&module}, *enabled));
}

MadeCommand changeFrames(MO_Scene& scene, const QString& word)
{
    static const QRegularExpression range(QStringLiteral("^(-?\\d+)-(-?\\d+)$"));
    const QRegularExpressionMatch match = range.match(word);
    if (!match.hasMatch())
        return error(QStringLiteral("\"%1\" stands where the first and the last frame are meant to stand, as in 1-48")
                         .arg(word));
    return MO_EditCommand(MO_frameRangeCmd(scene, match.captured(1).toInt(), match.captured(2).toInt()));
}

MadeCommand commandFor(MO_Scene& scene, const QString& subject, const QStringList& words)
{
    if (subject == QLatin1String("frames") && words.size() == 1)
        return changeFrames(scene, words.first());
    const QString node = AT_AttrLink::nodeOf(subject);
    const QString key = AT_AttrLink::keyOf(subject);
    if (AT_Attr* attr = subject.contains(u'.') ? scene.findAttr(subject) : nullptr)
        return changeAttribute(scene, *attr, words);
    MO_Module* const module = scene.findModule(node);
    if (!module)
        return error(
            QStringLiteral("\"%1\" names nothing: MODULE.ATTRIBUTE is meant to stand there, the module one of %2")
                .arg(subject, moduleNames(scene).join(QStringLiteral(", "))));
    if (words.size() == 1 && (key == QLatin1String("name") || key == QLatin1String("enabled")))
        return changeModule(*module, key, words.first());
    return error(QStringLiteral("\"%1\" has no attribute \"%2\"; it has %3")
                     .arg(node, key, keysOf(*module).join(QStringLiteral(", "))));
}

} // namespace

UT_Result<bool> setInScene(MO_Scene& scene, CO_CommandStack& stack, const QString& subject, const QStringList& words)
{
    if (words.isEmpty())
        return error(QStringLiteral("behind \"%1\" its new value is meant to stand").arg(subject));
    MadeCommand command = commandFor(scene, subject, words);
    if (!command)
        return command.error();
    return stack.execute(std::move(*command));
}
