// SPDX-License-Identifier: MIT
#pragma once

#include "Workbook.h"

#include <QByteArrayView>

#include <optional>
#include <vector>

/// Reads the data of a record and of the CONTINUE records after it, from front to back, as if they were one piece.
///
/// Reading past the end is safe and returns nullopt or false. Keeps views of the stream.
class BiffCursor
{
public:
    void Append(QByteArrayView part);

    [[nodiscard]] std::optional<quint8> U8();
    [[nodiscard]] std::optional<quint16> U16();
    [[nodiscard]] std::optional<quint32> U32();
    /// Skips `count` bytes. False when there are fewer.
    [[nodiscard]] bool Skip(quint64 count);

    /// Reads a text that begins with its number of characters in 2 bytes. Skips formatting runs and other data after
    /// the characters. When a record ends within the characters, the next record begins with flags of its own. `pool`
    /// must have adopted the stream.
    [[nodiscard]] std::optional<TextPool::Ref> Text(TextPool &pool);

private:
    [[nodiscard]] bool EnterNextPart();
    [[nodiscard]] std::optional<TextPool::Ref> Characters(quint16 length, quint8 flags, TextPool &pool);
    [[nodiscard]] bool GatherCharacters(quint8 flags, QString &text);
    template <typename T> [[nodiscard]] std::optional<T> Number();

    std::vector<QByteArrayView> parts; // none is empty
    size_t part = 0;                   // the current position
    qsizetype at = 0;
};

/// Reads the records of a BIFF stream that isn't trusted. Keeps a view of the stream.
class BiffReader
{
public:
    struct Record
    {
        quint16 type;
        quint64 at; // in the stream
        QByteArrayView data;
    };

    explicit BiffReader(QByteArrayView view, quint64 start = 0) : stream(view), at(start) {}

    /// Returns the next record; nullopt when no complete record is left.
    [[nodiscard]] std::optional<Record> Next();
    /// Returns the data of `record`, which must be the last that Next returned, and of the CONTINUE records after it.
    /// Next doesn't return these any more.
    [[nodiscard]] BiffCursor WithContinued(const Record &record);
    /// Reads the first record of a part of the stream. The part must be of the kind `kind` and have the format's
    /// version.
    [[nodiscard]] WorkbookResult ReadBegin(quint16 kind);

    /// Returns the failure for a stream in which no record is left.
    [[nodiscard]] WorkbookResult CutOff() const;

private:
    QByteArrayView stream;
    quint64 at;
};

// These return the failure for a wrong record.
[[nodiscard]] WorkbookResult Damaged(const BiffReader::Record &record, const QString &what);
[[nodiscard]] WorkbookResult TooShort(const BiffReader::Record &record);
