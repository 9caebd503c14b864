// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <exception>

namespace orb {

/// The numbers of the failures that the platform throws. Each has a fixed description, see `RuntimeFailure`.
namespace failure {
enum Number : int {
    InvalidProcedureCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    BadFileName = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceIOError = 57,
    DiskFull = 61,
    InputPastEndOfFile = 62,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectVariableNotSet = 91,
    InvalidUseOfNull = 94,
    NoSuchControl = 340,
    InvalidPropertyValue = 380,
    KeyAlreadyAssociated = 457,
    InvalidPicture = 481,
    PrinterError = 482,
    NoCurrentRecord = 3021,
    DuplicateKey = 3022,
    DatabaseNotFound = 3024,
    DatabaseReadOnly = 3027,
    DatabaseDamaged = 3049,
    UnknownName = 3061,
    StatementFailed = 3075,
    DatabaseBusy = 3260,
    ItemNotFound = 3265,
    DatabaseUnrecognized = 3343,
    ObjectClosed = 3420,
};
}

/// A failure of the platform: a number and a description, as the operator reads them. The platform throws it; a page
/// catches it only where its behaviour says that a routine catches. One that nothing catches ends the run.
class RuntimeFailure : public std::exception {
public:
    /// `description` replaces the description of the number.
    RuntimeFailure(int number, const QString& description);
    /// The number with its description, "Application-defined or object-defined error" where it has none.
    explicit RuntimeFailure(int number);

    int number() const { return number_; }
    const QString& description() const { return description_; }
    /// "6: Overflow", in UTF-8; for debuggers and test reports.
    const char* what() const noexcept override { return what_.constData(); }

private:
    int number_;
    QString description_;
    QByteArray what_;
};

} // namespace orb
