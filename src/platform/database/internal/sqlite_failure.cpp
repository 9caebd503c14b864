// SPDX-License-Identifier: GPL-3.0-or-later
#include "sqlite_failure.h"

#include <sqlite3.h>

namespace orb {

namespace {

int numberOf(int code)
{
    switch (code) {
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_ROWID:
        return failure::DuplicateKey;
    default:
        break;
    }
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return failure::DatabaseBusy;
    case SQLITE_READONLY:
        return failure::DatabaseReadOnly;
    case SQLITE_FULL:
        return failure::DiskFull;
    case SQLITE_IOERR:
        return failure::DeviceIOError;
    case SQLITE_CORRUPT:
        return failure::DatabaseDamaged;
    case SQLITE_NOTADB:
        return failure::DatabaseUnrecognized;
    case SQLITE_CANTOPEN:
        return failure::PathFileAccessError;
    case SQLITE_PERM:
        return failure::PermissionDenied;
    default:
        return failure::StatementFailed;
    }
}

} // namespace

RuntimeFailure lastSqliteFailure(sqlite3* handle)
{
    return {numberOf(sqlite3_extended_errcode(handle)), QString::fromUtf8(sqlite3_errmsg(handle))};
}

} // namespace orb
