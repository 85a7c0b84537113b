#pragma once

#include <QStringList>

/// What an edit of the list of files comes to.
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
    FILE_PATH_TOO_LONG,
    FILE_NOT_FOUND,
    FILE_NOT_REACHED,
    FILE_NOT_REGULAR,
    FILE_IS_FOLDER,
};

/// The message about an edit that was refused; empty for FILE_EDIT_DONE.
[[nodiscard]] QString FileEditMessage(int code);

/// Says whether a file can become a resource of a project, by its path and by what is on the disk there:
/// FILE_EDIT_DONE, or why not. Nothing is opened, so a pipe keeps nobody waiting, and a file that can't be read passes:
/// its reader reports that.
[[nodiscard]] int CheckArrival(const QString &path);

/// The text of the box that tells which files were refused: one line for each, and of more than 20 the first.
[[nodiscard]] QString RefusalText(const QStringList &refusals);
/// How many lines that box has at most.
inline constexpr qsizetype MOST_REFUSALS = 20;
