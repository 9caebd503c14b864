// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QStringList>

namespace orb {

/// "YYYY/MM/DD HH:MM:SS"
QString recordTime(const QDateTime& time);

/// True for a number as a statement may hold it: a sign, digits with a point, an exponent; or a hexadecimal number.
/// Blanks around it do not count.
bool isNumericLiteral(const QString& field);

/// The statement that writes one sample into `DataMeasure`, built channel by channel.
class SampleStatement {
public:
    /// Throws `RuntimeFailure` 5 where there is no channel.
    SampleStatement(std::int32_t recordNo, const QDateTime& time, int channels);

    /// Appends the fields of the next channel, which go into the statement unquoted and unchanged.
    void append(const QString& current, const QString& voltage) { fields_ << current << voltage; }

    /// The whole statement. Throws 3061 where a field is no number: without quotes it would be run as an expression.
    QString sql() const;

private:
    QString start_;
    QStringList fields_;
};

} // namespace orb
