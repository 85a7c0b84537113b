// SPDX-License-Identifier: MIT
#pragma once

#include "CListGrid.h"

/// The list of findings. A list without rows shows a text in their place.
class FindingGrid : public CListGrid
{
public:
    explicit FindingGrid(QWidget *parent);

    void ShowEmptyText(const QString &text);
    [[nodiscard]] const QString &EmptyText() const { return emptyText; }

    std::function<void()> entered; ///< Enter, or a double click on a row

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString emptyText;
};
