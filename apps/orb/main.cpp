// SPDX-License-Identifier: GPL-3.0-or-later
#include "program.h"

int main(int argc, char** argv)
{
    return orb::runProgram(argc, argv);
}
