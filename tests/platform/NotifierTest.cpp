// SPDX-License-Identifier: MIT
#include "Notifier.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

TEST(Notifier, AllowsListenersToBeAddedAndRemovedDuringANotification)
{
    std::string told;
    auto notifier = std::make_unique<Notifier<int>>();
    std::optional<Notifier<int>::Listener> first, second, third, late;
    first.emplace(*notifier, [&](int) {
        told += '1';
        second.reset();
        if (!late)
            late.emplace(*notifier, [&](int) { told += 'L'; });
    });
    second.emplace(*notifier, [&](int) { told += '2'; });
    third.emplace(*notifier, [&](int depth) {
        told += '3';
        if (depth > 0)
            notifier->Tell(depth - 1);
    });
    notifier->Tell(1);
    EXPECT_EQ(told, "1313L") << "a listener added meanwhile is notified from the next time on";
    notifier->Tell(0);
    EXPECT_EQ(told, "1313L13L");
    notifier.reset();
    third.reset(); // its notifier is already destroyed
}
