// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

class QKeyEvent;
class QLineEdit;

/// The bar above the property grid. The user types a text, and the grid shows the rows that have it in their name or
/// value. Hidden at first.
class PropertyFilter : public QWidget
{
public:
    explicit PropertyFilter(QWidget *parent);

    std::function<void(const QString &text)> textChanged; ///< called at once, after each letter
    std::function<void()> toGrid;                         ///< called for Down and Enter, and when the bar closes

    /// Shows the bar, or closes it if it has the focus already.
    void Toggle();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Returns whether the key was handled.
    bool TakeKey(const QKeyEvent &key);
    void Close();

    QLineEdit *text;
};
