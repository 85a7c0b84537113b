// SPDX-License-Identifier: MIT
#include "StringFileComparison.h"

#include <algorithm>
#include <utility>

StringFileComparison::StringFileComparison(const CResModel &model, QByteArray fileBytes)
    : text(model), bytes(std::move(fileBytes)), next(text.Rows() ? text.Rows()->First() : nullptr)
{
    text.PutHeader();
}

bool StringFileComparison::Step(int rows)
{
    for (int n = 0; n < rows && next; ++n) {
        text.PutRow(*next);
        next = next->NextInFolder();
    }
    const bool isLast = !next;
    if (isLast)
        text.PutEnd();
    if (!TakeText())
        return false;
    if (isLast && done < bytes.size())
        differentLine = line;
    return !isLast;
}

/// Compares what was put into the text with the file, and takes it away. Returns false if it differs.
bool StringFileComparison::TakeText()
{
    const QByteArrayView saved(reinterpret_cast<const char *>(text.out.constData()),
                               text.out.size() * qsizetype(sizeof(QChar)));
    const QByteArrayView rest = QByteArrayView(bytes).sliced(done);
    const qsizetype common = std::min(saved.size(), rest.size());
    const qsizetype same = std::mismatch(saved.begin(), saved.begin() + common, rest.begin()).first - saved.begin();
    line += int(QStringView(text.out).first(same / qsizetype(sizeof(QChar))).count(u'\n'));
    if (same < saved.size())
        differentLine = line;
    done += same;
    text.out.truncate(0); // keeps its memory
    return differentLine == 0;
}
