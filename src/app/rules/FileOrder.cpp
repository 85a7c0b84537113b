// SPDX-License-Identifier: MIT
#include "FileOrder.h"

#include "Environment.h"
#include "NameOrder.h"
#include "Resources.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <numeric>

namespace
{

/// Texts in one buffer: an allocation for each would take a large part of the time of a sort.
class Texts
{
public:
    Texts(const Environment &environment, size_t count) : env(environment), isUtf8(env.codePage.IsUtf8())
    {
        ends.reserve(count);
    }

    void Add(const NarrowText &text)
    {
        const auto isAscii = [](char c) { return quint8(c) < 0x80; };
        if (isUtf8 && std::all_of(text.begin(), text.end(), isAscii))
            all += QLatin1StringView(text);
        else
            all += env.NarrowToWide(text);
        ends.push_back(all.size());
    }

    /// The result is valid as long as this object exists.
    [[nodiscard]] QString At(int row) const
    {
        const qsizetype start = row == 0 ? 0 : ends[size_t(row) - 1];
        return QString::fromRawData(all.constData() + start, ends[size_t(row)] - start);
    }

private:
    const Environment &env;
    bool isUtf8;
    QString all;
    std::vector<qsizetype> ends;
};

/// The IDs or the paths, row by row. Several rows are looked up at a time: each step waits for memory, and this way the
/// steps wait at the same time.
Texts TextsOf(const std::vector<CFileRes *> &rows, const Environment &env, bool isById)
{
    constexpr size_t TOGETHER = 16; // rows
    Texts texts(env, rows.size());
    for (size_t first = 0; first < rows.size(); first += TOGETHER) {
        const size_t count = std::min(TOGETHER, rows.size() - first);
        std::array<const NarrowText *, TOGETHER> names{};
        for (size_t n = 0; n < count; ++n)
            names[n] = isById ? &rows[first + n]->Id()->name : &rows[first + n]->path;
        for (size_t n = 0; n < count; ++n)
            __builtin_prefetch(names[n]->constData());
        for (size_t n = 0; n < count; ++n)
            texts.Add(*names[n]);
    }
    return texts;
}

} // namespace

std::vector<int> FileOrder(const std::vector<CFileRes *> &rows, const Environment &env, int sortState)
{
    if (sortState == 0) {
        std::vector<int> order(rows.size());
        std::iota(order.begin(), order.end(), 0);
        return order;
    }
    const Texts texts = TextsOf(rows, env, std::abs(sortState) == 1);
    return NameOrder().Sorted(
        int(rows.size()), [&](int row) { return texts.At(row); }, sortState);
}
