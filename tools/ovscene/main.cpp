// SPDX-License-Identifier: Apache-2.0
#include "Commands/CommandLine.h"

int main(int argc, char** argv) {
    return ovscene::runCommandLine(argc, argv);
}
