#include "XlsxPackage.h"

#include "Relationships.h"
#include "SharedStrings.h"
#include "XmlPart.h"
#include "ZipFile.h"

#include <algorithm>

namespace
{

constexpr size_t MOST_SHEETS = 65'536;

enum Place
{
    WORKBOOK = XmlGrammar::DOCUMENT + 1,
    SHEETS,
    SHEET,
};
constexpr XmlStep STEPS[] = {
    {XmlGrammar::DOCUMENT, "workbook", WORKBOOK}, {WORKBOOK, "sheets", SHEETS}, {SHEETS, "sheet", SHEET}};
constexpr XmlGrammar GRAMMAR = {{SPREADSHEET_ML, STRICT_SPREADSHEET_ML}, STEPS, WorkbookFault::NoWorkbook};

/// Lists the sheets of the workbook, in their order, by the IDs of their relationships.
class WorkbookPart : public XmlPart
{
public:
    explicit WorkbookPart(std::vector<QByteArray> &result) : XmlPart(GRAMMAR), sheets(result) {}

private:
    void Enter(int place, const XmlAttributes &attributes) override
    {
        if (place != SHEET)
            return;
        if (sheets.size() == MOST_SHEETS)
            return Fail(WorkbookFault::TooLarge, QStringLiteral("more than %1 sheets").arg(MOST_SHEETS));
        for (const std::string_view name : {"http://schemas.openxmlformats.org/officeDocument/2006/relationships\nid",
                                            "http://purl.oclc.org/ooxml/officeDocument/relationships\nid"}) {
            if (const auto id = attributes.Find(name))
                return sheets.emplace_back(id->data(), qsizetype(id->size())), void();
        }
        Fail(WorkbookFault::Broken, QStringLiteral("sheet %1 names no part").arg(sheets.size() + 1));
    }

    void Leave(int, QByteArrayView) override {}

    std::vector<QByteArray> &sheets;
};

/// Finds the first sheet that has cells; a chart can be a sheet too.
WorkbookResult FindWorksheet(const std::vector<QByteArray> &sheets, const std::vector<Relationship> &relationships,
                             QByteArray &part)
{
    for (const QByteArray &id : sheets) {
        const auto found = std::find_if(relationships.begin(), relationships.end(),
                                        [&id](const Relationship &item) { return item.id == id; });
        if (found == relationships.end())
            return {WorkbookFault::Broken, QStringLiteral("the relationship %1 is missing").arg(QString::fromUtf8(id))};
        if (found->kind == "worksheet") {
            part = found->target;
            return {};
        }
    }
    return {WorkbookFault::Broken, QStringLiteral("it has no worksheet")};
}

} // namespace

WorkbookResult FindXlsxParts(const ZipFile &zip, XlsxParts &parts)
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

    std::vector<QByteArray> sheets;
    result = WorkbookPart(sheets).Read(zip, workbook);
    if (result.HasFailed())
        return result;
    relationships.clear();
    result = ReadRelationships(zip, workbook, relationships);
    if (result.HasFailed())
        return result;
    if (const Relationship *const shared = FindByKind(relationships, "sharedStrings"))
        parts.sharedStrings = shared->target;
    return FindWorksheet(sheets, relationships, parts.worksheet);
}
