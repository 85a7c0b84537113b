// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QByteArrayList>
#include <QFile>
#include <QHash>

#include <vector>

inline QByteArray Bytes(const char *file)
{
    QFile opened(QString::fromUtf8(file));
    EXPECT_TRUE(opened.open(QIODevice::ReadOnly)) << file;
    return opened.readAll();
}

/// Returns the file of true texts as a string file, with the languages that the first row has.
inline QByteArray TrueTexts(const QByteArray &table, std::vector<QByteArray> &codes)
{
    QHash<QByteArray, QByteArray> columns; // by code
    const QByteArrayList lines = table.split('\n');
    const qsizetype codesStart = lines.indexOf("[Code]");
    for (const QByteArray &line : lines.sliced(codesStart + 1)) {
        const QByteArray number = line.first(qMax<qsizetype>(0, line.indexOf('=')));
        for (const QByteArray &name : lines.first(codesStart)) {
            if (!number.isEmpty() && name.endsWith('=' + number))
                columns[line.sliced(number.size() + 1)] = name.chopped(number.size() + 1) + '(' + number + ')';
        }
    }
    QByteArray rows;
    int count = 0;
    for (const QByteArray &line : Bytes(TRUE_TEXTS).split('\n')) {
        const qsizetype equals = line.indexOf('=');
        if (equals < 0)
            continue;
        if (line.startsWith("ID_")) {
            rows += (count++ > 0 ? "\n" : "") + line.first(equals) + "|Normal|" + line.sliced(equals + 1);
            continue;
        }
        if (count == 1)
            codes.push_back(line.first(equals));
        rows += '|' + line.sliced(equals + 1);
    }
    QByteArray head =
        "Number of Language|" + QByteArray::number(codes.size()) + "\nString ID|Resource Type|Description";
    for (const QByteArray &code : codes)
        head += '|' + columns[code];
    return head + '\n' + rows + "\n##number|" + QByteArray::number(count) + '\n';
}
