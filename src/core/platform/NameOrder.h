#pragma once

#include <QString>

#include <functional>
#include <vector>

/// The order in which lists show names, the same in every locale: digits by their value ("STR2" before "STR10"), case
/// without weight, characters of all scripts in the Unicode root order. Texts that are equal so far are told apart by
/// their code units, so only equal texts are equal.
///
///     const NameOrder order;
///     const std::vector<int> shown = order.Sorted(count, [&](int i) { return names[i]; }, +1);
class NameOrder
{
public:
    NameOrder();
    ~NameOrder();
    NameOrder(const NameOrder &) = delete;
    NameOrder &operator=(const NameOrder &) = delete;

    /// Below 0, 0 or above 0: `a` comes before `b`, is equal to it, or comes behind it. A total order.
    [[nodiscard]] int Compare(QStringView a, QStringView b) const;
    /// The numbers 0 to `count` - 1 in the order of their texts; equal texts keep their order. A negative `direction`
    /// puts the last text first. Asks for each text once. For many texts this is several times as fast as `Compare`.
    [[nodiscard]] std::vector<int> Sorted(int count, const std::function<QString(int)> &textOf, int direction) const;

private:
    void *collator = nullptr; // UCollator; null, when ICU lacks its data: code units alone decide
};
