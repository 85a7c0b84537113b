#pragma once

#include <QString>

enum class Severity
{
    Error,
    Warning,
};

/// Something that is wrong with what was read, checked or written, and where.
struct Finding
{
    const char *code = ""; ///< names its kind and doesn't change, such as "strings.id-conflict"; a literal
    Severity severity = Severity::Error;
    QString file; ///< absolute; empty when it is about no file
    int line = 0; ///< from 1; 0 for the whole file
    QString id;   ///< the ID of the resource or string; may be empty
    QString text; ///< a sentence without its end
};
