#pragma once

#include <QString>

#include <algorithm>
#include <functional>
#include <map>
#include <vector>

/// A string table as plain values, by the same rules as the real one, with a history that keeps whole tables.
struct PlainTable
{
    struct Row
    {
        QString id;
        bool push = false;
        QString description;
        std::map<int, QString> cells; // by column from 3 on; an emptied one stays
        bool operator==(const Row &) const = default;
    };
    using Rows = std::vector<Row>;

    Rows rows;
    std::map<size_t, Row> copied;

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

    /// Like an edit of the table; false when it is refused.
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
        } else if (col == 2) {
            rows[at].description = text;
        } else {
            rows[at].cells[col] = text;
        }
        return true;
    }

    bool Insert(int col, const QString &typed)
    {
        const QString text = typed.toUpper();
        Row row;
        row.id = col == 0 && !text.isEmpty() ? text : Free(QStringLiteral("ID_STRING_"));
        if (!IsValid(row.id) || IsTaken(row.id))
            return false;
        if (col == 1 || col == 2)
            row.description = text;
        else if (col > 2)
            row.cells[col] = text;
        rows.push_back(row);
        return true;
    }

    bool Paste()
    {
        for (const auto &[at, row] : copied) {
            rows.push_back(row);
            rows.back().id = QString();
            rows.back().id = Free(row.id + QStringLiteral("_COPY_"));
            if (!IsValid(rows.back().id)) {
                rows.pop_back();
                return false;
            }
        }
        return true;
    }

    static bool IsValid(const QString &id)
    {
        static const auto isBad = [](QChar c) {
            return !(c == u'_' || (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'));
        };
        return !id.isEmpty() && id.size() <= 64 && !id[0].isDigit() && std::none_of(id.begin(), id.end(), isBad);
    }
};
