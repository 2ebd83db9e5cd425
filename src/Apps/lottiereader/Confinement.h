// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the process gives up before it touches an untrusted file. From the first byte on, the library that reads
// animations is assumed to be controlled by an attacker; the attacker can do what the process still can.
//
// With the system's filter of calls (seccomp, on Linux) that is exactly:
//   - to use up to 2 GiB of memory and 120 seconds of processor time;
//   - to write bytes to standard output and standard error, and to close them;
//   - to ask for the time, for random numbers and for its own process numbers, to wait, to change how it handles
//     signals, to end itself, with any exit code or signal.
// It cannot open, create, change, rename, link or remove a file or a folder, or learn whether one exists; it cannot
// start a process, a thread or a program, send a signal to another process, inspect one or change its limits; it has no
// network and no descriptors except those two, cannot make memory executable, and cannot undo any of this. Every such
// call fails with EPERM.
//
// A build without the filter (VALLORIN_CONFINEMENT=OFF) only limits memory and time and opens nothing: it can start
// processes, remove and rename files, and send signals.
#pragma once

/// Limits this process permanently. To be called on its only thread, once the file's bytes are in memory. Closes all
/// descriptors except standard output and standard error, whose buffers must be allocated already.
///
/// @return false when the system refuses; the process must not go on then
bool confine();

/// Whether this build has the filter of calls.
bool confinementFiltersCalls();
