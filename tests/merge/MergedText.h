// SPDX-License-Identifier: MIT
#pragma once

#include "Merge.h"
#include "StringProject.h"

/// Returns a conflict as the merged file has it. It is put together here so that the tests have no markers themselves.
inline std::string InConflict(const std::string &ours, const std::string &theirs)
{
    return std::string(7, '<') + " ours\n" + ours + std::string(7, '=') + '\n' + theirs + std::string(7, '>') +
           " theirs\n";
}

/// Returns a UTF-16 file in the form that StringFileBytes accepts.
inline std::string Readable(const QByteArray &bytes)
{
    EXPECT_TRUE(bytes.startsWith("\xFF\xFE"));
    return QString(reinterpret_cast<const QChar *>(bytes.constData()) + 1, bytes.size() / 2 - 1)
        .replace(u'\t', u'|')
        .remove(u'\r')
        .toStdString();
}
