#include "SharedStrings.h"

#include "XlsxText.h"
#include "XmlPart.h"

namespace
{

enum Place
{
    LIST = XmlGrammar::DOCUMENT + 1,
    ITEM,
    RUN,
    TEXT,
};
// What sounds for the characters (rPh) isn't part of the text.
constexpr XmlStep STEPS[] = {
    {XmlGrammar::DOCUMENT, "sst", LIST}, {LIST, "si", ITEM}, {ITEM, "t", TEXT}, {ITEM, "r", RUN}, {RUN, "t", TEXT},
};
constexpr XmlGrammar GRAMMAR = {{SPREADSHEET_ML, STRICT_SPREADSHEET_ML}, STEPS, WorkbookFault::Broken};

class SharedStringsPart : public XmlPart
{
public:
    SharedStringsPart(TextBudget &granted, std::vector<QString> &result)
        : XmlPart(GRAMMAR), budget(granted), strings(result)
    {
    }

private:
    void Enter(int place, const XmlAttributes &) override
    {
        if (place == ITEM)
            joined.clear();
    }

    void Leave(int place, QByteArrayView content) override
    {
        if (place == TEXT) {
            joined += DecodeXlsxText(content);
        } else if (place == ITEM) {
            if (!budget.GrantCell() || !budget.GrantText(joined.size()))
                return Fail(WorkbookFault::TooLarge,
                            QStringLiteral("the shared strings take too much memory from %1 on").arg(strings.size()));
            strings.push_back(joined);
        }
    }

    TextBudget &budget;
    std::vector<QString> &strings;
    QString joined; // of the runs
};

} // namespace

WorkbookResult ReadSharedStrings(const ZipFile &zip, const QByteArray &part, TextBudget &budget,
                                 std::vector<QString> &strings)
{
    return SharedStringsPart(budget, strings).Read(zip, part);
}
