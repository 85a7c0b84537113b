// SPDX-License-Identifier: MIT
#include "FontRules.h"

#include "CResDoc.h"
#include "CheckInput.h"
#include "CodePoints.h"
#include "DeviceFont.h"
#include "RuleReport.h"
#include "TextContext.h"
#include "TextHash.h"
#include "TextLines.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr int MOST_NAMED = 20; // characters in a finding

/// Characters that have no glyph of their own: controls, joiners, marks of direction, selectors of variants.
bool NeedsNoGlyph(char32_t character)
{
    const QChar::Category category = QChar::category(character);
    const bool isSelector =
        (character >= 0xFE00 && character <= 0xFE0F) || (character >= 0xE0100 && character <= 0xE01EF);
    return category == QChar::Other_Control || category == QChar::Other_Format || isSelector;
}

QString Named(char32_t character)
{
    return u"%1 (%2)"_s.arg(CodePointName(character), QString::fromUcs4(&character, 1));
}

/// Looks for the characters that a font lacks, one language in each part.
class GlyphSearch final : public RuleInParts
{
public:
    bool Step(const CheckInput &input, RuleReport &report) override
    {
        const std::vector<CheckedLanguage> &languages = input.texts.Languages();
        while (next < languages.size() && !languages[next].font)
            ++next;
        if (next < languages.size())
            Look(languages[next++], input, report);
        return next < languages.size();
    }

private:
    static void Look(const CheckedLanguage &language, const CheckInput &input, RuleReport &report)
    {
        QStringList named;
        quint64 basis = 0;
        int count = 0;
        for (const char32_t character : CodePointsOf(input.document, language.number).All()) {
            if (NeedsNoGlyph(character) || language.font->Has(character))
                continue;
            if (++count <= MOST_NAMED)
                named.append(Named(character));
            basis = HashOf(CodePointName(character), basis);
        }
        if (count == 0)
            return;
        Finding finding;
        finding.file = input.settings.file;
        finding.line = language.fontLine;
        finding.language = language.number;
        finding.text = u"the font lacks %1: %2%3"_s.arg(count == 1 ? u"a character"_s : u"%1 characters"_s.arg(count),
                                                        named.join(u", "_s), count > MOST_NAMED ? u", ..."_s : u""_s);
        finding.basis = basis;
        report.Add(std::move(finding));
    }

    size_t next = 0; // place of the language
};

} // namespace

QString TextTooWide(const TextPair &pair, const TextContext & /*context*/)
{
    IDeviceFont *const font = pair.language.font;
    const int limit = font ? pair.limit.width : 0;
    if (limit == 0)
        return {};
    int widest = 0;
    ForEachLine(pair.text, [&](QStringView line) { widest = std::max(widest, font->WidthOf(line)); });
    if (widest <= limit)
        return {};
    return u"the text is %1 pixels wide, %2 more than its limit of %3"_s.arg(widest).arg(widest - limit).arg(limit);
}

std::unique_ptr<RuleInParts> BeginGlyphMissing()
{
    return std::make_unique<GlyphSearch>();
}
