#pragma once

#include "StringFilter.h"

#include <QWidget>

#include <functional>

class StringTable;

/// The bar above the grid in which the user says which rows to show: a text, a column, a kind, and the language that
/// lacks one. It also has the names of the columns, to hide them, and the line of a replacement.
class FindBar : public QWidget
{
public:
    explicit FindBar(QWidget *parent = nullptr);

    [[nodiscard]] StringCondition Condition() const;
    [[nodiscard]] QString Replacement() const;
    /// Takes the languages' names anew from the table, and how many gaps each has. What was chosen stays chosen where
    /// it still is there (by the language, not by the place).
    void Fill(const StringTable &table);
    /// Shows the counts "12 of 512 rows".
    void ShowCounts(int shown, int all);
    /// Which columns are hidden, for the menu of columns.
    void ShowHidden(const std::vector<bool> &hidden);
    /// Empties all fields; told as one change.
    void Clear();
    void FocusText();
    void ShowReplace(bool show);

    std::function<void()> conditionChanged;
    std::function<void()> closed;            ///< by Esc or the cross
    std::function<void(bool back)> findNext; ///< F3, Return and their opposites
    std::function<void()> replaceAll;
    std::function<void(int column, bool hide)> hideColumn;
};
