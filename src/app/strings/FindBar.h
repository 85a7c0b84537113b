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

/// The bar above the grid in which the user says which rows to show: a text, a column, a kind, and the language that
/// lacks one. It also has the names of the columns, to hide them, and the line of a replacement. In a narrow pane the
/// choices have a line of their own.
class FindBar : public QWidget
{
public:
    explicit FindBar(QWidget *parent = nullptr);

    [[nodiscard]] StringCondition Condition() const;
    [[nodiscard]] QString Replacement() const;
    /// Takes the languages' names anew from the table, and how many gaps each has. What was chosen stays chosen where
    /// it still is there (by the language, not by the place); else, or when its column has another number now, this
    /// tells of a change.
    void Fill(const StringTable &table);
    /// Shows the counts "12 of 512 rows".
    void ShowCounts(int shown, int all);
    /// Which columns are hidden, for the menu of columns.
    void ShowHidden(const std::vector<bool> &hidden);
    /// Empties all fields; told as one change.
    void Clear();
    /// Puts the focus into the field of the text, and selects it.
    void FocusText();
    void ShowReplace(bool show);

    /// That of a narrow pane, where the choices have a line of their own.
    [[nodiscard]] QSize minimumSizeHint() const override;

    std::function<void()> conditionChanged;  ///< at once, with each letter
    std::function<void()> closed;            ///< by Esc or the cross, which clear the bar first
    std::function<void(bool back)> findNext; ///< F3, Return and their opposites
    std::function<void()> toGrid;            ///< Down in a field of text
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
    /// Puts the choices into the first line, or into one of their own.
    void FitLines();
    void FitCounts();
    void Changed();
    void Close();
    /// Says whether the key did something.
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
    StringCondition told; // by conditionChanged
    bool isFilling = false;
};
