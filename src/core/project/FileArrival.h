// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// The result of an edit of the list of files.
enum FileEdit : int
{
    FILE_EDIT_DONE = 0,
    FILE_ID_TAKEN = 124,
    FILE_NO_DEFAULT_ID = 125,
    FILE_ID_INVALID = 130,
    FILE_WRONG_TYPE = 163,
    FILE_NAME_NOT_UTF8 = 1001,
    FILE_NAME_NOT_IN_CODE_PAGE,
    FILE_NAME_HAS_BACKSLASH,
    FILE_NAME_NOT_KEPT_BY_LIST,
    FILE_PATH_TOO_LONG,
    FILE_NOT_FOUND,
    FILE_NOT_REACHED,
    FILE_NOT_REGULAR,
    FILE_IS_FOLDER,
};

/// The message about an edit that was refused; empty for FILE_EDIT_DONE.
[[nodiscard]] QString FileEditMessage(int code);

/// Checks by its path and by what the disk has there whether a file can become a resource of a project. Returns
/// FILE_EDIT_DONE or the reason why not. Doesn't open the file, so it never waits for a pipe. A file that can't be read
/// passes the check: the code that reads it reports the error.
[[nodiscard]] int CheckArrival(const QString &path);
