// SPDX-License-Identifier: MIT
#include "ListedSize.h"

#include "Suggestion.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <tuple>

using namespace Qt::StringLiterals;

QString WhyNotListed(const CResoTable &sizes, const ScreenSize &size)
{
    constexpr size_t SHOWN = 3;
    if (sizes.IndexOf(size.width, size.height) >= 0)
        return {};
    if (sizes.Count() == 0)
        return u"there is no list of screen sizes: the key reso_set in section Path of Morvanite.ini names no file "
               u"with a section Resolution"_s;
    struct Candidate
    {
        QString name;
        size_t typingErrors; // few of them: the user has mistyped this size
        double difference;   // of width and height, as a ratio
    };
    constexpr size_t MISTYPED = 1;
    const auto nameOf = [](int width, int height) { return u"%1x%2"_s.arg(width).arg(height); };
    const std::string typed = nameOf(size.width, size.height).toStdString();
    std::vector<Candidate> candidates;
    for (int i = 0; i < sizes.Count(); ++i) {
        const CResoEntry &entry = sizes.At(i);
        const QString name = nameOf(entry.width, entry.height);
        candidates.push_back({name, std::min(TypingErrors(typed, name.toStdString()), MISTYPED + 1),
                              std::abs(std::log(double(entry.width) / size.width)) +
                                  std::abs(std::log(double(entry.height) / size.height))});
    }
    std::stable_sort(candidates.begin(), candidates.end(), [](const Candidate &a, const Candidate &b) {
        return std::tie(a.typingErrors, a.difference) < std::tie(b.typingErrors, b.difference);
    });
    QStringList names;
    for (size_t i = 0; i < std::min(candidates.size(), SHOWN); ++i)
        names.append(candidates[i].name);
    return u"the list of screen sizes doesn't contain %1x%2; the nearest are %3"_s.arg(size.width)
        .arg(size.height)
        .arg(names.join(u", "_s));
}
