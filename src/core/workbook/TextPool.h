// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Stores many texts in little memory: one after the other in one block, each in Latin-1 or UTF-16 (little-endian), as
/// in .xls files. A workbook has so many texts that an allocation for each would take most of the time of reading it.
///
///     TextPool pool;
///     const TextPool::Ref ref = pool.Add(u"text");
///     pool.Text(ref)
class TextPool
{
public:
    /// The position of a text. Valid for this pool only.
    struct Ref
    {
        quint32 at = 0;
        quint32 isWide : 1 = 0;
        quint32 length : 31 = 0; ///< in characters; 0 is the empty text, in any pool

        [[nodiscard]] bool IsEmpty() const { return length == 0; }
        [[nodiscard]] quint32 Size() const { return quint32(length) << isWide; } ///< in bytes
    };
    static constexpr qsizetype MOST_BYTES = qsizetype(3) << 30; ///< the caller must keep this limit

    /// Makes a whole file part of the pool, so that its texts needn't be copied. Call it once, before all other
    /// functions.
    void Adopt(QByteArray bytes) { file = std::move(bytes); }
    /// Returns the reference to a text in the adopted file.
    [[nodiscard]] Ref InFile(QByteArrayView characters, bool isWide) const;

    Ref Add(QStringView text);
    /// Removes the text that was added last.
    void TakeBack(Ref last) { added.truncate(added.size() - last.Size()); }

    /// Adds a text whose characters are all Latin-1.
    Ref AddLatin1(QByteArrayView characters);

    [[nodiscard]] QString Text(Ref ref) const;
    /// Returns whether a text of the pool is `text`. Faster than `Text`.
    [[nodiscard]] bool IsText(Ref ref, QStringView text) const;
    /// Returns the characters of a text. They are valid until the next text is added.
    [[nodiscard]] QByteArrayView Bytes(Ref ref) const;

private:
    QByteArray file;
    QByteArray added; // its positions continue those of the file
};
