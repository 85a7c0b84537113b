// SPDX-License-Identifier: MIT
#include "ListedSize.h"

#include <QStringList>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

QString WhyNotListed(const CResoTable &sizes, const ScreenSize &size)
{
    constexpr size_t SHOWN = 3;
    if (sizes.IndexOf(size.width, size.height) >= 0)
        return {};
    if (sizes.Count() == 0)
        return u"there is no list of screen sizes: the key reso_set in section Path of Morvanite.ini names no file "
               u"with a section Resolution"_s;
    std::vector<CResoEntry> nearest;
    for (int i = 0; i < sizes.Count(); ++i)
        nearest.push_back(sizes.At(i));
    const auto distance = [&](const CResoEntry &entry) {
        return std::abs(qint64(entry.width) - size.width) + std::abs(qint64(entry.height) - size.height);
    };
    std::stable_sort(nearest.begin(), nearest.end(),
                     [&](const auto &a, const auto &b) { return distance(a) < distance(b); });
    nearest.resize(std::min(nearest.size(), SHOWN));
    QStringList names;
    for (const CResoEntry &entry : nearest)
        names.append(u"%1x%2"_s.arg(entry.width).arg(entry.height));
    return u"the list of screen sizes doesn't contain %1x%2; the nearest are %3"_s.arg(size.width)
        .arg(size.height)
        .arg(names.join(u", "_s));
}
