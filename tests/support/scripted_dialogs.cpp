// SPDX-License-Identifier: GPL-3.0-or-later
#include "scripted_dialogs.h"

namespace orb {

namespace {

QString name(Icon icon)
{
    return icon == Icon::Critical      ? QStringLiteral("critical")
           : icon == Icon::Information ? QStringLiteral("information")
                                       : QStringLiteral("none");
}

} // namespace

void ScriptedDialogs::write(const QString& line)
{
    if (journal_)
        journal_->write(line);
}

Answer ScriptedDialogs::message(const QString& text, Icon icon, Buttons buttons)
{
    shown.push_back({text, icon, buttons});
    write(QStringLiteral("message \"%1\" %2 %3")
              .arg(text, name(icon), buttons == Buttons::Ok ? QStringLiteral("Ok") : QStringLiteral("YesNo")));
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
    write(QStringLiteral("%1 directory \"%2\" filter \"%3\" title \"%4\" name \"%5\"")
              .arg(mode, CommonDialog1.initialDirectory, CommonDialog1.filter, CommonDialog1.title,
                   CommonDialog1.fileName));
    if (onFileDialog)
        onFileDialog();
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
    write(QStringLiteral("printer dialog"));
    if (onPrinterDialog)
        onPrinterDialog();
    return printerAccepted;
}

bool ScriptedDialogs::showDocument(const QString& path)
{
    write(QStringLiteral("document %1").arg(path));
    return documentsCanBeShown;
}

} // namespace orb
