// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the process gives up before it touches an untrusted file. The library that reads animations is taken to be in a
// stranger's hands from its first byte on; what it can still do then is all that an attacker could.
//
// With the system's filter of calls (seccomp, on Linux) that is, exactly:
//   - to use up to 2 GiB of memory and 120 seconds of processor time;
//   - to write bytes to standard output and standard error, and to close them;
//   - to ask for the time, for random numbers and for its own numbers, to wait, to change how it handles signals, to
//     end itself, with any exit code or signal.
// It cannot open, make, change, rename, link or remove a file or a folder, or learn whether there is one; it cannot
// start a process, a thread or a program, send a signal to another process, look into one or change its limits; it has
// no network and no other descriptors than the two, cannot make code out of data, and cannot undo any of this. Every
// such call fails with EPERM.
//
// A build without the filter (VALLORIN_CONFINEMENT=OFF) has the limits of memory and time and opens nothing, no more:
// it can start processes, remove and rename files, and send signals.
#pragma once

/// Limits this process for good. To be called on its only thread, once the file's bytes are in memory. Descriptors but
/// standard output and standard error are closed. Standard output and error must have their buffers.
///
/// @return false when the system refuses; the process must not go on then
bool confine();

/// Whether this build has the filter of calls.
bool confinementFiltersCalls();
