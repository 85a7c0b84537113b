// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

enum class Severity
{
    Error,
    Warning,
};

/// Something wrong in what was read, checked or written, and where it is.
struct Finding
{
    const char *code = ""; ///< the stable name of its kind, such as "strings.id-conflict"; a string literal
    Severity severity = Severity::Error;
    QString file; ///< absolute path; empty when it isn't about a file
    int line = 0; ///< from 1; 0 for the whole file
    QString id;   ///< the ID of the resource or string; may be empty
    QString text; ///< a sentence without its full stop
};
