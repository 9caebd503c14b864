// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "axis_scale.h"

#include "plotting.h"

namespace orb {

/// Ticks and labels of one axis: equal divisions of its set range, labels in its format, as many of them as fit.
class DivisionTicker : public QCPAxisTicker {
public:
    /// `axis` must outlive this.
    explicit DivisionTicker(const QCPAxis& axis) : axis_(axis) {}

    AxisRange home;
    QString format;
    int divisions = 5;

    bool isTime() const;
    void generate(const QCPRange& range, const QLocale& locale, QChar formatChar, int precision, QVector<double>& ticks,
                  QVector<double>* subTicks, QVector<QString>* tickLabels) override;

private:
    QVector<QString> labelsOf(const AxisScale& scale, const std::vector<std::int64_t>& numbers, double span) const;
    double roomFor(const QVector<QString>& labels) const;

    const QCPAxis& axis_;
};

} // namespace orb
