// SPDX-License-Identifier: MIT
#pragma once

#include "StringFilter.h"

#include <QWidget>

#include <functional>

class ColumnsButton;
class FilterChoice;
class QBoxLayout;
class QLabel;
class QLineEdit;
class QToolButton;
class StringTable;

/// The bar above the grid in which the user chooses the rows to show: by a text, a column, a kind, and a language
/// without a text. It also has the menu for hiding columns and the line for replacing. In a narrow pane the choices
/// have their own line.
class FindBar : public QWidget
{
public:
    explicit FindBar(QWidget *parent = nullptr);

    [[nodiscard]] StringCondition Condition() const;
    [[nodiscard]] QString Replacement() const;
    /// Reads the names of the languages from the table, and the number of gaps of each. A chosen language remains
    /// chosen if it still exists, even at another position. If it doesn't, or if its column has another number now,
    /// conditionChanged is called.
    void Fill(const StringTable &table);
    /// Shows the counts, such as "12 of 512 rows".
    void ShowCounts(int shown, int all);
    /// Sets which columns are hidden, for the menu of columns.
    void ShowHidden(const std::vector<bool> &hidden);
    /// Empties all fields. This counts as one change.
    void Clear();
    /// Gives the field of the text the focus, and selects its text.
    void FocusText();
    void ShowReplace(bool show);

    /// The minimum size for a narrow pane, in which the choices have their own line.
    [[nodiscard]] QSize minimumSizeHint() const override;

    std::function<void()> conditionChanged;  ///< after each letter
    std::function<void()> closed;            ///< by Esc or the close button, which clear the bar first
    std::function<void(bool back)> findNext; ///< F3, Return, and these keys with Shift
    std::function<void()> toGrid;            ///< Down in a text field
    std::function<void()> replaceAll;
    std::function<void(int column, bool hide)> hideColumn;

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void MakeChoices();
    void MakeReplacement();
    void MakeButtons();
    void LayOut();
    /// Places the choices in the first line, or in their own line.
    void FitLines();
    void FitCounts();
    void Changed();
    void Close();
    /// Returns whether the key was handled.
    bool TakeKey(const QKeyEvent &event, const QObject *in);

    QLineEdit *text;
    QToolButton *matchCase;
    QWidget *choices;
    FilterChoice *column;
    FilterChoice *missingIn;
    FilterChoice *kind;
    ColumnsButton *columns;
    QLabel *counts;
    QToolButton *close;
    QWidget *replaceLine;
    QLineEdit *replacement;
    QToolButton *replace;
    QBoxLayout *firstLine = nullptr;
    QBoxLayout *secondLine = nullptr;

    int allRows = 0;
    StringCondition told; // the condition at the last conditionChanged
    bool isFilling = false;
};
