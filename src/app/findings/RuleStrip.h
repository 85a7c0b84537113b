// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class NoticeText;

/// The strip below the list of findings that explains a rule.
class RuleStrip : public QWidget
{
public:
    explicit RuleStrip(QWidget *parent);

    void ShowText(const QString &explanation);
    [[nodiscard]] QString Text() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    NoticeText *text;
};
