// SPDX-License-Identifier: MIT
#pragma once

#include "PropertyRows.h"

#include <QAbstractTableModel>

/// What the model of the property grid tells of a cell beside its text.
enum PropertyRole : int
{
    ROLE_IS_SET = Qt::UserRole + 20, ///< bool: the name of a property that has a value
    ROLE_IS_HEADING,                 ///< bool: the row is only a heading for those below it
};

/// The properties of a component as an item model: those that a filter leaves.
class PropertyModel : public QAbstractTableModel
{
public:
    enum Column
    {
        NAME_COLUMN,
        VALUE_COLUMN,
        TYPE_COLUMN,
        COLUMN_COUNT,
    };

    /// The environment must live longer.
    explicit PropertyModel(const Environment &environment) : env(environment) {}

    /// Shows the rows of a component that the filter leaves; null for none. Told to Qt as a reset.
    void Show(CZulClass *component);
    /// Shows the rows that have a text in their name or value, as they are now; all for an empty text. Told to Qt as a
    /// reset.
    void SetFilter(const QString &text);
    [[nodiscard]] const QString &Filter() const { return filter; }
    /// Reads all values again. Only rows that have changed are told to Qt; the filter hides none of them.
    void Refresh();

    /// A row that is shown.
    [[nodiscard]] const PropertyRow &At(int row) const { return rows[size_t(shown[size_t(row)])]; }
    /// Where the row that was at `place` among all rows is shown, and the other way round; -1 for none.
    [[nodiscard]] int RowOf(int place) const;
    [[nodiscard]] int PlaceOf(int row) const { return row < 0 ? -1 : shown[size_t(row)]; }

    // QAbstractTableModel
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const Environment &env;
    std::vector<PropertyRow> rows;
    std::vector<int> shown; // the numbers of the rows that the filter leaves, ascending
    QString filter;
};
