// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"

#include <QByteArray>

namespace orb {

std::string decimalText(double value, int decimals)
{
    const std::string text = QByteArray::number(value, 'f', decimals).toStdString();
    const bool isZero = text.find_first_of("123456789") == std::string::npos;
    return isZero && text.starts_with('-') ? text.substr(1) : text;
}

std::string blockText(std::string_view data)
{
    const std::string length = std::to_string(data.size());
    std::string block = '#' + std::to_string(length.size()) + length;
    return block.append(data);
}

} // namespace orb
