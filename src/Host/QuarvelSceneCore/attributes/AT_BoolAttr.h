// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_BoolAttr: an attribute that is on or off. In files "true" and "false".
#pragma once

#include "QuarvelSceneCore/attributes/AT_SimpleAttr.h"

/// A truth value.
class QUARVELSCENECORE_EXPORT AT_BoolAttr : public AT_SimpleAttr
{
public:
    AT_BoolAttr(const AT_AttrMeta& meta, bool defaultValue, AT_Attr* parent = nullptr);
    ~AT_BoolAttr() override;

    bool localValue() const { return _localValue; }
    /// @return whether the local value changed; listeners are notified only then
    bool setLocalValue(bool value);
    /// The surrogate's value (true when it is not 0) or else the local one.
    bool value(double frame = 0.0) const;
    /// The command that sets the local value; the frame does not matter to this class.
    ///
    /// @return owned by the caller; null when nothing would change
    CO_Command* setValueCmd(double frame, bool value);

    /// The truth value of a word: true, on, yes, 1 and false, off, no, 0, in any case; nothing for other words.
    static std::optional<bool> meaningOf(const QString& word);

    void accept(AT_AttrVisitor& visitor) override;
    /// "On" or "Off", translated.
    QString displayText(double frame) const override;
    /// Accepts the words of meaningOf(), ignoring white space around them.
    bool parseText(const QString& text, bool apply) override;
    bool equals(const AT_Attr& other) const override;
    CO_Command* createCopyCmd(const AT_Attr& other) override;
    std::optional<double> scalarValue(double frame) const override;

protected:
    QString localValueXml() const override;
    bool parseLocalValueXml(const QString& text, QStringList* warnings) override;

private:
    bool _localValue;
};
