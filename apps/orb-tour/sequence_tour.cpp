// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_tour.h"

#include "form_orb.h"
#include "tour.h"
#include "user_interface.h"

#include <QCoreApplication>

#include <cmath>

namespace orb {

namespace {

// The last four points of the example are sent: the whole of it would take two minutes.
constexpr int firstPoint = 117;
constexpr int lastPoint = 120;
const QString editedCurrent = QStringLiteral("2.5");

/// The values of the points that were sent, one list each, shared by the steps.
using SentPoints = std::shared_ptr<std::vector<QStringList>>;

/// The time, the current, the rise and the fall of a point as the grid shows them.
QStringList shownPoint(const SequencePage& page, int point)
{
    QStringList texts;
    for (int column = 1; column <= 4; ++column)
        texts << page.DBGridSequence.cellText(point - 1, column);
    return texts;
}

void requireEqual(const QStringList& seen, const QStringList& wanted, const QString& what)
{
    bool equal = seen.size() == wanted.size();
    for (qsizetype i = 0; equal && i < seen.size(); ++i)
        equal = std::abs(seen[i].toDouble() - wanted[i].toDouble()) < 1e-6;
    if (!equal)
        throw TourFailure(QStringLiteral("%1: %2, and not %3").arg(what, seen.join(u' '), wanted.join(u' ')));
}

void openSteps(Tour& tour, FormORB& form)
{
    SequencePage& page = form.fraSequence;
    const QString example = QStringLiteral("ramp.a");
    tour.then(QStringLiteral("opens an example"), [&tour, &page, example] {
        QFile::remove(tour.path(example));
        if (!QFile::copy(QCoreApplication::applicationDirPath() + QStringLiteral("/examples/") + example,
                         tour.path(example)))
            throw TourFailure(QStringLiteral("there is no example ") + example);
        ui::press(page, QStringLiteral("Open Sequence File"));
    });
    tour.chooseFile(example);
    tour.then(
        QStringLiteral("the grid shows 120 points"), [&page] { return page.datORB.rowCount() == lastPoint; }, [] {});
    tour.picture(form, QStringLiteral("sequence.png"));
}

void editSteps(Tour& tour, FormORB& form)
{
    SequencePage& page = form.fraSequence;
    tour.then(QStringLiteral("moves the start of the loop, with the mouse"),
              [&page] { ui::editByMouse(page.DBGridHead, 1, 2, QString::number(firstPoint)); });
    tour.then(QStringLiteral("goes to the last point"), [&page] {
        page.DBGridSequence.setFocus();
        ui::pressKey(page.DBGridSequence, Qt::Key_End, Qt::ControlModifier);
        for (int i = 0; i < 2; ++i)
            ui::pressKey(page.DBGridSequence, Qt::Key_Left);
    });
    tour.then(QStringLiteral("changes its current, with the keys"),
              [&page] { ui::editByKeys(page.DBGridSequence, editedCurrent); });
    tour.then(QStringLiteral("both cells hold what was typed"), [&page] {
        requireEqual({page.DBGridHead.cellText(1, 2), page.DBGridSequence.cellText(lastPoint - 1, 2)},
                     {QString::number(firstPoint), editedCurrent}, QStringLiteral("the grids show"));
    });
    tour.picture(form, QStringLiteral("sequence_edited.png"));
}

void transferSteps(Tour& tour, FormORB& form, ORBCtrl& CORB, const SentPoints& sent)
{
    SequencePage& page = form.fraSequence;
    tour.then(QStringLiteral("sends the loop to the instrument"), [&page, sent] {
        for (int point = firstPoint; point <= lastPoint; ++point)
            sent->push_back(shownPoint(page, point));
        ui::press(page, QStringLiteral("Transfer Sequence to ORB"));
    });
    for (int point = firstPoint; point <= lastPoint; ++point) {
        tour.then(QStringLiteral("queries point %1").arg(point), [&CORB, point] {
            CORB.SendCommand(QStringLiteral(":SEQ:EDIT:POIN %1;:SEQ:POIN:TIME?;CURR?;RISE?;FALL?").arg(point));
        });
        tour.then(
            QStringLiteral("its values are those of the table"), [&CORB] { return !CORB.Reply().isEmpty(); },
            [&CORB, sent, point] {
                requireEqual(CORB.Reply().split(u';'), (*sent)[static_cast<std::size_t>(point - firstPoint)],
                             QStringLiteral("the instrument answers"));
            });
    }
}

void loadSteps(Tour& tour, FormORB& form, const SentPoints& sent)
{
    SequencePage& page = form.fraSequence;
    tour.then(QStringLiteral("empties the page"), [&page] { ui::press(page, QStringLiteral("Delete Sequence File")); });
    tour.then(QStringLiteral("loads the sequence from the instrument"),
              [&page] { ui::press(page, QStringLiteral("Load Sequence from ORB")); });
    tour.then(
        QStringLiteral("the grid shows 120 points again"), [&page] { return page.datORB.rowCount() == lastPoint; },
        [&page, sent] {
            for (int point = firstPoint; point <= lastPoint; ++point)
                requireEqual(shownPoint(page, point), (*sent)[static_cast<std::size_t>(point - firstPoint)],
                             QStringLiteral("the loaded point %1 is").arg(point));
        });
    tour.then(QStringLiteral("goes to the last point"), [&page] {
        page.DBGridSequence.setFocus();
        ui::pressKey(page.DBGridSequence, Qt::Key_End, Qt::ControlModifier);
    });
    tour.picture(form, QStringLiteral("sequence_from_instrument.png"));
}

} // namespace

void sequenceSteps(Tour& tour, FormORB& form, ORBCtrl& CORB)
{
    const auto sent = std::make_shared<std::vector<QStringList>>();
    tour.then(
        QStringLiteral("goes to the page Sequence"), [&form] { return ui::find(form, QStringLiteral("Sequence")); },
        [&form] { ui::press(form, QStringLiteral("Sequence")); });
    openSteps(tour, form);
    editSteps(tour, form);
    transferSteps(tour, form, CORB, sent);
    loadSteps(tour, form, sent);
}

} // namespace orb
