// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The streams through which the OpenEXR library writes and reads Qt's devices.
#pragma once

#include <OpenEXR/ImfIO.h>
#include <QIODevice>

/// Writes to a device; throws if a write fails, as the library expects. The library swallows exceptions while it closes
/// a file, so the device must remember failures itself.
class IIO_ExrOutput final : public Imf::OStream
{
public:
    /// @param device open and seekable; it must outlive this stream
    IIO_ExrOutput(QIODevice& device, const char* name) : OStream(name), _device(device) {}

    void write(const char bytes[], int count) override;
    uint64_t tellp() override;
    void seekp(uint64_t position) override;

    /// Whether every block of rows has its place in the file. Ask when the library has closed the file: of a block that
    /// it could not compress for lack of memory it writes an offset of 0 into its table, and says nothing.
    bool isComplete() const { return _isComplete; }

private:
    QIODevice& _device;
    bool _wentBack = false;
    bool _isComplete = true;
};

/// Reads from a device; throws if the file ends too early.
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
