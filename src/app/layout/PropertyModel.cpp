// SPDX-License-Identifier: MIT
#include "PropertyModel.h"

#include "CellLine.h"
#include "ZulValues.h"

#include <QIcon>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr const char *TITLES[PropertyModel::COLUMN_COUNT] = {"Property", "Value", "Resource Type"};

QString TextOf(const PropertyRow &row, int col)
{
    switch (col) {
    case PropertyModel::NAME_COLUMN:
        return ShownName(row);
    case PropertyModel::VALUE_COLUMN:
        return row.value;
    default:
        return row.type;
    }
}

/// The text for screen readers, which says in words what the bold type means.
QString AccessibleText(const PropertyRow &row, int col)
{
    if (col == PropertyModel::NAME_COLUMN)
        return row.isSet ? row.name + u", set"_s : row.name;
    return row.name + u", "_s + QLatin1String(TITLES[col]) + u": "_s + CellLine(TextOf(row, col), LONGEST_SHOWN);
}

/// A square in the colour of a property that is set, to be shown beside the text. It is drawn large, for screens of
/// high resolution too.
QVariant ColorSample(const PropertyRow &row)
{
    if (row.kind != PropertyKind::Value || !row.isSet || row.target->GetTypeId() != TYPE_COLOR)
        return {};
    constexpr int SIDE = 48; // pixels
    constexpr int FRAME = 3;
    const auto &color = static_cast<const CZulColor &>(*row.target);
    QPixmap sample(SIDE, SIDE);
    sample.fill(Qt::gray);
    QPainter(&sample).fillRect(sample.rect().adjusted(FRAME, FRAME, -FRAME, -FRAME),
                               QColor(color.red, color.green, color.blue));
    return QIcon(sample);
}

} // namespace

void PropertyModel::Show(CZulClass *component)
{
    beginResetModel();
    rows = component ? RowsOf(env, *component) : std::vector<PropertyRow>();
    shown = RowsThatHave(rows, filter);
    endResetModel();
}

void PropertyModel::SetFilter(const QString &text)
{
    beginResetModel();
    filter = text;
    shown = RowsThatHave(rows, filter);
    endResetModel();
}

/// Reads all rows, which are few. A signal for a row costs more than reading it.
void PropertyModel::Refresh()
{
    for (int row = 0; row < int(shown.size()); ++row) {
        PropertyRow &each = rows[size_t(shown[size_t(row)])];
        const PropertyRow before = each;
        ::Refresh(env, each);
        if (each.value != before.value || each.type != before.type || each.isSet != before.isSet)
            Q_EMIT dataChanged(index(row, 0), index(row, COLUMN_COUNT - 1));
    }
}

int PropertyModel::RowOf(int place) const
{
    const auto found = std::lower_bound(shown.begin(), shown.end(), place);
    return found != shown.end() && *found == place ? int(found - shown.begin()) : -1;
}

int PropertyModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(shown.size());
}

int PropertyModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : COLUMN_COUNT;
}

QVariant PropertyModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const PropertyRow &row = At(index.row());
    const int col = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return CellLine(TextOf(row, col), LONGEST_SHOWN);
    case Qt::EditRole:
        return TextOf(row, col);
    case Qt::DecorationRole:
        return col == VALUE_COLUMN ? ColorSample(row) : QVariant();
    case Qt::AccessibleTextRole:
        return AccessibleText(row, col);
    case ROLE_IS_SET:
        return row.isSet && col == NAME_COLUMN;
    case ROLE_IS_HEADING:
        return row.kind == PropertyKind::Heading;
    default:
        return {};
    }
}

QVariant PropertyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= COLUMN_COUNT)
        return {};
    return QLatin1String(TITLES[section]);
}
