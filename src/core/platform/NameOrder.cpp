// SPDX-License-Identifier: MIT
#include "NameOrder.h"

#include <unicode/ucol.h>

#include <algorithm>
#include <cstring>
#include <numeric>

namespace
{

constexpr size_t LIKELY_KEY = 64; // bytes

UCollator *AsCollator(void *collator)
{
    return static_cast<UCollator *>(collator);
}

/// The sort keys of texts, one after the other in one buffer. Each key is a sequence of bytes that ends with 0.
class SortKeys
{
public:
    SortKeys(const UCollator *ordering, size_t count) : collator(ordering), bytes(count * LIKELY_KEY)
    {
        ends.reserve(count);
    }

    void Add(QStringView text)
    {
        const size_t start = ends.empty() ? 0 : ends.back();
        const size_t needed = Put(text, start);
        if (start + std::max(needed, size_t(1)) > bytes.size()) {
            bytes.resize((start + needed + 1) * 2);
            (void)Put(text, start);
        }
        if (needed == 0) // ICU failed: make the key empty
            bytes[start] = 0;
        ends.push_back(start + std::max(needed, size_t(1)));
    }

    [[nodiscard]] int Compare(size_t a, size_t b) const { return std::strcmp(At(a), At(b)); }

private:
    /// Writes a text's key to `start` if there is room for it. Returns the size of the key in bytes.
    [[nodiscard]] size_t Put(QStringView text, size_t start)
    {
        const size_t room = bytes.size() - start;
        return size_t(ucol_getSortKey(collator, reinterpret_cast<const UChar *>(text.utf16()), int32_t(text.size()),
                                      room > 0 ? bytes.data() + start : nullptr,
                                      int32_t(qMin(room, size_t(INT32_MAX)))));
    }

    [[nodiscard]] const char *At(size_t n) const
    {
        return reinterpret_cast<const char *>(bytes.data()) + (n == 0 ? 0 : ends[n - 1]);
    }

    const UCollator *collator;
    std::vector<uint8_t> bytes;
    std::vector<size_t> ends; // of each key, in `bytes`
};

} // namespace

NameOrder::NameOrder()
{
    UErrorCode status = U_ZERO_ERROR;
    UCollator *const opened = ucol_open("", &status); // the root order, whatever the locale is
    if (!opened)
        return;
    ucol_setAttribute(opened, UCOL_NUMERIC_COLLATION, UCOL_ON, &status);
    ucol_setStrength(opened, UCOL_SECONDARY);
    collator = opened;
}

NameOrder::~NameOrder()
{
    if (collator)
        ucol_close(AsCollator(collator));
}

int NameOrder::Compare(QStringView a, QStringView b) const
{
    const UCollationResult result =
        collator ? ucol_strcoll(AsCollator(collator), reinterpret_cast<const UChar *>(a.utf16()), int32_t(a.size()),
                                reinterpret_cast<const UChar *>(b.utf16()), int32_t(b.size()))
                 : UCOL_EQUAL;
    return result != UCOL_EQUAL ? int(result) : a.compare(b);
}

std::vector<int> NameOrder::Sorted(int count, const std::function<QString(int)> &textOf, int direction) const
{
    std::vector<QString> texts;
    texts.reserve(size_t(count));
    for (int n = 0; n < count; ++n)
        texts.push_back(textOf(n));
    return Sorted(std::vector<QStringView>(texts.begin(), texts.end()), direction);
}

std::vector<int> NameOrder::Sorted(const std::vector<QStringView> &texts, int direction) const
{
    SortKeys keys(AsCollator(collator), texts.size());
    for (const QStringView text : texts) {
        if (collator)
            keys.Add(text);
    }
    std::vector<int> order(texts.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int left, int right) {
        const auto a = size_t(direction < 0 ? right : left);
        const auto b = size_t(direction < 0 ? left : right);
        const int result = collator ? keys.Compare(a, b) : 0;
        return (result != 0 ? result : texts[a].compare(texts[b])) < 0;
    });
    return order;
}
