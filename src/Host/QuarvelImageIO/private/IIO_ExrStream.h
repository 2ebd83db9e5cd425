// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The streams through which the OpenEXR library writes and reads, over devices of Qt.
#pragma once

#include <OpenEXR/ImfIO.h>
#include <QIODevice>

/// Writes to a device; throws, as the library expects, when a write fails. The library swallows exceptions while it
/// closes a file, so the device has to remember failures by itself.
class IIO_ExrOutput final : public Imf::OStream
{
public:
    /// @param device open and seekable; it must outlive this stream
    IIO_ExrOutput(QIODevice& device, const char* name) : OStream(name), _device(device) {}

    void write(const char bytes[], int count) override;
    uint64_t tellp() override;
    void seekp(uint64_t position) override;

private:
    QIODevice& _device;
};

/// Reads from a device; throws when the file ends too early.
class IIO_ExrInput final : public Imf::IStream
{
public:
    /// @param device open and seekable; it must outlive this stream
    IIO_ExrInput(QIODevice& device, const char* name) : IStream(name), _device(device) {}

    bool read(char bytes[], int count) override;
    uint64_t tellg() override;
    void seekg(uint64_t position) override;

private:
    QIODevice& _device;
};
