#pragma once

#include "StringFile.h"
#include "StringFileFormat.h"
#include "StringFileReader.h"
#include "TestModel.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstring>

/// UTF-16 little-endian with its mark, from a literal in which "|" divides fields and "\n" lines.
inline QByteArray StringFileBytes(const char *readable)
{
    QString text = QString::fromUtf8(readable);
    text.replace(u'|', u'\t').replace(QStringLiteral("\n"), QStringLiteral("\r\n")).prepend(QChar(0xFEFF));
    return QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
}

/// And back.
inline std::string Readable(const QByteArray &bytes)
{
    QString text(reinterpret_cast<const QChar *>(bytes.constData()), bytes.size() / 2);
    EXPECT_TRUE(text.startsWith(QChar(0xFEFF)));
    return text.mid(1).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\t', u'|').toStdString();
}

/// A project without strings, beside a program that knows English as 9 and French as 12.
class StringProject : public TestModel
{
public:
    StringProject()
    {
        folder.Put("bin/tuvik.ini", "[Language]\nEnglish=9\nFrench=12\n");
        auto made = CreateFolder(KIND_STRINGS, -1);
        strings = made.get();
        root.AddFolder(std::move(made));
    }

    /// Reads the file that a literal describes.
    int Read(const char *readable) { return ReadBytes(StringFileBytes(readable)); }
    int ReadBytes(const QByteArray &bytes)
    {
        folder.Put("strings.txt", bytes);
        return ReadStringFile(folder.Path("strings.txt"), *this);
    }

    /// Reads bytes that come in pieces, without a file.
    int ReadPieces(const QByteArray &bytes, size_t piece)
    {
        qsizetype at = 0;
        StringFileReader reader(*this, [&](void *buffer, size_t size) {
            const size_t count = std::min({size, piece, size_t(bytes.size() - at)});
            std::memcpy(buffer, bytes.constData() + at, count);
            at += qsizetype(count);
            return ssize_t(count);
        });
        const int code = reader.Read();
        rows = reader.Rows();
        return code;
    }

    /// What would be written now.
    std::string Written()
    {
        EXPECT_EQ(WriteStringFile(folder.Path("out.txt"), *this), 0);
        return Readable(folder.Get("out.txt"));
    }

    /// The messages since the last call, without the line that a read begins with.
    std::string Messages()
    {
        QByteArray text = TakeOutput();
        if (text.startsWith("Loading strings from \""))
            text.remove(0, text.indexOf("\r\n") + 2);
        return text.toStdString();
    }

    [[nodiscard]] CResFolder *Language(int number) const { return strings->FindFolder(KIND_LANGUAGE, number, 1); }

    CResFolder *strings = nullptr;
    int rows = 0;
};
