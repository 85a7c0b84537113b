#pragma once

#include "Workbook.h"

#include <QByteArrayView>

#include <optional>
#include <vector>

/// The data of a record and of the CONTINUE records behind it, read from front to back as if they were one piece.
///
/// Past the end there is nothing, and never a crash. Keeps views of the stream.
class BiffCursor
{
public:
    void Append(QByteArrayView part);

    [[nodiscard]] std::optional<quint8> U8();
    [[nodiscard]] std::optional<quint16> U16();
    [[nodiscard]] std::optional<quint32> U32();
    /// Goes on by `count` bytes, or gives false when there are fewer.
    [[nodiscard]] bool Skip(quint64 count);

    /// A text with its count of characters in 2 bytes; runs and data behind the characters are skipped. When a record
    /// ends within the characters, the next one begins with flags of its own. The stream is what `pool` has adopted.
    [[nodiscard]] std::optional<TextPool::Ref> Text(TextPool &pool);

private:
    [[nodiscard]] bool EnterNextPart();
    [[nodiscard]] std::optional<TextPool::Ref> Characters(quint16 length, quint8 flags, TextPool &pool);
    [[nodiscard]] bool GatherCharacters(quint8 flags, QString &text);
    template <typename T> [[nodiscard]] std::optional<T> Number();

    std::vector<QByteArrayView> parts; // none is empty
    size_t part = 0;                   // where to read
    qsizetype at = 0;
};

/// The records of a BIFF stream that nobody has checked yet. Keeps a view of it.
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

    /// The next record; nothing when no whole one is left.
    [[nodiscard]] std::optional<Record> Next();
    /// The data of `record`, which came last, and of the CONTINUE records behind it, which won't come any more.
    [[nodiscard]] BiffCursor WithContinued(const Record &record);
    /// Reads the first record of a part of the stream, which must be of `kind` and in the format's version.
    [[nodiscard]] WorkbookResult ReadBegin(quint16 kind);

    /// What is wrong when no record is left.
    [[nodiscard]] WorkbookResult CutOff() const;

private:
    QByteArrayView stream;
    quint64 at;
};

// What is wrong with a record.
[[nodiscard]] WorkbookResult Damaged(const BiffReader::Record &record, const QString &what);
[[nodiscard]] WorkbookResult TooShort(const BiffReader::Record &record);
