// SPDX-License-Identifier: MIT
#pragma once

#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <vector>

/// A string table of plain values with the same rules as the real one. Each edit returns whether it was done; a refused
/// edit changes nothing.
struct PlainTable
{
    struct Row
    {
        QString id;
        bool push = false;
        std::map<int, QString> texts; // texts by column, without empty ones
        bool operator==(const Row &) const = default;
    };

    std::vector<Row> rows;
    bool operator==(const PlainTable &) const = default;

    [[nodiscard]] bool IsTaken(const QString &id) const
    {
        return std::any_of(rows.begin(), rows.end(), [&](const Row &row) { return row.id == id; });
    }

    [[nodiscard]] QString Free(const QString &before) const
    {
        for (int n = 1;; ++n) {
            const QString id = before + QString::number(n, 16).toUpper().rightJustified(4, u'0');
            if (!IsTaken(id))
                return id;
        }
    }

    static void SetText(Row &row, int col, const QString &text)
    {
        row.texts[col] = text;
        if (text.isEmpty())
            row.texts.erase(col);
    }

    bool Edit(size_t at, int col, const QString &text)
    {
        if (at >= rows.size())
            return false;
        if (col == 0) {
            const QString id = text.trimmed().toUpper();
            if (!IsValid(id) || (IsTaken(id) && rows[at].id != id))
                return false;
            rows[at].id = id;
        } else if (col == 1) {
            rows[at].push = text.compare(u"push", Qt::CaseInsensitive) == 0;
        } else {
            SetText(rows[at], col, text);
        }
        return true;
    }

    bool Insert(int col, const QString &typed)
    {
        const QString text = typed.toUpper();
        Row row{col == 0 && !text.isEmpty() ? text : Free(QStringLiteral("ID_STRING_")), false, {}};
        if (!IsValid(row.id) || IsTaken(row.id))
            return false;
        if (col > 0)
            SetText(row, std::max(col, 2), text); // a text typed as the kind becomes the description
        rows.push_back(row);
        return true;
    }

    void Remove(const std::vector<int> &some)
    {
        for (auto at = some.rbegin(); at != some.rend(); ++at)
            rows.erase(rows.begin() + *at);
    }

    bool AppendCopy(size_t at)
    {
        if (at >= rows.size())
            return true;
        Row row = rows[at];
        row.id = Free(row.id + QStringLiteral("_COPY_"));
        if (!IsValid(row.id))
            return false;
        rows.push_back(row);
        return true;
    }

    static bool IsValid(const QString &id)
    {
        static const QRegularExpression name(QStringLiteral("\\A[A-Za-z_][A-Za-z0-9_]{0,63}\\z"));
        return name.match(id).hasMatch();
    }
};
