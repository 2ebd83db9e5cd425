// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How the programs end.
#pragma once

/// Ends the process where the system would stop it halfway, and returns everywhere else. The last call of main, after
/// everything that the program owns is destroyed.
///
/// Windows stops all other threads before it tells the libraries to end, and then these wait for locks that stopped
/// threads hold: those of Qt that watch threads which it did not start.
///
/// @return the exit code
int endProgram(int exitCode);
