// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

enum class Severity
{
    Error,
    Warning,
    Note,
};

/// Something wrong in what was read, checked or written, and where it is.
struct Finding
{
    const char *code = ""; ///< the stable name of its kind, such as "strings.id-conflict"; a string literal
    Severity severity = Severity::Error;
    QString file = {};    ///< absolute path; empty when it isn't about a file
    int line = 0;         ///< from 1; 0 for the whole file
    QString id = {};      ///< the ID of the resource or string; may be empty
    QString text = {};    ///< a sentence without its full stop
    int column = 0;       ///< of the line, from 1, in UTF-16 units; 0 for the whole line
    qint32 language = -1; ///< the language of the text that it is about; -1 if it isn't about a translated text
    quint64 basis =
        0; ///< a hash of what the finding is based on, such as two texts; 0 if there is nothing but the rest
};
