// SPDX-License-Identifier: MIT
#pragma once

#include "Notices.h"

#include <QWidget>

#include <functional>

class NoticeText;
class QLabel;
class QToolButton;

/// A bar at the top of a project's window for information that isn't an error. It is hidden while there is nothing to
/// show. It gets the focus only if the user moves it there, with F6, Tab or a click.
class NoticeBar : public QWidget
{
public:
    explicit NoticeBar(QWidget *parent);

    void Add(const QString &text);
    [[nodiscard]] const Notices &Texts() const { return notices; }
    /// Called when the bar is hidden while it has the focus. Another widget must take the focus then.
    std::function<void()> leavesFocus;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void Dismiss();
    void ShowNotice();

    Notices notices;
    NoticeText *text;
    QLabel *place;
    QToolButton *close;
};
