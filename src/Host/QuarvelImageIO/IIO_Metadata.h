// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// IIO_Metadata: the texts that travel inside a picture file beside its pixels (which program wrote it, how its channels
// are to be read). PNG keeps them in text chunks, OpenEXR in string attributes.
#pragma once

#include "QuarvelImageIO/QuarvelImageIOExport.h"

#include <QString>

#include <utility>
#include <vector>

/// Texts by key, in the order in which they were first set. Keys are unique.
///
/// A key is 1 to 79 printable Latin-1 characters without spaces at its ends, which is what every format can keep; the
/// writers refuse others. Values are any text without NUL.
class QUARVELIMAGEIO_EXPORT IIO_Metadata
{
public:
    using Entry = std::pair<QString, QString>;

    friend bool operator==(const IIO_Metadata&, const IIO_Metadata&) = default;

    /// Sets a key's value, in its old place when the key is there already.
    void set(const QString& key, const QString& value);

    /// Sets every entry of the other.
    void add(const IIO_Metadata& other);

    /// The key's value; empty when there is none.
    QString value(const QString& key) const;

    const std::vector<Entry>& entries() const { return _entries; }

    /// True when every format can keep the key.
    static bool isValidKey(const QString& key);

private:
    std::vector<Entry> _entries;
};
