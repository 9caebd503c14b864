// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_parts.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>

#include <cmath>

namespace orb {

namespace {

/// An extent of one value with some room at either side, so that a level curve is seen whole.
Extent withRoom(Extent values)
{
    constexpr double share = 0.1; // of the value
    constexpr double aroundZero = 0.5;
    if (values.lowest != values.highest)
        return values;
    const double room = values.lowest == 0 ? aroundZero : std::abs(values.lowest) * share;
    return {values.lowest - room, values.highest + room};
}

} // namespace

void Graph::showAll()
{
    parts_->axes[0].drawing().show(parts_->times());
    for (int number = 2; number <= axisCount(); ++number)
        fitAxis(number);
}

void Graph::fitAxis(int number)
{
    const GraphAxis& fitted = axis(number);
    fitted.drawing().show(withRoom(parts_->valuesInView(fitted)));
}

bool Graph::hasData(int number) const
{
    return number == 1 ? !parts_->times().isEmpty() : !parts_->valuesInView(axis(number)).isEmpty();
}

/// It is not waited for, so that a recording goes on while it is open.
void Graph::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Mouse && parts_->pressGaveUpDrag)
        return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QStringLiteral("Show &All"), this, [this] { showAll(); })->setEnabled(hasData(1));
    for (int number = 2; number <= axisCount(); ++number) {
        const QString text = QStringLiteral("Fit &") + axis(number).drawing().plan.quantity;
        menu->addAction(text, this, [this, number] { fitAxis(number); })->setEnabled(hasData(number));
    }
    menu->addSeparator();
    menu->addAction(QStringLiteral("Co&py Picture"), this,
                    [this] { QGuiApplication::clipboard()->setImage(ControlImage()); });
    if (onSavePicture)
        menu->addAction(QStringLiteral("&Save Picture..."), this, [this] { enter(onSavePicture); });
    menu->popup(event->globalPos());
}

} // namespace orb
