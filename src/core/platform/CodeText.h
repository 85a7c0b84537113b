// SPDX-License-Identifier: MIT
#pragma once

/// What a numeric code of a failure means.
struct CodeText
{
    int code;
    const char *when;     ///< when it occurs: a sentence without its full stop
    const char *whatToDo; ///< sentences
};
