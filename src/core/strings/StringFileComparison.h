// SPDX-License-Identifier: MIT
#pragma once

#include "StringFileText.h"

/// Compares a string file with the one that WriteStringFile would write, a few rows at a time, without making all of
/// its text.
class StringFileComparison
{
public:
    /// `fileBytes` is the content of the file. The model must outlive this object. Its rows and languages must stay the
    /// same as long as `Step` is called.
    StringFileComparison(const CResModel &model, QByteArray fileBytes);

    /// Compares the next rows. Returns false at the end, and as soon as a line differs.
    bool Step(int rows);
    /// The first line that differs, from 1; 0 if none does so far.
    [[nodiscard]] int DifferentLine() const { return differentLine; }

private:
    bool TakeText();

    StringFileText text;
    QByteArray bytes;
    const CBaseRes *next;
    qsizetype done = 0; // bytes of the file that are equal
    int line = 1;       // in which they end
    int differentLine = 0;
};
