// SPDX-License-Identifier: MIT
#include "BothVersions.h"

#include "MergeResult.h"

#include <algorithm>
#include <vector>

namespace
{

/// Returns the lines of a text, each with its end.
std::vector<QStringView> LinesOf(QStringView text)
{
    std::vector<QStringView> lines;
    while (!text.isEmpty()) {
        const qsizetype feed = text.indexOf(u'\n');
        const qsizetype size = feed < 0 ? text.size() : feed + 1;
        lines.push_back(text.first(size));
        text = text.sliced(size);
    }
    return lines;
}

} // namespace

QString BothVersions(const QString &ours, const QString &theirs, QStringView lineEnd)
{
    if (ours == theirs)
        return {};
    const std::vector<QStringView> our = LinesOf(ours);
    const std::vector<QStringView> their = LinesOf(theirs);
    const auto start = std::mismatch(our.begin(), our.end(), their.begin(), their.end());
    const auto end = std::mismatch(our.rbegin(), std::make_reverse_iterator(start.first), their.rbegin(),
                                   std::make_reverse_iterator(start.second));
    QString all;
    const auto put = [&all, lineEnd](auto from, auto to) {
        for (; from != to; ++from)
            all += *from;
        if (!all.isEmpty() && !all.endsWith(u'\n'))
            all += lineEnd; // so that the marker behind it begins a line
    };
    const auto putMarker = [&all, lineEnd](const char *marker) { (all += QLatin1String(marker)) += lineEnd; };
    put(our.begin(), start.first);
    putMarker(MARKER_OURS);
    put(start.first, end.first.base());
    putMarker(MARKER_BETWEEN);
    put(start.second, end.second.base());
    putMarker(MARKER_THEIRS);
    for (auto line = end.first.base(); line != our.end(); ++line)
        all += *line;
    return all;
}
