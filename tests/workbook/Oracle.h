#pragma once

#include "Cells.h"
#include "TempFolder.h"

#include <QProcess>
#include <gtest/gtest.h>

// Other programs that read and write workbooks. They aren't asked whether they are there: a test without them is none.

inline QByteArray RunProgram(const QString &program, const QStringList &arguments, const QByteArray &input = {})
{
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(120'000) && process.exitCode() == 0)
        << program.toStdString() << ' ' << arguments.join(u' ').toStdString() << ": "
        << process.errorString().toStdString() << '\n'
        << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

inline QByteArray AskOracle(const QStringList &arguments, const QByteArray &input = {})
{
    return RunProgram(QStringLiteral(SYSTEM_PYTHON), QStringList(QStringLiteral(WORKBOOK_ORACLE)) + arguments, input);
}

/// What a program finds in a workbook: "xlrd", or "csv" for what gnumeric makes of it.
inline Cells OracleReads(const char *reader, const QByteArray &file, const char *extension)
{
    TempFolder folder;
    const QByteArray name = QByteArray("book.") + extension;
    folder.Put(name, file);
    QString path = folder.Path(name);
    if (QByteArrayView(reader) == "csv") {
        const QString book = std::exchange(path, folder.Path("book.csv"));
        RunProgram(QStringLiteral("ssconvert"), {book, path});
    }
    Cells cells;
    for (const QByteArray &line : AskOracle({QStringLiteral("read"), QLatin1String(reader), path}).split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() != 3)
            continue;
        const QByteArray text = QByteArray::fromHex(fields[2]);
        cells[{fields[0].toUInt(), fields[1].toUInt()}] =
            QString(reinterpret_cast<const QChar *>(text.data()), text.size() / 2);
    }
    return cells;
}

/// The workbook that a program makes of cells: "xlwt", or "csv" for what gnumeric makes of that.
inline QByteArray OracleWrites(const char *writer, const Cells &cells, const char *extension)
{
    TempFolder folder;
    QByteArray lines;
    for (const auto &[place, text] : cells)
        lines += QByteArray::number(place.first) + ' ' + QByteArray::number(place.second) + ' ' +
                 QByteArray::fromRawData(reinterpret_cast<const char *>(text.utf16()), 2 * text.size()).toHex() + '\n';
    const QByteArray name = QByteArray("book.") + extension;
    const bool isGnumeric = QByteArrayView(writer) == "csv";
    const QString written = folder.Path(isGnumeric ? "book.csv" : name.data());
    AskOracle({QStringLiteral("write"), QLatin1String(writer), written}, lines);
    if (isGnumeric)
        RunProgram(QStringLiteral("ssconvert"), {written, folder.Path(name)});
    return folder.Get(name);
}
