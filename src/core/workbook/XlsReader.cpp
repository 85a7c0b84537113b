// SPDX-License-Identifier: MIT
#include "Biff.h"
#include "BiffReader.h"
#include "ByteReader.h"
#include "CompoundFile.h"
#include "Formats.h"
#include "SheetChooser.h"
#include "XlsFault.h"
#include "XlsSheetReader.h"

#include <QtEndian>

#include <algorithm>

namespace
{

constexpr int SHEET_IS_WORKSHEET = 0;
constexpr qsizetype NAME_AT = 6; // in BOUNDSHEET

/// Reads a name that begins with its number of characters in one byte. Reads as much of it as there is, because the
/// name is only shown.
QString SheetName(QByteArrayView field)
{
    if (field.size() < 2)
        return {};
    const QByteArrayView characters = field.sliced(2);
    const qsizetype length = quint8(field[0]);
    if (!(quint8(field[1]) & TEXT_WIDE))
        return QString::fromLatin1(characters.first(std::min(length, characters.size())));
    QString name(std::min(length, characters.size() / 2), Qt::Uninitialized);
    qFromLittleEndian<char16_t>(characters.data(), name.size(), name.data());
    return name;
}

/// Reads a workbook's stream: first the globals, which are valid for all sheets, then the wanted worksheet. One object
/// for each reading.
class XlsParser
{
public:
    XlsParser(QByteArrayView view, Sheet &result) : stream(view), records(view), sheet(result), chooser(result.wanted)
    {
    }

    [[nodiscard]] WorkbookResult Parse();

private:
    using Record = BiffReader::Record;

    [[nodiscard]] WorkbookResult ReadGlobals();
    [[nodiscard]] WorkbookResult ReadGlobal(const Record &record);
    [[nodiscard]] WorkbookResult ReadBoundSheet(const Record &record);
    [[nodiscard]] WorkbookResult ReadTexts(BiffCursor data);

    QByteArrayView stream;
    BiffReader records;
    Sheet &sheet;
    SheetChooser chooser;
    std::vector<TextPool::Ref> texts; // that cells share
    std::optional<quint32> sheetAt;
};

WorkbookResult XlsParser::Parse()
{
    if (const WorkbookResult wrong = ReadGlobals(); wrong.HasFailed())
        return wrong;
    if (!sheetAt)
        return sheet.wanted.isEmpty() ? NoXls(QStringLiteral("it has no worksheet")) : chooser.None();
    return XlsSheetReader(stream, *sheetAt, texts, sheet).Read();
}

WorkbookResult XlsParser::ReadGlobals()
{
    if (const WorkbookResult wrong = records.ReadBegin(BOF_GLOBALS); wrong.HasFailed())
        return wrong;
    for (;;) {
        const auto record = records.Next();
        if (!record)
            return records.CutOff();
        if (record->type == BIFF_EOF)
            return {};
        if (const WorkbookResult wrong = ReadGlobal(*record); wrong.HasFailed())
            return wrong;
    }
}

WorkbookResult XlsParser::ReadGlobal(const Record &record)
{
    switch (record.type) {
    case BIFF_FILEPASS:
        return NoXls(QStringLiteral("it is protected by a password"));
    case BIFF_BOUNDSHEET:
        return ReadBoundSheet(record);
    case BIFF_SST:
        return ReadTexts(records.WithContinued(record));
    default:
        return {};
    }
}

WorkbookResult XlsParser::ReadBoundSheet(const Record &record)
{
    const auto at = ByteReader(record.data).U32(0);
    const auto flags = ByteReader(record.data).U16(4); // whether the sheet is hidden, and its kind
    if (!at || !flags)
        return TooShort(record);
    if (chooser.IsSure() || *flags >> 8 != SHEET_IS_WORKSHEET)
        return {};
    if (const QString name = SheetName(record.data.sliced(NAME_AT)); chooser.Take(name)) {
        sheetAt = at;
        sheet.name = name;
    }
    return {};
}

WorkbookResult XlsParser::ReadTexts(BiffCursor data)
{
    const bool hasTotal = data.U32().has_value(); // the number of uses of the texts
    const auto count = data.U32();
    if (!hasTotal || !count)
        return BrokenXls(QStringLiteral("the table of texts has no count"));
    texts.clear();
    for (quint32 i = 0; i < *count; ++i) {
        if (sheet.IsStopped())
            return {WorkbookFault::Stopped, {}};
        const auto text = data.Text(sheet.texts);
        if (!text)
            return BrokenXls(QStringLiteral("the table of texts ends within text %1 of %2").arg(i + 1).arg(*count));
        texts.push_back(*text);
    }
    return {};
}

} // namespace

WorkbookResult ReadXls(const QByteArray &file, Sheet &sheet)
{
    CompoundReader container;
    if (const WorkbookResult wrong = container.Open(file); wrong.HasFailed())
        return wrong;
    if (!container.Has(u"Workbook") && container.Has(u"Book"))
        return NoXls(QStringLiteral("its format is that of Excel 5.0 or 95, which is older than Excel 97"));
    QByteArrayView stream;
    QByteArray gathered;
    if (const WorkbookResult wrong = container.Read(u"Workbook", stream, gathered); wrong.HasFailed())
        return wrong;
    sheet.texts.Adopt(gathered.isEmpty() ? file : gathered);
    return XlsParser(stream, sheet).Parse();
}
