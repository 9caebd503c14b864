// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture_tool.h"

#include <QGridLayout>

namespace orb {

namespace {

QString withoutOuterBlanks(const QString& text)
{
    qsizetype from = 0;
    qsizetype to = text.size();
    while (from < to && text[from] == QLatin1Char(' '))
        ++from;
    while (to > from && text[to - 1] == QLatin1Char(' '))
        --to;
    return text.mid(from, to - from);
}

} // namespace

CaptureTool::CaptureTool(const Paths& paths, ListBox& lstCommand) : paths_(paths), lstCommand_(lstCommand)
{
    createLayout();
    Command1.onClick = [this] { Command1Click(); };
    Command2.onClick = [this] { Command2Click(); };
    Command3.onClick = [this] { Command3Click(); };
}

void CaptureTool::createLayout()
{
    resizeTwips(7455, 2400);
    Text7.setAccessibleName(QStringLiteral("Key name"));
    Text2.setAccessibleName(QStringLiteral("File"));
    TXT.setAccessibleName(QStringLiteral("Command"));
    auto* grid = new QGridLayout(this);
    int column = 0;
    for (QWidget* part : std::initializer_list<QWidget*>{&Text7, &lblX1, &lblY1, &lblX2, &lblY2})
        grid->addWidget(part, 0, column++);
    grid->addWidget(&Text2, 1, 0, 1, 2);
    grid->addWidget(&TXT, 1, 2, 1, 3);
    column = 0;
    for (PictureButton* button : {&Command1, &Command2, &Command3})
        grid->addWidget(button, 2, column++);
}

OutputFile& CaptureTool::openFile()
{
    if (!channel11_)
        throw RuntimeFailure(failure::BadFileName);
    return *channel11_;
}

void CaptureTool::Command1Click()
{
    lstCommand_.clear();
    if (channel11_)
        throw RuntimeFailure(failure::FileAlreadyOpen);
    channel11_.emplace(paths_.toWrite(QStringLiteral("\\orbbutton.dat")));
}

void CaptureTool::Command2Click()
{
    openFile().close();
    channel11_.reset();
}

void CaptureTool::Command3Click()
{
    const QStringList fields{withoutOuterBlanks(Text7.text()), lblX1.caption(), lblY1.caption(), lblX2.caption(),
                             lblY2.caption()};
    openFile().writeLine(fields.join(QLatin1Char(',')));
    openFile().flush(); // the row outlives an Exit that closes nothing
}

} // namespace orb
