// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_EnumAttr: the class template to derive an enumerated attribute from. The derived class fills the table of values
// (fillValueTable) and, where its files have changed over time, interprets the versions of the format; this class does
// the rest.
//
// The tables are not stored in the attributes: each enumeration has one map in the process, from the version of the
// format to its table. The map is made on first use, and each table is filled by the first attribute that needs it. The
// map lives in the library that instantiates the template, and is destroyed when that is unloaded.
#pragma once

#include "QuarvelBaseCore/UT_DynKey.h"
#include "QuarvelSceneCore/attributes/AT_AttrVisitor.h"
#include "QuarvelSceneCore/attributes/AT_EnumAttrBase.h"

#include <mutex>

/// An attribute whose value is an E.
///
/// @tparam E an enumeration type whose values fit an int; one class derives from AT_EnumAttr<E>
template<typename E>
class AT_EnumAttr : public AT_EnumAttrBase
{
public:
    explicit AT_EnumAttr(const AT_AttrMeta& meta, AT_Attr* parent = nullptr) : AT_EnumAttrBase(meta, parent) {}

    E localValue() const { return static_cast<E>(_localValue); }
    /// @return whether the local value changed; listeners are notified only then
    bool setLocalValue(E value) { return setLocalInt(static_cast<int>(value)); }
    /// The effective value: the surrogate's or else the local one.
    E value(double frame = 0.0) const { return static_cast<E>(effectiveInt(frame)); }
    /// The command that sets the local value; the frame does not matter to this class.
    ///
    /// @return owned by the caller; null when nothing would change
    CO_Command* setValueCmd(double frame, E value) { return setIntCmd(frame, static_cast<int>(value)); }

    /// The version of the format that the attribute was read in and is written in; 1 for a new attribute.
    int formatVersion() const { return _formatVersion; }

    /// The key under which enumerations of this type offer themselves to AT_AttrVisitor::visitDynamic().
    static const UT_DynKey& dynKey()
    {
        static const UT_DynKey key("AT_EnumAttr");
        return key;
    }

    void accept(AT_AttrVisitor& visitor) override
    {
        if (!visitor.visitDynamic(dynKey(), *this))
            visitor.visitEnum(*this);
    }

    /// The label of the effective value; empty when it is not in the table.
    QString displayText(double frame) const override
    {
        const ValueTable& table = valueTable();
        const auto row = table.find(effectiveInt(frame));
        return row == table.end() ? QString() : row->second.label;
    }

    const Row* findRow(const QString& text) const override
    {
        for (const Row& row : valueTable())
            if (row.second.label == text || row.second.keyword == text)
                return &row;
        return nullptr;
    }

    /// Sets the other's effective value, when it differs from this one's and both have the same metadata.
    CO_Command* createCopyCmd(const AT_Attr& other) override
    {
        if (!isSameClass(other) || &other.meta() != &meta() || equals(other))
            return nullptr;
        return new SetLocalValueCmd(*this, static_cast<const AT_EnumAttr&>(other).effectiveInt(0.0));
    }

    /// Accepts a text that AT_Attr::parseString() matches with a row; the first such row in ascending order counts.
    bool parseText(const QString& text, bool apply) override
    {
        for (const Row& row : valueTable())
            if (parseString(text, row.second.label, row.second.keyword))
                return apply ? setLocalInt(row.first) : true;
        return false;
    }

    /// Compares the effective values.
    bool equals(const AT_Attr& other) const override
    {
        return isSameClass(other) && static_cast<const AT_EnumAttr&>(other).effectiveInt(0.0) == effectiveInt(0.0);
    }

    bool setByKeyword(const QString& keyword) override
    {
        for (const Row& row : valueTable())
            if (row.second.keyword == keyword) {
                setLocalInt(row.first);
                return true;
            }
        return false;
    }

    std::pair<Iterator, Iterator> values() const override
    {
        const ValueTable& table = valueTable();
        return {table.begin(), table.end()};
    }

    bool setLocalInt(int value) override
    {
        if (value == _localValue)
            return false;
        _localValue = value;
        tell();
        return true;
    }

    int localInt() const override { return _localValue; }

    int effectiveInt(double frame) const override
    {
        const std::optional<double> driven = surrogateValue(frame);
        return driven ? toInt(*driven) : _localValue;
    }

protected:
    /// Adds the rows of the enumeration, for the attribute's format version, with addValue(). Runs once per version,
    /// under a lock: it must not ask an attribute of this type for its table.
    virtual void fillValueTable(ValueTable& table) const = 0;

    void setFormatVersion(int version) { _formatVersion = version; }

    /// The table for the attribute's format version, filled. Safe on several threads.
    const ValueTable& valueTable() const
    {
        VersionMap& map = versionMap();
        const std::lock_guard lock(map.mutex);
        ValueTable& table = map.tables[_formatVersion];
        if (table.empty()) {
            ValueTable filled;
            fillValueTable(filled);
            table = std::move(filled);
        }
        return table;
    }

    /// The keyword of the local value; empty when it is not in the table.
    QString localValueXml() const override
    {
        const ValueTable& table = valueTable();
        const auto row = table.find(_localValue);
        return row == table.end() ? QString() : row->second.keyword;
    }

    bool parseLocalValueXml(const QString& text, QStringList*) override { return setByKeyword(text); }

private:
    struct VersionMap
    {
        std::mutex mutex;
        std::map<int, ValueTable> tables;
    };

    static VersionMap& versionMap()
    {
        static VersionMap map;
        return map;
    }

    int _localValue = 0;
    int _formatVersion = 1;
};
