// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QStringList>

#include <functional>
#include <optional>

namespace orb {

/// The fields of a reply to a list query, all of them; nothing where no reply came.
using ReplyList = std::optional<QStringList>;

/// The statement that writes one sample into `DataMeasure`. The last field of `currents` is never used: the
/// instrument closes its list with a comma. The fields go into the statement unchanged and unquoted.
///
/// `point` is told of each channel, counted from 0, as its fields are joined, so that what was told stays told when
/// the statement fails behind it. Throws `RuntimeFailure` 9 where a list is missing, or `voltages` is the shorter one,
/// and 5 where no channel is left.
QString sampleStatement(std::int32_t recordNo, const QDateTime& now, const ReplyList& currents,
                        const ReplyList& voltages,
                        const std::function<void(int channel, const QString& current, const QString& voltage)>& point);

/// "YYYY/MM/DD HH:MM:SS"
QString recordTime(const QDateTime& time);

} // namespace orb
