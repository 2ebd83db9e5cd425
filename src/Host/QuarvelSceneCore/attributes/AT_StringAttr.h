// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_StringAttr: an attribute that is a text, any text.
#pragma once

#include "QuarvelSceneCore/attributes/AT_SimpleAttr.h"

/// A text. Cannot be driven by a surrogate.
class QUARVELSCENECORE_EXPORT AT_StringAttr : public AT_SimpleAttr
{
public:
    /// @param multiline whether the text may have several lines; decides which field editors offer
    /// @param filePath whether the text is the path of a file; decides whether editors offer a file dialogue
    AT_StringAttr(const AT_AttrMeta& meta, const QString& defaultValue, bool multiline, bool filePath,
                  AT_Attr* parent = nullptr);
    ~AT_StringAttr() override;

    bool isMultiline() const { return _multiline; }
    bool isFilePath() const { return _filePath; }

    const QString& localValue() const { return _localValue; }
    /// @return whether the local value changed; listeners are notified only then
    bool setLocalValue(const QString& value);
    /// The command that sets the local value; the frame does not matter to this class.
    ///
    /// @return owned by the caller; null when nothing would change
    CO_Command* setValueCmd(double frame, const QString& value);

    bool isLinkable() const override;
    void accept(AT_AttrVisitor& visitor) override;
    QString displayText(double frame) const override;
    /// Accepts every text.
    bool parseText(const QString& text, bool apply) override;
    bool equals(const AT_Attr& other) const override;
    CO_Command* createCopyCmd(const AT_Attr& other) override;
    std::optional<double> scalarValue(double frame) const override;

protected:
    QString localValueXml() const override;
    bool parseLocalValueXml(const QString& text, QStringList* warnings) override;

private:
    QString _localValue;
    bool _multiline;
    bool _filePath;
};
