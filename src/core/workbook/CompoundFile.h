// SPDX-License-Identifier: MIT
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

/// Consecutive sectors of the same size, which a table links into chains: it has the next sector of each sector.
///
/// Keeps a view of the bytes.
struct SectorSpace
{
    QByteArrayView bytes;
    quint64 sectorSize = 0;
    std::vector<quint32> next; // by sector: the number of the next sector, or END_OF_CHAIN

    static constexpr quint64 WHOLE_CHAIN = std::numeric_limits<quint64>::max();

    /// Copies `length` bytes of the chain that begins with sector `start` into `result`; for WHOLE_CHAIN, the bytes up
    /// to the end of the chain. `name` is for the reason of a failure.
    [[nodiscard]] WorkbookResult Gather(quint32 start, quint64 length, const QString &name, QByteArray &result) const;
    /// Returns a view of the same bytes if the sectors of the chain are consecutive; otherwise nullopt.
    [[nodiscard]] std::optional<QByteArrayView> InPlace(quint32 start, quint64 length) const;
};

/// Reads the streams in the root folder of a compound file ([MS-CFB]) from memory.
///
/// The memory and time that it takes are limited by the size of the file, whatever the file contains. The library that
/// writes the container isn't safe for reading one: its stack grows with the depth of the file's directory. Keeps a
/// view of the file.
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
    /// Sets `stream` to the bytes of an existing stream. Most writers write a stream as one piece of the file; if it
    /// isn't one piece, its bytes are copied into `gathered`.
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

/// Writes a compound file with one stream in its root folder. The same stream always gives the same bytes.
///
///     CompoundWriter container("Workbook", file);
///     container.Write(piece);
///     return container.Close();
class CompoundWriter
{
public:
    /// `file` must outlive this object, which doesn't close it.
    CompoundWriter(const char *name, std::FILE *file);
    /// Appends to the stream.
    void Write(QByteArrayView piece);
    /// Completes the file. Call it only once. Also returns failures of earlier calls of Write.
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
