// SPDX-License-Identifier: MIT
#pragma once

#include "UiIcon.h"

#include <QWidget>

class DetailsText;
class ElidedLabel;
class QGridLayout;
class QLabel;
class StringTable;

/// The strip below the grid. It shows the ID, the language and the whole text of the cell with the focus. The text is
/// wrapped, and has the direction of its language. The text of the first language is beside it, unless the cell is in
/// that language. While the project is checked, a line below says what is wrong with the cell. Read-only.
class DetailsStrip : public QWidget
{
public:
    explicit DetailsStrip(QWidget *parent = nullptr);

    /// Shows a cell of the table; `position` and `count` are for "37 of 512".
    void ShowCell(const StringTable &table, int row, int col, int position, int count);
    void ShowNothing();
    /// Shows what is wrong with the cell: the icon of the most serious finding, and the findings. Without findings, the
    /// line stays empty, so that the strip keeps its height.
    void ShowFindings(UiIcon icon, const QStringList &findings);
    /// Hides the line of the findings.
    void HideFindings();

private:
    /// Shows or hides the text of the first language. Without it, the cell's text has the full width.
    void ShowBeside(bool show);

    QGridLayout *cells;
    ElidedLabel *heading;
    ElidedLabel *besideHeading;
    DetailsText *text;
    DetailsText *beside;
    QLabel *findingIcon;
    ElidedLabel *findingLine;
};
