// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

class QKeyEvent;
class QLineEdit;

/// The bar above the property grid in which the user types what the rows have in their name or value. Hidden at first.
class PropertyFilter : public QWidget
{
public:
    explicit PropertyFilter(QWidget *parent);

    std::function<void(const QString &text)> textChanged; ///< at once, with each letter
    std::function<void()> toGrid;                         ///< Down and Enter; also when the bar closes

    /// Shows the bar, or closes it when it has the focus already.
    void Toggle();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Says whether the key is used up.
    bool TakeKey(const QKeyEvent &key);
    void Close();

    QLineEdit *text;
};
