// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen_context.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace orb {

ScreenContext getScreenContext()
{
#ifdef Q_OS_WIN
    return ::GetDC(nullptr);
#else
    return nullptr;
#endif
}

void deleteScreenContext([[maybe_unused]] ScreenContext context)
{
#ifdef Q_OS_WIN
    if (context != nullptr)
        ::DeleteDC(static_cast<HDC>(context)); // not ReleaseDC: the form has always paired the calls so
#endif
}

} // namespace orb
