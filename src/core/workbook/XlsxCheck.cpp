// SPDX-License-Identifier: MIT
#include "XlsxCheck.h"

#include "ExpatParser.h"
#include "SharedStrings.h"
#include "XlsxPackage.h"
#include "XlsxText.h"
#include "XmlPart.h"
#include "ZipFile.h"

#include <QHash>

namespace
{

enum Place
{
    SHEET = XmlGrammar::DOCUMENT + 1,
    ROWS,
    ROW,
    CELL,
    INLINE,
    TEXT,
};
constexpr XmlStep STEPS[] = {
    {ROW, "c", CELL},   {CELL, "is", INLINE},       {INLINE, "t", TEXT},
    {ROWS, "row", ROW}, {SHEET, "sheetData", ROWS}, {XmlGrammar::DOCUMENT, "worksheet", SHEET},
};
constexpr XmlGrammar GRAMMAR = {{SPREADSHEET_ML, STRICT_SPREADSHEET_ML}, STEPS, WorkbookFault::Broken};

/// Sums up the cells of a sheet that has the texts in the cells. It doesn't decode the texts, so it takes half the time
/// of reading the sheet.
class SumPart : public XmlPart
{
public:
    SumPart() : XmlPart(GRAMMAR) {}

    CellSum found;

private:
    void Enter(int step, const XmlAttributes &attributes) override
    {
        if (step != CELL)
            return;
        const std::string_view name = attributes.Find("r").value_or(std::string_view());
        place.assign(name.data(), name.data() + name.size());
    }

    void Leave(int step, QByteArrayView text) override
    {
        if (step != TEXT)
            return;
        const QByteArrayView name(place.data(), qsizetype(place.size()));
        // The library has escaped control characters too, in addition to the escapes that it was given.
        if (text.contains('_'))
            found.Add(name, EncodeXlsxText(DecodeXlsxText(text)));
        else
            found.Add(name, text);
    }

    std::vector<char> place;
};

WorkbookResult Damaged(const QString &reason)
{
    return {WorkbookFault::Broken, reason};
}

/// Reads a part as XML to its end, because a part that was truncated before it was packed has the right checksum.
WorkbookResult CheckXml(const ZipFile &zip, const QByteArray &name)
{
    const ExpatParser parser;
    bool isXml = true;
    const auto parse = [&](QByteArrayView piece) {
        isXml = XML_Parse(parser, piece.data(), int(piece.size()), piece.isEmpty()) == XML_STATUS_OK;
        return isXml;
    };
    const WorkbookResult unpacked = zip.Read(name, parse);
    if (unpacked.HasFailed())
        return unpacked;
    if (!isXml || !parse({}))
        return Damaged(QString::fromUtf8(name) + QStringLiteral(" is incomplete"));
    return {};
}

} // namespace

void CellSum::Add(QByteArrayView place, QByteArrayView text)
{
    ++count;
    sum = qHashBits(place.data(), size_t(place.size()), sum);
    sum = qHashBits(text.data(), size_t(text.size()), sum);
}

WorkbookResult CheckXlsx(QByteArrayView file, const CellSum &written)
{
    ZipFile zip;
    XlsxParts parts;
    WorkbookResult result = zip.Open(file);
    if (!result.HasFailed())
        result = FindXlsxParts(zip, {}, parts);
    if (result.HasFailed())
        return result;
    for (const QByteArray &name : zip.Names()) {
        if (name == parts.worksheet.toLower())
            continue;
        result = CheckXml(zip, name);
        if (result.HasFailed())
            return result;
    }
    SumPart sheet;
    result = sheet.Read(zip, parts.worksheet);
    if (!result.HasFailed() && sheet.found != written)
        return Damaged(
            QStringLiteral("%1 has %2 cells but %3 were written, or one of its texts is not the one that was written")
                .arg(QString::fromUtf8(parts.worksheet))
                .arg(sheet.found.count)
                .arg(written.count));
    return result;
}
