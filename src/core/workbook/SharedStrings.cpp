// SPDX-License-Identifier: MIT
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
// The phonetic text for the characters (rPh) isn't part of the text.
constexpr XmlStep STEPS[] = {
    {XmlGrammar::DOCUMENT, "sst", LIST}, {LIST, "si", ITEM}, {ITEM, "t", TEXT}, {ITEM, "r", RUN}, {RUN, "t", TEXT},
};
constexpr XmlGrammar GRAMMAR = {{SPREADSHEET_ML, STRICT_SPREADSHEET_ML}, STEPS, WorkbookFault::Broken};

class SharedStringsPart : public XmlPart
{
public:
    SharedStringsPart(TextBudget &granted, TextPool &pool, std::vector<TextPool::Ref> &result)
        : XmlPart(GRAMMAR), budget(granted), texts(pool), strings(result)
    {
    }

private:
    void Enter(int, const XmlAttributes &) override {}

    void Leave(int place, QByteArrayView content) override
    {
        if (place == TEXT) {
            const QString run = DecodeXlsxText(content);
            if (!budget.GrantText(run.size()))
                return FailAtString();
            joined += run;
        } else if (place == ITEM) {
            if (!budget.GrantCell())
                return FailAtString();
            strings.push_back(texts.Add(joined));
            joined.resize(0);
        }
    }

    void FailAtString()
    {
        Fail(WorkbookFault::TooLarge,
             QStringLiteral("the shared strings take too much memory, beginning with string %1").arg(strings.size()));
    }

    TextBudget &budget;
    TextPool &texts;
    std::vector<TextPool::Ref> &strings;
    QString joined; // the text of the runs
};

} // namespace

WorkbookResult ReadSharedStrings(const ZipFile &zip, const QByteArray &part, TextBudget &budget, TextPool &texts,
                                 std::vector<TextPool::Ref> &strings)
{
    return SharedStringsPart(budget, texts, strings).Read(zip, part);
}
