// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the tests of attributes share: reading from a text, running commands, counting notifications, an enumeration.
#pragma once

#include "QuarvelCommand/CO_Command.h"
#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_EnumAttr.h"

#include <gtest/gtest.h>

#include <memory>

namespace AttrTesting {

inline QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

/// What an attribute writes.
inline QString saved(const PIO_XmlWritable& object)
{
    return object.toXml().trimmed();
}

/// Reads an attribute from the text of its element.
inline bool load(AT_Attr& attr, const QString& xml, QStringList* warnings = nullptr)
{
    const UT_Result<QDomDocument> document = PO_parseDocument(xml.toUtf8(), QStringLiteral("test"));
    if (!document.ok()) {
        ADD_FAILURE() << document.error().text.toStdString();
        return false;
    }
    return attr.parseXml(document->documentElement(), warnings);
}

inline bool load(AT_Attr& attr, const char* xml, QStringList* warnings = nullptr)
{
    return load(attr, QString::fromUtf8(xml), warnings);
}

/// Executes a command, undoes it, redoes it, and checks the saved text at each step.
///
/// @return the saved text after the command
inline QString checkCommand(const AT_Attr& attr, const std::unique_ptr<CO_Command>& command)
{
    if (!command) {
        ADD_FAILURE() << "no command";
        return QString();
    }
    const QString before = saved(attr);
    command->execute();
    const QString after = saved(attr);
    EXPECT_NE(before, after);
    command->undo();
    EXPECT_EQ(saved(attr), before);
    command->redo();
    EXPECT_EQ(saved(attr), after);
    return after;
}

/// The same for a command that is owned by the caller.
inline QString checkCommand(const AT_Attr& attr, CO_Command* owned)
{
    return checkCommand(attr, std::unique_ptr<CO_Command>(owned));
}

/// Whether a command was made.
inline bool isCommand(const std::unique_ptr<CO_Command>& command)
{
    return command != nullptr;
}

/// The same for a command that is owned by the caller; deletes it.
inline bool isCommand(CO_Command* owned)
{
    const std::unique_ptr<CO_Command> command(owned);
    return command != nullptr;
}

/// Counts its notifications.
class Counter : public XUListener
{
public:
    explicit Counter(XUTeller& teller) { teller.addListener(*this); }
    void told(XUTeller&) override { ++count; }
    int count = 0;
};

/// A surrogate with a given value.
class FixedSurrogate : public AT_ScalarSimpleAttrSurrogate
{
public:
    explicit FixedSurrogate(std::optional<double> number) : _number(number) {}
    std::optional<double> value(double) const override { return _number; }

    void change(double number)
    {
        _number = number;
        tell();
    }

private:
    std::optional<double> _number;
};

enum eSpeed
{
    SLOW_SPEED = 0,
    FAST_SPEED = 1,
    WARP_SPEED = 5
};

/// An enumerated attribute as modules derive it: it defines its values and the versions of its format. Version 2
/// renames the fastest value.
class SpeedAttr : public AT_EnumAttr<eSpeed>
{
public:
    using AT_EnumAttr<eSpeed>::AT_EnumAttr;

    bool parseXml(const QDomElement& element, QStringList* warnings) override
    {
        setFormatVersion(PO_intAttribute(element, kPIO_atributeVersion).value_or(1));
        return AT_SimpleAttr::parseXml(element, warnings);
    }

    void writeXmlAttributes(PO_XmlWriter& writer) const override
    {
        AT_EnumAttr<eSpeed>::writeXmlAttributes(writer);
        if (formatVersion() != 1)
            writer.attribute(kPIO_atributeVersion, formatVersion());
    }

protected:
    void fillValueTable(ValueTable& table) const override
    {
        const char* fastest = formatVersion() == 2 ? "LUDICROUS_SPEED" : "WARP_SPEED";
        addValue(table, SLOW_SPEED, latin("SLOW_SPEED"), latin("Slow"), false);
        addValue(table, FAST_SPEED, latin("FAST_SPEED"), latin("Fast"), false);
        addValue(table, WARP_SPEED, latin(fastest), latin("Beyond light"), true);
    }
};

inline const AT_AttrMeta& speedMeta()
{
    static const AT_AttrMeta meta(latin("Speed"), latin("Speed of it"));
    return meta;
}

/// A number from 0 to 10.
inline const AT_DoubleAttrMeta& scaleMeta()
{
    static const AT_DoubleAttrMeta meta(latin("Scale"), latin("Scale of it"), latin("STEP"), 0.0, 10.0, 0.0, 5.0);
    return meta;
}

/// A number with very wide limits.
inline const AT_DoubleAttrMeta& wideMeta()
{
    constexpr double kMost = std::numeric_limits<double>::max();
    static const AT_DoubleAttrMeta meta(latin("Wide"), latin("Wide"), latin("STEP"), -kMost, kMost, 0.0, 1.0);
    return meta;
}

inline std::unique_ptr<AT_DoubleAttr> makeScale(double value = 1.0)
{
    return std::make_unique<AT_DoubleAttr>(scaleMeta(), nullptr, AT_DoubleAttr::LINKABLE, value, QString());
}

inline std::unique_ptr<AT_DoubleAttr> makeWide(double value = 0.0)
{
    return std::make_unique<AT_DoubleAttr>(wideMeta(), nullptr, AT_DoubleAttr::LINKABLE, value, QString());
}

} // namespace AttrTesting
