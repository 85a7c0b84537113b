#pragma once

#include <QByteArray>
#include <QString>

/// Many texts in little memory: side by side in one block, each in Latin-1 or UTF-16 (little-endian), as .xls files
/// have them. A table from a workbook has so many that an allocation for each would be most of what reading it costs.
///
///     TextPool pool;
///     const TextPool::Ref ref = pool.Add(u"text");
///     pool.Text(ref)
class TextPool
{
public:
    /// Where a text lies. Good for this pool only.
    struct Ref
    {
        quint32 at = 0;
        quint32 isWide : 1 = 0;
        quint32 length : 31 = 0; ///< in characters; 0 is the empty text, of any pool

        [[nodiscard]] bool IsEmpty() const { return length == 0; }
        [[nodiscard]] quint32 Size() const { return quint32(length) << isWide; } ///< in bytes
    };
    static constexpr qsizetype MOST_BYTES = qsizetype(3) << 30; ///< who fills a pool sees to it

    /// Makes a whole file part of the pool, so that its texts needn't be copied. Once, before anything else.
    void Adopt(QByteArray bytes) { file = std::move(bytes); }
    /// A text that lies in the adopted file.
    [[nodiscard]] Ref InFile(QByteArrayView characters, bool isWide) const;

    Ref Add(QStringView text);
    /// Takes the text that was added last out again.
    void TakeBack(Ref last) { added.truncate(added.size() - last.Size()); }

    [[nodiscard]] QString Text(Ref ref) const;
    /// The characters of a text, good until the next one is added.
    [[nodiscard]] QByteArrayView Bytes(Ref ref) const;

private:
    QByteArray file;
    QByteArray added; // counted on from the end of the file
};
