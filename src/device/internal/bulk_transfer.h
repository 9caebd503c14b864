// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session.h"

namespace orb {

/// The transfers between the instrument and the staging files (see `staging`), each a definite-length block. Each
/// blocks for two seconds at most, and its file is closed when it returns. False where it failed: a file that should
/// have been written is what it was then.
bool fetchScreen(Session& session);
bool fetchSequenceFile(Session& session);
bool fetchProgramFile(Session& session);
/// Sends `staging::programUpload`.
bool sendProgramFile(Session& session);

} // namespace orb
