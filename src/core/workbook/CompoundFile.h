#pragma once

#include "Workbook.h"

#include <QByteArray>

#include <cstdio>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

typedef struct _GsfOutput GsfOutput;
typedef struct _GsfOutfile GsfOutfile;

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
    /// The same bytes where they lie, when the chain's sectors do so side by side; else nothing.
    [[nodiscard]] std::optional<QByteArrayView> InPlace(quint32 start, quint64 length) const;
};

/// The streams in the root folder of a compound file ([MS-CFB]), read from memory.
///
/// Costs no more memory and time than the file's size warrants, whatever the file says. The library that writes the
/// container can't be trusted to read one: its stack grows with the depth of the file's directory.
/// Keeps a view of the file.
///
///     CompoundReader container;
///     if (const WorkbookResult wrong = container.Open(file); wrong.HasFailed()) ...
///     if (container.Has(u"Workbook")) container.Read(u"Workbook", stream, gathered)
class CompoundReader
{
public:
    [[nodiscard]] WorkbookResult Open(QByteArrayView file);
    /// Names are compared without regard to case.
    [[nodiscard]] bool Has(QStringView name) const { return Find(name) != nullptr; }
    /// The bytes of a stream that is there: most writers leave them in one piece of the file. Those that aren't are
    /// put into `gathered`.
    [[nodiscard]] WorkbookResult Read(QStringView name, QByteArrayView &stream, QByteArray &gathered) const;

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

/// Writes a compound file with one stream in its root folder; the same bytes for the same stream.
///
///     CompoundWriter container("Workbook", file);
///     container.Write(piece);
///     return container.Close();
class CompoundWriter
{
public:
    /// The file has to stay, and isn't closed.
    CompoundWriter(const char *name, std::FILE *file);
    /// Appends to the stream.
    void Write(QByteArrayView piece);
    /// Completes the file; once. Tells of what failed before, too.
    [[nodiscard]] WorkbookResult Close();

private:
    struct Release
    {
        void operator()(void *object) const;
    };
    std::unique_ptr<GsfOutput, Release> output;
    std::unique_ptr<GsfOutfile, Release> container;
    std::unique_ptr<GsfOutput, Release> stream;
    bool isWritten = true;
};
