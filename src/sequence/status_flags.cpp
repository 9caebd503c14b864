// SPDX-License-Identifier: GPL-3.0-or-later
#include "status_flags.h"

namespace orb {

namespace {

QString wordOfBit(quint8 status, int bit, const char* ifSet, const char* ifClear)
{
    return QString::fromLatin1((status >> bit & 1) == 1 ? ifSet : ifClear);
}

} // namespace

QString ByteToEndofStatus(quint8 status)
{
    return wordOfBit(status, 0, "ON", "OFF");
}

QString ByteToSeqFlag(quint8 status)
{
    return wordOfBit(status, 0, "ON", "OFF");
}

QString ByteToLoadStatusRange(quint8 status)
{
    return wordOfBit(status, 0, "High", "Low");
}

QString ByteToLoadStatusDyna(quint8 status)
{
    return wordOfBit(status, 1, "ON", "OFF");
}

QString ByteToLoadStatusGongo(quint8 status)
{
    return wordOfBit(status, 2, "ON", "OFF");
}

QString ByteToLoadStatusGongoprecentvalue(quint8 status)
{
    return wordOfBit(status, 3, "Precent", "Value");
}

QString ByteToLoadStatusT1_range(quint8 status)
{
    return wordOfBit(status, 4, "1", "0");
}

QString ByteToLoadStatusVrange(quint8 status)
{
    return wordOfBit(status, 6, "High 80V", "Low 16V");
}

QString ByteToLoadStatusResponse(quint8 status)
{
    return wordOfBit(status, 7, "FAST 10k", "SLOW 1k");
}

QString ByteToLoadStatusT2_range(quint8 status)
{
    return wordOfBit(status, 7, "1", "0");
}

} // namespace orb
