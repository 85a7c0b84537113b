// SPDX-License-Identifier: MIT
// Three versions of a string file or of a resource list. The first byte selects the encoding, and the next two where
// the rest is cut into three. Aborts if a merged file can't be merged again, a side without changes has an effect, or
// the result depends on which side is ours, or both versions of a file that can't be merged have no markers.
#include "Environment.h"
#include "Merge.h"

#include <cstdlib>

namespace
{

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// A byte of the input is a character of a UTF-16 file, or a byte of a UTF-8 file.
QByteArray File(QByteArrayView bytes, bool isUtf16)
{
    if (!isUtf16 || bytes.isEmpty())
        return bytes.toByteArray();
    const QString text = u'\xFEFF' + QString::fromLatin1(bytes);
    return {reinterpret_cast<const char *>(text.utf16()), text.size() * 2};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static Environment env(QStringLiteral("/nonexistent"));
    if (size < 3 || size > 64 * 1024)
        return 0;
    const QByteArrayView rest(reinterpret_cast<const char *>(data + 3), qsizetype(size - 3));
    const qsizetype first = rest.size() * std::min(data[1], data[2]) / 255;
    const qsizetype second = rest.size() * std::max(data[1], data[2]) / 255;
    const std::array<QByteArray, MERGE_SIDES> files{File(rest.first(first), data[0] & 1),
                                                    File(rest.sliced(first, second - first), data[0] & 2),
                                                    File(rest.sliced(second), data[0] & 4)};
    const auto merge = [](const QByteArray &base, const QByteArray &ours, const QByteArray &theirs,
                          OnConflict conflict) {
        return MergeFiles(env, {base, ours, theirs}, conflict);
    };
    const MergeResult marked = merge(files[BASE], files[OURS], files[THEIRS], OnConflict::Mark);
    if (!marked.refusal.isEmpty()) { // both versions, if there are any, are a conflict that no merge takes for a text
        Require(marked.bytes.isEmpty() ||
                !merge(marked.bytes, marked.bytes, marked.bytes, OnConflict::KeepBase).refusal.isEmpty());
        return 0;
    }
    const MergeResult mirrored = merge(files[BASE], files[THEIRS], files[OURS], OnConflict::Mark);
    Require(!mirrored.refusal.isEmpty() || mirrored.conflicts.size() == marked.conflicts.size());
    const MergeResult clean = merge(files[BASE], files[OURS], files[THEIRS], OnConflict::KeepBase);
    Require(clean.refusal.isEmpty() && clean.conflicts.isEmpty());
    for (const QByteArray *file : {&clean.bytes, &files[OURS]}) {
        const MergeResult same = merge(*file, *file, *file, OnConflict::Mark);
        Require(same.refusal.isEmpty() && same.conflicts.isEmpty() &&
                merge(same.bytes, same.bytes, same.bytes, OnConflict::Mark).bytes == same.bytes);
        const MergeResult taken = merge(*file, *file, files[THEIRS], OnConflict::Mark);
        Require(taken.conflicts.isEmpty());
    }
    return 0;
}
