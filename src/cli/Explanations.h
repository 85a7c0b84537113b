// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

/// What a code or a rule means.
struct Explanation
{
    QString code;     ///< such as "-1016", "strings.id-conflict" or "file-missing"
    QString kind;     ///< what has the code, or the level of a rule
    QString when;     ///< a sentence without its full stop
    QString whatToDo; ///< sentences
    QString document; ///< in the folder of the documents

    /// The lines for a user. Those of a rule are ExplanationOf(rule) and the document.
    [[nodiscard]] QString Text() const;
};

/// All codes that a user may see, and all rules of the check.
[[nodiscard]] std::vector<Explanation> AllExplanations();

/// The explanations of a code or of a line of a report that has one, such as "### error -1016 ###"; several kinds of
/// failures may have the same number. A number without its sign counts too, if no code is above 0. Empty for an unknown
/// code.
[[nodiscard]] std::vector<Explanation> ExplanationsOf(const QString &text);
