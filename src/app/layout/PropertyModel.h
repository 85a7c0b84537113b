// SPDX-License-Identifier: MIT
#pragma once

#include "PropertyRows.h"

#include <QAbstractTableModel>

/// The roles of the property grid's model that describe a cell in addition to its text.
enum PropertyRole : int
{
    ROLE_IS_SET = Qt::UserRole + 20, ///< bool: the name of a property that has a value
    ROLE_IS_HEADING,                 ///< bool: the row is only a heading for those below it
};

/// An item model of the properties of a component that match a filter.
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

    /// Shows the rows of a component that match the filter; null for none. Resets the model.
    void Show(CZulClass *component);
    /// Shows the rows that have a text in their present name or value; all rows for an empty text. Resets the model.
    void SetFilter(const QString &text);
    [[nodiscard]] const QString &Filter() const { return filter; }
    /// Reads all values again. Emits dataChanged only for rows that have changed. No row is hidden, even if it doesn't
    /// match the filter any more.
    void Refresh();

    /// A row that is shown.
    [[nodiscard]] const PropertyRow &At(int row) const { return rows[size_t(shown[size_t(row)])]; }
    /// Convert the index of a row among all rows (`place`) to its index among the shown rows, and back; -1 for none.
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
    std::vector<int> shown; // the indexes of the rows that match the filter, ascending
    QString filter;
};
