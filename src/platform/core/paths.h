// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

/// The file that a path of the page logic means. Page logic writes its literals as they are, with backslashes and in
/// any letter case: "\icon\B2PAUSE.JPG" is found though the folder is called ICON. Off Windows the folder "c:\temp" is
/// one of the user's own under the cache directory. Where nothing of that name exists the path comes back as it would
/// be created: in the folder that was found, under the name as written.
QString realPath(const QString& literal);

bool fileExists(const QString& literal);

/// True where a folder of that name exists.
bool folderExists(const QString& literal);

/// True for a file or folder that belongs to the user who runs the program, and for no link. On Windows, where files
/// have no such owner, true for whatever exists.
bool belongsToUser(const QString& literal);

/// Creates the folder, readable by this user alone. Throws `RuntimeFailure` 75 where that fails.
void createFolder(const QString& literal);

/// Throws `RuntimeFailure` 53 where no such file exists, 75 where it can't be deleted.
void deleteFile(const QString& literal);

/// The application directory, to which page logic joins literals that begin with a backslash. As a rule it is one folder,
/// that of the executable. Where the program must not write there, a folder of the user's own lies over it: the program
/// writes into that one, and reads a file from it before it reads the one beside the executable.
class Paths {
public:
    /// Reads and writes beside the executable.
    explicit Paths(const QString& executableDirectory) : Paths(executableDirectory, executableDirectory) {}
    /// Reads beside the executable what `ownDirectory` does not have, and writes into `ownDirectory`.
    Paths(const QString& executableDirectory, const QString& ownDirectory)
        : executableDirectory_(executableDirectory), ownDirectory_(ownDirectory)
    {}

    /// The paths for the user who runs the program. The user's folder, `userDataFolder`, is in force where files can't be
    /// created beside the executable or where the `orb.mdb` there is read-only: then it is the one that every user's
    /// first start copies, and not even the administrator's program may write to it.
    static Paths forUser(const QString& executableDirectory);

    /// Where the program writes, and where the file dialogs begin.
    const QString& applicationDirectory() const { return ownDirectory_; }
    /// The path of the file to read that page logic calls by the application directory and `literal`, which begins with
    /// a backslash.
    QString inApplication(const QString& literal) const;
    /// The path of the file to write for `literal`.
    QString toWrite(const QString& literal) const { return ownDirectory_ + literal; }

    /// Creates the user's folder where it is in force and missing, with a copy of the `orb.mdb` that stands beside the
    /// executable and of the folder `examples`. What is there is never overwritten. Each copy has its name only once the
    /// disk holds it whole, so that a later start completes what was interrupted. Throws `RuntimeFailure` 75, 61 (the
    /// disk is full) or 57 where that fails.
    void createOwnDirectory() const;

private:
    QString executableDirectory_;
    QString ownDirectory_;
};

/// The folder for what the program keeps for this user, such as "~/.local/share/orb".
QString userDataFolder();

} // namespace orb
