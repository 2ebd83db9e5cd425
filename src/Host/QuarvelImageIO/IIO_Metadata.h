// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// IIO_Metadata: the texts in a picture file besides its pixels (which program wrote it, how to read its channels). PNG
// stores them in text chunks, OpenEXR in string attributes.
#pragma once

#include "QuarvelImageIO/QuarvelImageIOExport.h"

#include <QString>

#include <utility>
#include <vector>

/// Texts by key, in the order in which they were first set. Keys are unique.
///
/// A key consists of 1 to 79 printable Latin-1 characters without spaces at its ends or repeated spaces, which every
/// format can store; the writers refuse other keys. A value is any text without NUL.
class QUARVELIMAGEIO_EXPORT IIO_Metadata
{
public:
    using Entry = std::pair<QString, QString>;

    friend bool operator==(const IIO_Metadata&, const IIO_Metadata&) = default;

    /// Sets a key's value. A key that exists already keeps its place.
    void set(const QString& key, const QString& value);

    /// Sets every entry of the other.
    void add(const IIO_Metadata& other);

    /// The key's value; empty if the key does not exist.
    QString value(const QString& key) const;

    const std::vector<Entry>& entries() const { return _entries; }

    /// True if every format can store the key.
    static bool isValidKey(const QString& key);

private:
    std::vector<Entry> _entries;
};
