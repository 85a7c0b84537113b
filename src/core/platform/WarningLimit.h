#pragma once

#include <QString>

#include <string_view>
#include <vector>

/// Keeps the report of an operation readable that asks for it: of the warnings of one kind, the first thousand have a
/// line each and the rest one together.
class WarningLimit
{
public:
    static constexpr int MOST = 1000;

    /// A kind of warning, by the code of its findings.
    struct Kind
    {
        std::string_view code;
        int count = 0;     ///< of all
        QString firstRest; ///< the sentence of the first warning that has no line

        [[nodiscard]] int Rest() const { return count > MOST ? count - MOST : 0; }
    };

    void Begin() { isOn = true; }
    /// Counts a warning of a kind, whose code is a literal; null when nothing is limited.
    Kind *Count(std::string_view code);
    /// In the order in which each kind came first.
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
