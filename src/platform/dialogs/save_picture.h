// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs.h"

#include <QImage>

namespace orb {

/// Asks the operator for a file and writes the picture to it in the PNG format; a file that can't be written is reported.
/// `CommonDialog1` is afterwards what it was before, since routines go by the name that it holds.
void savePicture(Dialogs& dialogs, const QImage& picture);

} // namespace orb
