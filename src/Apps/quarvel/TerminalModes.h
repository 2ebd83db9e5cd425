// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a terminal has to be told before it shows what the program writes: a console of Windows takes texts as those of
// an old code page, and shows the sequences that write a line over instead of obeying them.
#pragma once

/// Lets the terminal show UTF-8 and obey its sequences while the object lives; then the terminal is as it was before.
/// Make one object, in the main thread, before the first text is written. Nothing is to be done on systems other than
/// Windows.
class TerminalModes
{
public:
    TerminalModes();
    ~TerminalModes(); // NOLINT(performance-trivially-destructible): on Windows it has work to do
    TerminalModes(const TerminalModes&) = delete;
    TerminalModes& operator=(const TerminalModes&) = delete;

private:
    [[maybe_unused]] unsigned _codePage = 0;       ///< the one before; 0 where there is no console
    [[maybe_unused]] unsigned long _errorMode = 0; ///< that of standard error before
    [[maybe_unused]] bool _isErrorConsole = false;
};
