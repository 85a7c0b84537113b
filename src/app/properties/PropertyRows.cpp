#include "PropertyRows.h"

#include "Environment.h"

std::vector<PropertyRow> RowsOf(const Environment &env, CZulClass &component)
{
    std::vector<PropertyRow> rows(1);
    rows[0].name = QStringLiteral("Class");
    rows[0].kind = PropertyKind::Name;
    rows[0].target = &component;
    Refresh(env, rows[0]);
    return rows;
}

void Refresh(const Environment &env, PropertyRow &row)
{
    row.value = env.NarrowToWide(row.target->propName);
    row.type = env.NarrowToWide(row.target->typeName);
}

QString ShownName(const PropertyRow &row)
{
    return QString(4 * row.indent, u' ') + row.name;
}

std::vector<int> RowsThatHave(const std::vector<PropertyRow> &rows, const QString &)
{
    std::vector<int> all;
    for (int row = 0; row < int(rows.size()); ++row)
        all.push_back(row);
    return all;
}
