// SPDX-License-Identifier: GPL-3.0-or-later
// The program for service: the same form, with the controls that the operator's program keeps out of sight.
#include "program.h"
#include "service_controls.h"

int main(int argc, char** argv)
{
    return orb::runProgram(argc, argv, orb::showServiceControls);
}
