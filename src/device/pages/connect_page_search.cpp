// SPDX-License-Identifier: GPL-3.0-or-later
// The search of the network for instruments that announce themselves.
#include "connect_page.h"

#include <QSignalBlocker>

namespace orb {

namespace {

constexpr qint64 searchMs = 5000;

StatusLine resultOf(qsizetype count)
{
    if (count == 0)
        return {QStringLiteral("No instrument announced itself within 5 seconds. Type the address."), Tone::Neutral};
    if (count == 1)
        return {QStringLiteral("One instrument announced itself. It is in the list of addresses."), Tone::Good};
    return {QStringLiteral("%1 instruments announced themselves. They are in the list of addresses.").arg(count),
            Tone::Good};
}

} // namespace

void ConnectPage::cmdSearchClick()
{
    if (search_)
        return endSearch({QStringLiteral("The search was stopped."), Tone::Neutral});
    found_.clear();
    showRecent();
    searchEnd_.reset();
    search_ = kind().search();
    cmdSearch.setCaption(QStringLiteral("Stop search"));
    showNote({QStringLiteral("Searching the network for instruments..."), Tone::Busy});
}

void ConnectPage::stepSearch(qint64 now)
{
    if (!search_)
        return;
    if (!searchEnd_)
        searchEnd_ = now + searchMs;
    if (const auto found = search_->found(); found != found_) {
        found_ = found;
        showRecent();
    }
    if (const QString failure = search_->failure(); !failure.isEmpty())
        endSearch({failure, Tone::Bad});
    else if (now >= *searchEnd_)
        endSearch(resultOf(found_.size()));
}

/// Adds the found instruments to the list of addresses.
void ConnectPage::offerFound()
{
    for (const NetworkInstrument& instrument : found_) {
        if (settings_.recent().contains(instrument.resourceName))
            continue;
        cmbAddress.addItem(instrument.resourceName);
        cmbAddress.setItemData(cmbAddress.listCount() - 1, instrument.title, Qt::ToolTipRole);
    }
}

void ConnectPage::abandonSearch()
{
    if (search_)
        endSearch({});
}

void ConnectPage::endSearch(const StatusLine& note)
{
    dropSearch();
    const QSignalBlocker quiet(cmbAddress); // the note stays
    if (cmbAddress.text().isEmpty() && !found_.isEmpty())
        cmbAddress.setText(found_.first().resourceName);
    showNote(note);
}

void ConnectPage::dropSearch()
{
    search_.reset();
    cmdSearch.setCaption(QStringLiteral("Search network"));
}

} // namespace orb
