// SPDX-License-Identifier: MIT
#include "Suggestion.h"

#include <algorithm>

namespace
{

std::string Lower(std::string word)
{
    for (char &c : word) {
        if (c >= 'A' && c <= 'Z')
            c = char(c - 'A' + 'a');
    }
    return word;
}

} // namespace

size_t TypingErrors(const std::string &a, const std::string &b)
{
    // Three rows of the table of distances between the beginnings of both words.
    std::vector<size_t> beforeLast(b.size() + 1);
    std::vector<size_t> last(b.size() + 1);
    std::vector<size_t> row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j)
        last[j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
        std::swap(beforeLast, last);
        std::swap(last, row);
    }
    return last[b.size()];
}

std::string NearestWord(const std::string &word, const std::vector<std::string> &candidates)
{
    constexpr size_t LONGEST = 64; // no candidate is longer
    if (word.empty() || word.size() > LONGEST)
        return {};
    std::string nearest;
    size_t least = std::max<size_t>(1, word.size() / 3) + 1;
    for (const std::string &candidate : candidates) {
        const size_t distance = TypingErrors(Lower(word), Lower(candidate));
        if (distance < least) {
            least = distance;
            nearest = candidate;
        }
    }
    return nearest;
}
