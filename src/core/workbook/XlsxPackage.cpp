// SPDX-License-Identifier: MIT
#include "XlsxPackage.h"

#include "Relationships.h"
#include "SharedStrings.h"
#include "SheetChooser.h"
#include "XmlPart.h"
#include "ZipFile.h"

#include <algorithm>

namespace
{

constexpr size_t MOST_SHEETS = 65'536;

enum Place
{
    WORKBOOK = XmlGrammar::DOCUMENT + 1,
    PROPERTIES,
    SHEETS,
    SHEET,
};
constexpr XmlStep STEPS[] = {{XmlGrammar::DOCUMENT, "workbook", WORKBOOK},
                             {WORKBOOK, "workbookPr", PROPERTIES},
                             {WORKBOOK, "sheets", SHEETS},
                             {SHEETS, "sheet", SHEET}};
constexpr XmlGrammar GRAMMAR = {{SPREADSHEET_ML, STRICT_SPREADSHEET_ML}, STEPS, WorkbookFault::NoWorkbook};

struct ListedSheet
{
    QByteArray id; // of its relationship
    QString name;
};

/// Lists the sheets of the workbook, in their order.
class WorkbookPart : public XmlPart
{
public:
    explicit WorkbookPart(std::vector<ListedSheet> &result) : XmlPart(GRAMMAR), sheets(result) {}
    bool datesFrom1904 = false;

private:
    void Enter(int place, const XmlAttributes &attributes) override
    {
        if (place == PROPERTIES) {
            const std::string_view from1904 = attributes.Find("date1904").value_or("0");
            datesFrom1904 = from1904 == "1" || from1904 == "true";
        }
        if (place != SHEET)
            return;
        if (sheets.size() == MOST_SHEETS)
            return Fail(WorkbookFault::TooLarge, QStringLiteral("more than %1 sheets").arg(MOST_SHEETS));
        for (const std::string_view name : {"http://schemas.openxmlformats.org/officeDocument/2006/relationships\nid",
                                            "http://purl.oclc.org/ooxml/officeDocument/relationships\nid"}) {
            if (const auto id = attributes.Find(name))
                return sheets.push_back({Bytes(*id).toByteArray(), Name(attributes)});
        }
        Fail(WorkbookFault::Broken, QStringLiteral("sheet %1 does not name a part").arg(sheets.size() + 1));
    }

    void Leave(int, QByteArrayView) override {}

    static QByteArrayView Bytes(std::string_view view) { return {view.data(), qsizetype(view.size())}; }

    static QString Name(const XmlAttributes &attributes)
    {
        constexpr qsizetype LONGEST_NAME = 31; // of a sheet
        return QString::fromUtf8(Bytes(attributes.Find("name").value_or(std::string_view()))).left(LONGEST_NAME);
    }

    std::vector<ListedSheet> &sheets;
};

/// Finds the wanted one of the sheets with cells. A sheet can also be a chart.
WorkbookResult FindWorksheet(const std::vector<ListedSheet> &sheets, const std::vector<Relationship> &relationships,
                             const QString &wanted, XlsxParts &parts)
{
    SheetChooser chooser(wanted);
    for (const auto &[id, name] : sheets) {
        const auto found = std::find_if(relationships.begin(), relationships.end(),
                                        [&id = id](const Relationship &item) { return item.id == id; });
        if (found == relationships.end())
            return {WorkbookFault::Broken, QStringLiteral("the relationship %1 is missing").arg(QString::fromUtf8(id))};
        if (found->kind == "worksheet" && chooser.Take(name)) {
            parts.worksheet = found->target;
            parts.sheetName = name;
        }
        if (chooser.IsSure())
            break;
    }
    return chooser.HasChosen() ? WorkbookResult() : chooser.None();
}

} // namespace

WorkbookResult FindXlsxParts(const ZipFile &zip, const QString &wanted, XlsxParts &parts)
{
    std::vector<Relationship> relationships;
    if (!zip.Has("_rels/.rels"))
        return {WorkbookFault::NoWorkbook, QStringLiteral("_rels/.rels is missing")};
    WorkbookResult result = ReadRelationships(zip, {}, relationships);
    if (result.HasFailed())
        return result;
    const Relationship *const document = FindByKind(relationships, "officeDocument");
    if (!document)
        return {WorkbookFault::NoWorkbook, QStringLiteral("it has no workbook part")};
    const QByteArray workbook = document->target;

    std::vector<ListedSheet> sheets;
    WorkbookPart list(sheets);
    result = list.Read(zip, workbook);
    parts.datesFrom1904 = list.datesFrom1904;
    if (result.HasFailed())
        return result;
    relationships.clear();
    result = ReadRelationships(zip, workbook, relationships);
    if (result.HasFailed())
        return result;
    if (const Relationship *const shared = FindByKind(relationships, "sharedStrings"))
        parts.sharedStrings = shared->target;
    return FindWorksheet(sheets, relationships, wanted, parts);
}
