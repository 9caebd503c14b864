// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessible_graph.h"

#include "graph.h"

#include <QAccessibleWidget>

namespace orb {

namespace {

class AccessibleGraph final : public QAccessibleWidget {
public:
    explicit AccessibleGraph(Graph& graph) : QAccessibleWidget(&graph, QAccessible::Chart), graph_(graph) {}

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name && graph_.accessibleName().isEmpty())
            return QStringLiteral("Graph");
        return kind == QAccessible::Description ? graph_.description() : QAccessibleWidget::text(kind);
    }

    // The widget on which the curves are drawn is no control.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

private:
    const Graph& graph_;
};

QAccessibleInterface* accessibleGraph(const QString&, QObject* object)
{
    auto* graph = dynamic_cast<Graph*>(object);
    return graph ? new AccessibleGraph(*graph) : nullptr;
}

} // namespace

void registerAccessibleGraph()
{
    QAccessible::installFactory(accessibleGraph);
}

} // namespace orb
