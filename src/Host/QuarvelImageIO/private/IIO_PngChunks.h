// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What PNG files and films are made of: a signature and chunks. A chunk is its length, its type, its data, and a
// checksum of the two.
#pragma once

#include "QuarvelImageIO/private/IIO_PngPixels.h"

#include <QByteArray>
#include <QIODevice>
#include <QSize>
#include <QtEndian>

#include <span>

/// A number as PNG has it.
template<typename Number>
QByteArray IIO_bigEndian(Number number)
{
    QByteArray bytes(sizeof(Number), Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

/// Writes chunks to a device, which has to remember failures by itself.
class IIO_PngChunks
{
public:
    /// @param device open; it must outlive this object
    explicit IIO_PngChunks(QIODevice& device) : _device(device) {}

    /// What every file begins with.
    void writeSignature();

    /// @param type four letters
    /// @param data what the chunk holds
    /// @param more the same, behind the data
    void write(const char* type, const QByteArray& data, std::span<const std::uint8_t> more = {});

    /// IHDR, not interlaced.
    void writeHeader(const QSize& size, const IIO_PngForm& form);

    /// pHYs.
    void writeDensity(int dotsPerMetre);

    /// A text, in tEXt when Latin-1 holds it, else in iTXt.
    ///
    /// @param key as IIO_Metadata::isValidKey wants it
    void writeText(const QString& key, const QString& value);

private:
    QIODevice& _device;
};
