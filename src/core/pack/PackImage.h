// SPDX-License-Identifier: MIT
#pragma once

#include "PackFiles.h"
#include "PayloadLayout.h"

#include <memory>
#include <optional>
#include <variant>

/// The padding of an entry's data. The numbers in the directory are computed with that padding or without.
enum class EntryPadding
{
    None,
    FourBytes,
};

/// What one run of the construct phases gathers: the directory, the block, and their content in pieces, which are in
/// memory or in files. All entries come before the first item. Content is added to the entry or item that was added
/// last.
///
///     PackImage image(memory, EntryPadding::FourBytes);
///     image.AddEntry("AppLogo.img");
///     if (image.Fits(bytes.size())) { image.AddBytes(bytes); image.Pad(); }
///     image.BeginBlock(); ... image.EndBlock();
///     image.base = 0;
///     if (image.LayOut()) code = image.Write(env, output);
class PackImage
{
public:
    /// Empties `pieceMemory`, which this object uses but doesn't own.
    PackImage(PieceMemory &pieceMemory, EntryPadding entryPadding);

    std::vector<PackEntry> entries;
    std::vector<BlockItem> items;
    qint64 base = -1;  ///< the base of all offsets; the mode sets it before `LayOut`
    quint64 room = 0;  ///< bytes of files made by the pack that may be in memory
    QByteArray folder; ///< for a temporary file with the rest of them

    void AddEntry(const NarrowText &name);
    void BeginBlock(); ///< ends the directory
    void AddItem(quint32 key, ItemKind kind, const IDRecord *id = nullptr);
    void EndBlock(); ///< ends the table

    /// True if so many bytes can be added: the size of all data must fit in 32 bits.
    [[nodiscard]] bool Fits(quint64 size) const;
    // `Fits` must be true for the sizes of these.
    void AddBytes(QByteArrayView bytes); ///< not copied: they must live until the payload is written
    void AddPart(FilePart part);
    void Skip(quint64 size); ///< counts bytes of a payload that isn't written
    /// Adds uninitialised bytes and returns the place of the first; null if memory runs out or they don't fit.
    [[nodiscard]] char *Extend(quint64 size);
    /// Reads a file that may be deleted afterwards. Returns 0, PACK_MEMORY, or PACK_FILE_READ (errno has the reason; 0:
    /// it ended early).
    [[nodiscard]] int AddMade(const PackFile &file);
    /// Ends the content with zero bytes up to a multiple of 4, if it has such a padding. Returns false if they don't
    /// fit.
    [[nodiscard]] bool Pad();

    /// The size of all data so far, in bytes.
    [[nodiscard]] quint64 DataSize() const { return dataSize; }

    /// Puts the items, with their data, into ascending order of their keys. Items with equal keys keep their order, and
    /// the end of the table stays the end.
    void SortItems();
    /// Computes offsets and sizes. Returns false if they need more than 32 bits.
    [[nodiscard]] bool LayOut();
    /// The size of the payload in bytes, once it is laid out.
    [[nodiscard]] quint64 Total() const { return layout.Total(); }

    /// Looks whether all files can still be copied. Returns 0, or the code of a phase whose file has changed. To be
    /// called before an output is opened, which may not be able to keep its old content.
    [[nodiscard]] int CheckParts(const Environment &env) const;
    /// Writes the payload, after `LayOut`. Returns 0, PACK_WRITE, or the code of a phase whose file couldn't be read.
    [[nodiscard]] int Write(const Environment &env, OutputFile &output) const;

private:
    /// Bytes of the temporary file.
    struct Spilled
    {
        qint64 offset;
        qint64 size;
    };
    using Piece = std::variant<QByteArrayView, Spilled, std::unique_ptr<FilePart>>;

    [[nodiscard]] bool OpenSpill();
    [[nodiscard]] std::optional<int> Spill(const PackFile &file);
    [[nodiscard]] int WritePiece(const Environment &env, const Piece &piece, OutputFile &output) const;

    PieceMemory &memory;
    EntryPadding padding;
    quint64 dataSize = 0;
    std::vector<Piece> pieces;
    size_t entryPieces = 0; // the number of the entries' pieces, which are the first ones
    FileHandle spill;
    qint64 spilled = 0; // bytes
    PayloadLayout layout;
    QByteArray directory;
    QByteArray table;
};
