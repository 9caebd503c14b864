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

/// The folder of the executable, to which page logic joins literals that begin with a backslash.
class Paths {
public:
    explicit Paths(const QString& applicationDirectory) : applicationDirectory_(applicationDirectory) {}

    const QString& applicationDirectory() const { return applicationDirectory_; }
    /// The application directory followed by `literal`, which begins with a backslash.
    QString inApplication(const QString& literal) const { return applicationDirectory_ + literal; }

private:
    QString applicationDirectory_;
};

} // namespace orb
