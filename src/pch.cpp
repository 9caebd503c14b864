// SPDX-License-Identifier: GPL-3.0-or-later
// The precompiled header belongs to a library, and a library needs a source file.
