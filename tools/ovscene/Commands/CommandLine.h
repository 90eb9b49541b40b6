// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace ovscene {

/// The whole program: takes the command line, does what it says, and returns the exit status.
/// Throws nothing; a failure is one line on the standard error stream.
int runCommandLine(int argc, char** argv) noexcept;

}  // namespace ovscene
