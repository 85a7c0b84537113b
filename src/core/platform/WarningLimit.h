// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>
#include <vector>

/// Limits the warnings in the report of an operation that asks for it: of each kind of warning, the first thousand have
/// a line of their own, and the others have one line together.
class WarningLimit
{
public:
    static constexpr int MOST = 1000;

    /// A kind of warning, by the code of its findings.
    struct Kind
    {
        std::string_view code;
        int count = 0;     ///< number of all warnings of the kind
        QString firstRest; ///< the sentence of the first warning without a line of its own

        [[nodiscard]] int Rest() const { return count > MOST ? count - MOST : 0; }
    };

    void Begin() { isOn = true; }
    /// Counts a warning of the kind with that code, which must be a string literal. Null when no limit is set.
    Kind *Count(std::string_view code);
    /// The kinds in the order of their first warnings.
    [[nodiscard]] const std::vector<Kind> &Kinds() const { return kinds; }
    void End()
    {
        kinds.clear();
        isOn = false;
    }

private:
    std::vector<Kind> kinds; // few
    bool isOn = false;
};
