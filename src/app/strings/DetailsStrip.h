#pragma once

#include <QWidget>

class DetailsText;
class ElidedLabel;
class QGridLayout;
class StringTable;

/// The strip below the grid: ID, language and whole text of the cell in focus, wrapped and in the direction of the
/// language, with the text of the first language beside it unless the cell is that language's. Read-only.
class DetailsStrip : public QWidget
{
public:
    explicit DetailsStrip(QWidget *parent = nullptr);

    /// Shows a cell of the table; `position` and `count` are for "37 of 512".
    void ShowCell(const StringTable &table, int row, int col, int position, int count);
    void ShowNothing();

private:
    /// With nothing beside it the text has all of the width.
    void ShowBeside(bool show);

    QGridLayout *cells;
    ElidedLabel *heading;
    ElidedLabel *besideHeading;
    DetailsText *text;
    DetailsText *beside;
};
