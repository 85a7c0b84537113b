#include "Phases.h"

#include <QtEndian>

#include <cstring>

namespace
{

constexpr quint64 RECORD = 8; // ID, offset

/// Builds the table of the strings as the last item of `image`, at its size exactly:
///
///   count (4)                           S + 1
///   records of ID (4), offset (4)       S in order, then 0xFFFFFFFF and the table's size; offsets count from the table
///   strings                             UTF-16, a zero unit, zero bytes up to a multiple of 4
///
/// 0 or a PackCode.
int BuildStringTable(const ResourceList &strings, PackImage &image)
{
    const quint64 head = 4 + RECORD * (quint64(strings.Count()) + 1);
    char *at = image.ExtendItem(head);
    if (!at)
        return PACK_STRING_TABLE;
    qToLittleEndian(quint32(strings.Count() + 1), at);

    quint64 record = 4;
    for (CBaseRes *res : strings) {
        if (!res->Id())
            return PACK_STRING_LIST;
        qToLittleEndian(res->Id()->value, image.ItemAt(record));
        qToLittleEndian(quint32(image.ItemSize()), image.ItemAt(record + 4));
        record += RECORD;

        const QString &text = static_cast<const CStringRes *>(res)->text;
        const quint64 units = quint64(text.size());
        const quint64 space = RoundUpTo4(2 * units + 2);
        char *place = image.ExtendItem(space);
        if (!place)
            return PACK_STRING_TABLE;
        qToLittleEndian<char16_t>(text.utf16(), qsizetype(units), place);
        std::memset(place + 2 * units, 0, size_t(space - 2 * units));
    }
    qToLittleEndian(quint32(0xFFFFFFFF), image.ItemAt(record));
    qToLittleEndian(quint32(image.ItemSize()), image.ItemAt(record + 4));
    return PACK_OK;
}

int AddLanguage(PackContext &context, qint32 language)
{
    Environment &env = context.Env();
    env.WriteOutput("\r\nLanguage ID: %d", language);
    if (language < 0) {
        env.WriteOutput("\r\n[error] Illegal language ID: %d.", language);
        return PACK_LANGUAGE_NUMBER;
    }
    context.image.AddItem(LANGUAGE_KEY | (quint32(language) & 0xFFFF), ITEM_STRINGS);
    static const ResourceList none;
    const CResFolder *folder = context.document.root.FindFolder(KIND_LANGUAGE, language, 2);
    const int code = BuildStringTable(folder ? folder->resources : none, context.image);
    if (code == PACK_STRING_TABLE)
        env.WriteOutput("\r\n[error] Construct string resource fail : language ID: %d.", language);
    return code;
}

} // namespace

int ConstructLanguages(PackContext &context)
{
    const CResFolder *strings = context.document.root.FindFolder(KIND_STRINGS, 2);
    if (!strings)
        return PACK_LANGUAGE_LIST;
    // The first is the column of descriptions.
    for (size_t n = 1; n < strings->subfolders.size(); ++n) {
        if (const int code = AddLanguage(context, strings->subfolders[n]->index))
            return code;
    }
    return PACK_OK;
}
