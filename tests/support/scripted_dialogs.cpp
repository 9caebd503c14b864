// SPDX-License-Identifier: GPL-3.0-or-later
#include "scripted_dialogs.h"

namespace orb {

Answer ScriptedDialogs::message(const QString& text, Icon icon, Buttons buttons)
{
    shown.push_back({text, icon, buttons});
    if (onMessage)
        onMessage(shown.back());
    if (buttons == Buttons::Ok)
        return Answer::Ok;
    if (answers.empty())
        return Answer::No;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

bool ScriptedDialogs::showFile(const QString& mode)
{
    fileDialogs.push_back({mode, CommonDialog1});
    if (files.empty())
        return false;
    const auto file = files.front();
    files.pop_front();
    if (file)
        CommonDialog1.fileName = *file;
    return file.has_value();
}

bool ScriptedDialogs::showPrinter()
{
    ++printerDialogs;
    if (onPrinterDialog)
        onPrinterDialog();
    return printerAccepted;
}

} // namespace orb
