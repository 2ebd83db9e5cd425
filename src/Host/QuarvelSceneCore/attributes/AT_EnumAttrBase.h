// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_EnumAttrBase: an attribute that has one of a few named values; the parts that are independent of the enumeration's
// C++ type. AT_EnumAttr.h has the class to derive from.
#pragma once

#include "QuarvelCommand/CO_Command.h"
#include "QuarvelSceneCore/attributes/AT_SimpleAttr.h"

#include <map>
#include <utility>

/// An attribute with a table of values, each of which has an integer, a keyword for files and a label for people.
class QUARVELSCENECORE_EXPORT AT_EnumAttrBase : public AT_SimpleAttr
{
public:
    /// What the table knows about a value.
    struct EnumValue
    {
        /// The value's name in files.
        QString keyword;
        /// The value's name for people, translated.
        QString label;
        /// Kept for old files only; not offered to people.
        bool flag = false;
    };
    /// The values by their integers, ascending.
    using ValueTable = std::map<int, EnumValue>;
    using Row = ValueTable::value_type;
    using Iterator = ValueTable::const_iterator;

    class SetLocalValueCmd;

    explicit AT_EnumAttrBase(const AT_AttrMeta& meta, AT_Attr* parent = nullptr);
    ~AT_EnumAttrBase() override;

    /// The first row, in ascending order, whose label or keyword is exactly the text; null when there is none.
    virtual const Row* findRow(const QString& text) const = 0;
    /// Sets the local value to that of the first row whose keyword is exactly the text.
    ///
    /// @return whether there is such a row; without one nothing changes
    virtual bool setByKeyword(const QString& keyword) = 0;
    /// The beginning and the end of the value table, as iterators.
    virtual std::pair<Iterator, Iterator> values() const = 0;
    /// Sets the local value, which need not be in the table.
    ///
    /// @return whether the local value changed; listeners are notified only then
    virtual bool setLocalInt(int value) = 0;
    virtual int localInt() const = 0;
    /// The effective value: the surrogate's (the nearest integer) or else the local one.
    virtual int effectiveInt(double frame) const = 0;

    /// The command that sets the local value; the frame does not matter to this class.
    ///
    /// @return owned by the caller; null when nothing would change
    CO_Command* setIntCmd(double frame, int value);

    std::optional<double> scalarValue(double frame) const override;

protected:
    /// Adds a row to a table. If the value has a row already, that row is kept.
    static void addValue(ValueTable& table, int value, const QString& keyword, const QString& label, bool flag);

    /// A surrogate's value as an integer.
    static int toInt(double value);
    Parsed parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings) override;
};

/// Sets the local value of an enumerated attribute. Consecutive ones for the same attribute merge.
class QUARVELSCENECORE_EXPORT AT_EnumAttrBase::SetLocalValueCmd : public CO_Command
{
public:
    SetLocalValueCmd(AT_EnumAttrBase& attr, int value);
    ~SetLocalValueCmd() override;

    QString name() const override;
    void execute() override;
    void undo() override;
    bool hasEffect() const override;
    bool canMergeWith(const CO_Command& later) const override;
    void mergeWith(const CO_Command& later) override;

private:
    UT_WeakPtr<AT_EnumAttrBase> _attr;
    QString _name;
    int _before;
    int _after;
};
