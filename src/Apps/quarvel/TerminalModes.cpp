// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "TerminalModes.h"

#include <QtGlobal>

#ifdef Q_OS_WIN

#include <qt_windows.h>

TerminalModes::TerminalModes() : _codePage(GetConsoleOutputCP())
{
    if (_codePage != 0)
        SetConsoleOutputCP(CP_UTF8);
    // The sequences are written to standard error alone.
    const HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    _isErrorConsole = GetConsoleMode(error, &mode) != 0;
    _errorMode = mode;
    if (_isErrorConsole)
        SetConsoleMode(error, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

TerminalModes::~TerminalModes()
{
    if (_isErrorConsole)
        SetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), _errorMode);
    if (_codePage != 0)
        SetConsoleOutputCP(_codePage);
}

#else

TerminalModes::TerminalModes() = default;
TerminalModes::~TerminalModes() = default;

#endif
