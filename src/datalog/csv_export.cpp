// SPDX-License-Identifier: GPL-3.0-or-later
#include "csv_export.h"

#include "failure.h"
#include "recordset.h"
#include "text_file.h"

#include <array>
#include <charconv>

namespace orb {

namespace {

/// A line under construction. It keeps its memory from row to row.
class Line {
public:
    void begin(std::int64_t number)
    {
        std::array<char, 24> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        text_.assign(digits.data(), end);
    }

    /// Appends a text, nothing for Null. Throws 13 for a number.
    void add(const FieldValue& value)
    {
        if (value.type == FieldType::Integer || value.type == FieldType::Real)
            throw RuntimeFailure(failure::TypeMismatch);
        text_ += ',';
        if (value.type == FieldType::Text)
            text_ += value.text;
    }

    std::string_view text() const { return text_; }

private:
    std::string text_;
};

/// `start`, then `pair` with the number of each channel.
QString forEachChannel(QString start, const QString& pair, int channels)
{
    for (int i = 1; i <= channels; ++i)
        start += pair.arg(i);
    return start;
}

} // namespace

QString csvHeader(int channels)
{
    return forEachChannel(QStringLiteral("No.,Time"), QStringLiteral(",Ch%1V,Ch%1A"), channels);
}

QString unsavedCsvHeader(int channels)
{
    return forEachChannel(QStringLiteral("No.,Time"), QStringLiteral(",Ch%1A,Ch%1V"), channels);
}

QString csvColumns(int channels)
{
    return forEachChannel(QStringLiteral("SeqNo ,RecTime"), QStringLiteral(",PVal%1,SVal%1"), channels);
}

QString csvSelect(int channels)
{
    return QStringLiteral("select ") + csvColumns(channels) + QStringLiteral(",timetick from DataMeasure");
}

void writeCsvRows(Recordset& rows, int channels, OutputFile& file, const std::function<void()>& check)
{
    Line line;
    const int lastColumn = 1 + 2 * channels;
    for (; !rows.isEof(); rows.moveNext()) {
        if (channels < 1)
            rows.field(QStringLiteral("PVal1"));
        if (check)
            check();
        line.begin(rows.value(0).integer);
        for (int column = 1; column <= lastColumn; ++column)
            line.add(rows.value(column));
        file.writeLine(line.text());
    }
}

} // namespace orb
