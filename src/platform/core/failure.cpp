// SPDX-License-Identifier: GPL-3.0-or-later
#include "failure.h"

#include <array>
#include <utility>

namespace orb {

namespace {

constexpr auto descriptions = std::to_array<std::pair<int, const char*>>({
    {failure::InvalidProcedureCall, "Invalid procedure call or argument"},
    {failure::Overflow, "Overflow"},
    {failure::SubscriptOutOfRange, "Subscript out of range"},
    {failure::TypeMismatch, "Type mismatch"},
    {failure::BadFileName, "Bad file name or number"},
    {failure::FileNotFound, "File not found"},
    {failure::FileAlreadyOpen, "File already open"},
    {failure::DeviceIOError, "Device I/O error"},
    {failure::DiskFull, "Disk full"},
    {failure::InputPastEndOfFile, "Input past end of file"},
    {failure::PermissionDenied, "Permission denied"},
    {failure::PathFileAccessError, "Path/File access error"},
    {failure::PathNotFound, "Path not found"},
    {failure::ObjectVariableNotSet, "Object variable not set"},
    {failure::InvalidUseOfNull, "Invalid use of Null"},
    {failure::NoSuchControl, "Control array element doesn't exist"},
    {failure::InvalidPropertyValue, "Invalid property value"},
    {failure::KeyAlreadyAssociated, "Key already associated"},
    {failure::InvalidPicture, "Invalid picture"},
    {failure::PrinterError, "Printer error"},
    {failure::NoCurrentRecord, "No current record"},
    {failure::DuplicateKey, "Duplicate key"},
    {failure::DatabaseNotFound, "Database not found"},
    {failure::DatabaseReadOnly, "Database is read-only"},
    {failure::DatabaseUnrecognized, "Unrecognized database format"},
    {failure::UnknownName, "Unknown name in the statement"},
    {failure::ItemNotFound, "Item not found in this collection"},
    {failure::DatabaseBusy, "Database is locked"},
    {failure::ObjectClosed, "Object is closed"},
});

QString descriptionOf(int number)
{
    for (const auto& [known, description] : descriptions)
        if (known == number)
            return QString::fromLatin1(description);
    return QStringLiteral("Application-defined or object-defined error");
}

} // namespace

RuntimeFailure::RuntimeFailure(int number, const QString& description)
    : number_(number), description_(description), what_(QStringLiteral("%1: %2").arg(number).arg(description).toUtf8())
{}

RuntimeFailure::RuntimeFailure(int number) : RuntimeFailure(number, descriptionOf(number)) {}

} // namespace orb
