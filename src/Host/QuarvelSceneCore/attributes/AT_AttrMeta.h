// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_AttrMeta: what all attributes of one kind have in common, as one object that lives as long as the library that
// defines it (a static of that library). Two attributes are of the same kind when they share it.
#pragma once

#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

#include <QString>

/// The key and the label of an attribute.
class QUARVELSCENECORE_EXPORT AT_AttrMeta
{
public:
    /// @param key the attribute's name in files and paths: letters, digits and underscores, a letter first
    /// @param label the name that people read, untranslated (see AT_Attr::label())
    AT_AttrMeta(const QString& key, const QString& label);
    AT_AttrMeta(const AT_AttrMeta&) = delete;
    AT_AttrMeta& operator=(const AT_AttrMeta&) = delete;
    virtual ~AT_AttrMeta();

    const QString& key() const { return _key; }
    const QString& label() const { return _label; }

private:
    QString _key;
    QString _label;
};
