#pragma once

#include "Workbook.h"

#include <QByteArray>

#include <initializer_list>
#include <limits>
#include <vector>

/// Sectors of one size that lie side by side, chained by a table of what follows each.
///
/// Keeps a view of the bytes.
struct SectorSpace
{
    QByteArrayView bytes;
    quint64 sectorSize = 0;
    std::vector<quint32> next; // by sector; the number of another one, or END_OF_CHAIN

    static constexpr quint64 WHOLE_CHAIN = std::numeric_limits<quint64>::max();

    /// Puts `length` bytes of the chain that begins with sector `start` into `result`, or those up to the end of the
    /// chain. `name` is for the reason of a failure.
    [[nodiscard]] WorkbookResult Gather(quint32 start, quint64 length, const QString &name, QByteArray &result) const;
};

/// The streams in the root folder of a compound file ([MS-CFB]), read from memory.
///
/// Costs no more memory and time than the file's size warrants, whatever the file says. The library that writes the
/// container can't be trusted to read one: its stack grows with the depth of the file's directory.
/// Keeps a view of the file.
///
///     CompoundReader container;
///     if (const WorkbookResult wrong = container.Open(file); wrong.HasFailed()) ...
///     if (container.Has(u"Workbook")) container.Read(u"Workbook", stream)
class CompoundReader
{
public:
    [[nodiscard]] WorkbookResult Open(QByteArrayView file);
    /// Names are compared without regard to case.
    [[nodiscard]] bool Has(QStringView name) const { return Find(name) != nullptr; }
    /// The bytes of a stream that is there.
    [[nodiscard]] WorkbookResult Read(QStringView name, QByteArray &stream) const;

private:
    struct Stream
    {
        QString name;
        quint32 start;
        quint64 size;
    };

    [[nodiscard]] const Stream *Find(QStringView name) const;
    [[nodiscard]] WorkbookResult ReadTable();
    [[nodiscard]] WorkbookResult ReadDirectory();
    [[nodiscard]] WorkbookResult ReadSmall(const Stream &found, QByteArray &stream) const;
    [[nodiscard]] Stream ReadEntry(QByteArrayView entry) const;
    [[nodiscard]] quint32 HeaderField(quint64 at) const;

    QByteArrayView header;
    SectorSpace sectors;
    Stream root{};
    std::vector<Stream> streams;
};

/// A compound file with one stream in its root folder, given in pieces; the same bytes for the same stream.
[[nodiscard]] WorkbookResult WriteCompoundFile(const char *name, std::initializer_list<QByteArrayView> stream,
                                               QByteArray &file);
