// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Maps the streams' functions to those of QIODevice.
#include "QuarvelImageIO/private/IIO_ExrStream.h"

#include <algorithm>
#include <stdexcept>

void IIO_ExrOutput::write(const char bytes[], int count)
{
    constexpr int kOffsetBytes = 8;
    if (_wentBack && count == kOffsetBytes && std::all_of(bytes, bytes + count, [](char byte) { return byte == 0; }))
        _isComplete = false;
    if (_device.write(bytes, count) != count)
        throw std::runtime_error(_device.errorString().toStdString());
}

uint64_t IIO_ExrOutput::tellp()
{
    return static_cast<uint64_t>(_device.pos());
}

void IIO_ExrOutput::seekp(uint64_t position)
{
    _wentBack = true;
    if (!_device.seek(static_cast<qint64>(position)))
        throw std::runtime_error(_device.errorString().toStdString());
}

bool IIO_ExrInput::read(char bytes[], int count)
{
    if (_device.read(bytes, count) != count)
        throw std::runtime_error("the file ends too early");
    return !_device.atEnd();
}

uint64_t IIO_ExrInput::tellg()
{
    return static_cast<uint64_t>(_device.pos());
}

void IIO_ExrInput::seekg(uint64_t position)
{
    if (!_device.seek(static_cast<qint64>(position)))
        throw std::runtime_error("the file ends too early");
}
