#pragma once

#include "Notices.h"

#include <QWidget>

#include <functional>

class NoticeText;
class QLabel;
class QToolButton;

/// A bar at the top of a project's window that shows what the user has to know although nothing failed. It is hidden
/// while there is nothing to show. It takes the focus only when the user gives it: by F6, Tab or a click.
class NoticeBar : public QWidget
{
public:
    explicit NoticeBar(QWidget *parent);

    void Add(const QString &text);
    [[nodiscard]] const Notices &Texts() const { return notices; }
    /// Told when the bar goes away while it has the focus, which somebody else has to take then.
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
