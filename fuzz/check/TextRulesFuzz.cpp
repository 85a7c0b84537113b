// SPDX-License-Identifier: MIT
// Two texts of any UTF-16 units, the first of them the source: every text rule ends and reads nothing beyond them.

#include "BenchModel.h"
#include "Rules.h"
#include "TextContext.h"
#include "TextFeatures.h"

#include <cstring>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

constexpr const char *CODES[] = {"", "zh-Hans", "el", "tr", "th", "hy", "de", "en-GB"};

struct Context
{
    BenchWorld world;
    CheckSettings settings;
    TextContext texts{world.model, settings};
};

} // namespace

/// The first byte chooses the language. Units follow; one of 0 ends the source text.
extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    static const Context context;
    if (size < 3)
        return 0;
    std::vector<char16_t> units((size - 1) / 2);
    std::memcpy(units.data(), data + 1, units.size() * 2);
    const QStringView all(units.data(), qsizetype(units.size()));
    const qsizetype end = qMax<qsizetype>(0, all.indexOf(QChar(u'\0')));
    const std::vector<char16_t> first(units.begin(), units.begin() + end); // so that reading behind it is found
    const QStringView source(first.data(), qsizetype(first.size()));
    const QStringView text = all.sliced(end);

    const CheckedLanguage english{0, u"English"_s, u"en"_s};
    const CheckedLanguage language{1, u"Other"_s, QString::fromLatin1(CODES[data[0] % std::size(CODES)])};
    const RowNotes notes;
    const TextLimit limit{.pattern = {}, .length = 5, .width = 0, .lines = 2};
    const TextPair pair{source, text, FeaturesOf(source), FeaturesOf(text), english, language, notes, limit};
    for (const Rule &rule : AllRules()) {
        if (rule.text && (rule.needs & (pair.sourceFeatures | pair.features)))
            (void)rule.text(pair, context.texts);
    }
    return 0;
}
