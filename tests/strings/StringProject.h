#pragma once

#include "StringFile.h"
#include "StringFileReader.h"
#include "TestModel.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstring>

/// UTF-16 little-endian with its mark, from a text in which "|" divides fields and "\n" lines.
inline QByteArray StringFileBytes(const QByteArray &readable)
{
    const QString text =
        QChar(0xFEFF) +
        QString::fromUtf8(readable).replace(u'|', u'\t').replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
    return {reinterpret_cast<const char *>(text.utf16()), text.size() * 2};
}

/// A project without strings, beside a program that knows English as 9 and French as 12.
struct StringProject : TestModel
{
    StringProject() { folder.Put("bin/tuvik.ini", "[Language]\nEnglish=9\nFrench=12\n"); }

    int Read(const QByteArray &readable) { return ReadBytes(StringFileBytes(readable)); }

    /// Reads a file that comes in pieces of so many bytes.
    int ReadBytes(const QByteArray &bytes, size_t piece = 4096)
    {
        qsizetype at = 0;
        StringFileReader reader(*this, [&](void *buffer, size_t size) {
            const size_t count = std::min({size, piece, size_t(bytes.size() - at)});
            std::memcpy(buffer, bytes.constData() + at, count);
            at += qsizetype(count);
            return ssize_t(count);
        });
        const int code = reader.Read(bytes.size());
        rows = reader.Rows();
        return code;
    }

    /// What would be written now, in the form that `Read` takes.
    std::string Written()
    {
        EXPECT_EQ(WriteStringFile(folder.Path("out.txt"), *this), 0);
        const QByteArray bytes = folder.Get("out.txt");
        const QString text(reinterpret_cast<const QChar *>(bytes.constData()), bytes.size() / 2);
        EXPECT_TRUE(text.startsWith(QChar(0xFEFF)) && text.endsWith(u"\r\n") &&
                    text.count(u'\n') == text.count(u"\r\n"));
        return text.mid(1).remove(u'\r').replace(u'\t', u'|').toStdString();
    }

    std::string Messages() { return TakeOutput().toStdString(); }

    [[nodiscard]] CResFolder *Language(int number) const { return strings.FindFolder(KIND_LANGUAGE, number, 1); }
    /// The text of the first row, in a language.
    [[nodiscard]] const QString &Text(int number) const
    {
        return static_cast<CStringRes *>(Language(number)->resources.First())->text;
    }

    CResFolder &strings = AddFolder(root, KIND_STRINGS);
    int rows = 0;
};
