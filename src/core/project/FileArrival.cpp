// SPDX-License-Identifier: MIT
#include "FileArrival.h"

#include "HostFiles.h"

#include <cerrno>
#include <sys/stat.h>

QString FileEditMessage(int code)
{
    switch (code) {
    case FILE_EDIT_DONE:
        return {};
    case FILE_ID_TAKEN:
        return QStringLiteral("The ID already exists, or it is reserved.");
    case FILE_NO_DEFAULT_ID:
        return QStringLiteral("Failed to allocate a default ID. Please assign one for it.");
    case FILE_ID_INVALID:
        return QStringLiteral("The ID is invalid.");
    case FILE_WRONG_TYPE:
        return QStringLiteral("Inappropriate file type.");
    case FILE_NAME_NOT_UTF8:
        return QStringLiteral("Its path isn't valid UTF-8. Rename it first.");
    case FILE_NAME_NOT_IN_CODE_PAGE:
        return QStringLiteral("The code page of the project lacks a character of its path. Rename it first.");
    case FILE_NAME_HAS_BACKSLASH:
        return QStringLiteral("Its path contains a \"\\\", which separates folders in a project. Rename it first.");
    case FILE_NAME_NOT_KEPT_BY_LIST:
        return QStringLiteral(
            "The list of resources would lose a part of its path: two blanks in a row become one, and "
            "a blank or a quotation mark at the end is dropped. Rename it first.");
    case FILE_PATH_TOO_LONG:
        return QStringLiteral("Its path is too long.");
    case FILE_NOT_FOUND:
        return QStringLiteral("The file was not found.");
    case FILE_NOT_REACHED:
        return QStringLiteral("The file can't be reached. You may lack permission to open its folder.");
    case FILE_IS_FOLDER:
        return QStringLiteral("It is a folder.");
    default:
        return QStringLiteral("It is a pipe or a device, not a file.");
    }
}

int CheckArrival(const QString &path)
{
    if (path.contains(QChar::ReplacementCharacter) || !path.isValidUtf16())
        return FILE_NAME_NOT_UTF8;
    struct stat info = {};
    if (stat(HostPath(path).constData(), &info) != 0) {
        const int error = errno;
        if (path.contains(u'\\') && stat(path.toUtf8().constData(), &info) == 0)
            return FILE_NAME_HAS_BACKSLASH;
        if (error == ENAMETOOLONG)
            return FILE_PATH_TOO_LONG;
        return error == ENOENT || error == ENOTDIR ? FILE_NOT_FOUND : FILE_NOT_REACHED;
    }
    if (S_ISDIR(info.st_mode))
        return FILE_IS_FOLDER;
    return S_ISREG(info.st_mode) ? FILE_EDIT_DONE : FILE_NOT_REGULAR;
}
