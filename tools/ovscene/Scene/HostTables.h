// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace ovscene {

/// Makes the program a host of renderers: publishes the library's tables in the host's, where those
/// whom it loads find them. Call it before plug-ins are asked for their suites; again it does
/// nothing. Throws a `CommandError` when the tables' names are taken. Any thread.
void publishHostTables();

}  // namespace ovscene
