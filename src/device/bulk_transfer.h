// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session.h"

namespace orb {

/// The transfers between the instrument and the staging files (see `staging`), each a definite-length block. Each
/// blocks for two seconds at most, and its file is closed when it returns.

/// Fetches the instrument's screen. True when a complete new picture is in its file.
bool fetchScreen(Session& session);

/// Fetch a file of the instrument. Where that fails the staging file stays what it was.
void fetchSequenceFile(Session& session);
void fetchProgramFile(Session& session);

/// Sends the program file that lies ready, if there is one.
void sendProgramFile(Session& session);

} // namespace orb
