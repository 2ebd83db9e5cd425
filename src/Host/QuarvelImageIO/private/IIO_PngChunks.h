// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writes the elements of PNG files and films: a signature and chunks. A chunk consists of its length, its type, its
// data, and a checksum of type and data.
#pragma once

#include "QuarvelImageIO/private/IIO_PngPixels.h"

#include <QByteArray>
#include <QIODevice>
#include <QSize>
#include <QtEndian>

#include <span>

/// The bytes of a number in the byte order of PNG.
template<typename Number>
QByteArray IIO_bigEndian(Number number)
{
    QByteArray bytes(sizeof(Number), Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

/// Writes chunks to a device, which must remember failures itself.
class IIO_PngChunks
{
public:
    /// @param device open; it must outlive this object
    explicit IIO_PngChunks(QIODevice& device) : _device(device) {}

    /// The signature at the beginning of every file.
    void writeSignature();

    /// @param type four letters
    /// @param data the chunk's data
    /// @param more more of the chunk's data, which follow `data`
    void write(const char* type, const QByteArray& data, std::span<const std::uint8_t> more = {});

    /// IHDR, not interlaced.
    void writeHeader(const QSize& size, const IIO_PngForm& form);

    /// pHYs.
    void writeDensity(int dotsPerMetre);

    /// Writes a text, in tEXt if Latin-1 can hold it, else in iTXt.
    ///
    /// @param key a key that IIO_Metadata::isValidKey() accepts
    void writeText(const QString& key, const QString& value);

private:
    QIODevice& _device;
};
