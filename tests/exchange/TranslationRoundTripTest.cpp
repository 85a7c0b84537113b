// SPDX-License-Identifier: MIT
#include "CheckSettings.h"
#include "ExchangeLanguages.h"
#include "LanguageFolders.h"
#include "RowBuilder.h"
#include "StringFileFormat.h"
#include "StringProject.h"
#include "TranslationExport.h"
#include "TranslationFormats.h"
#include "TranslationImport.h"

#include <rapidcheck.h>

#include <map>

using namespace Qt::StringLiterals;

namespace
{

/// English, the source, first.
constexpr qint32 LANGUAGES[] = {0, 2, 77};
constexpr const char *NAMES[] = {"English", "Chinese", "Elvish"};

/// The texts of a table by ID and language.
using Texts = std::map<QString, std::map<qint32, QString>>;

QString AnyText()
{
    static const QStringList PIECES =
        u"a| |\"|\\|\\n|%s|é|中|\U0001F600|<b>|&lt;|]]>|\u2028|\u00A0|#~ |msgid|\uFEFF|'|\v|\x7F|{0}|max-length: 3|\uFFFE"_s
            .split(u'|') +
        QStringList{QString(QChar(0xD800)), QString(QChar(0))};
    QString text;
    for (int count = *rc::gen::elementOf(std::vector<int>{0, 1, 2, 5}); count > 0; --count)
        text += PIECES[*rc::gen::inRange<qsizetype>(0, PIECES.size())];
    return text;
}

struct TableProject : StringProject
{
    TableProject()
    {
        folder.Put("bin/tuvik.ini", "[Language]\nEnglish=0\nChinese=2\nElvish=77\n[Code]\n0=en\n2=zh-Hans\n");
    }

    void Fill(const Texts &all)
    {
        LanguageFolders made(*this);
        for (const auto &[id, texts] : all) {
            RowBuilder row(*this, id.toUtf8());
            row.Add(made.Ensure(StringFileFormat::DESCRIPTION, {}), texts.at(StringFileFormat::DESCRIPTION));
            for (size_t i = 0; i < std::size(LANGUAGES); ++i)
                row.Add(made.Ensure(LANGUAGES[i], QString::fromLatin1(NAMES[i])), texts.at(LANGUAGES[i]));
        }
    }

    /// The texts that aren't empty.
    [[nodiscard]] Texts All() const
    {
        Texts all;
        for (const auto &language : strings.subfolders) {
            for (CBaseRes *row = language->resources.First(); row; row = row->NextInFolder()) {
                if (const QStringView text = static_cast<CStringRes *>(row)->Text(); !text.isEmpty())
                    all[QString::fromUtf8(row->Id()->name)][language->index] = text.toString();
            }
        }
        return all;
    }

    [[nodiscard]] std::vector<ImportFile> Export(const TranslationFormat &format)
    {
        const CheckSettings settings;
        const ExchangeLanguages languages(*this, settings);
        TranslationExportJob job{&format, LANGUAGES[0], {}};
        std::vector<ImportFile> files;
        for (const qint32 language : {LANGUAGES[1], LANGUAGES[2]}) {
            const QString file = FileNameOf(languages.CodeOf(language), format);
            job.files.push_back({folder.Path(file.toUtf8()), language});
            files.push_back({folder.Path(file.toUtf8()), file});
        }
        EXPECT_EQ(ExportTranslations(*this, languages, settings, job), QString());
        return files;
    }

    /// Imports the files of a project that may be another one.
    [[nodiscard]] bool Import(const std::vector<ImportFile> &files)
    {
        const CheckSettings settings;
        const ExchangeLanguages languages(*this, settings);
        TranslationImport import(*this, languages, {});
        const bool isFine = import.Read(files);
        if (isFine)
            import.Plan().Apply();
        return isFine;
    }
};

/// Returns whether a format can have a text, by what `AnyText` makes.
bool CanHave(const QString &text, bool isXml)
{
    const bool isForNone = text.contains(QChar(0xD800)) || text.contains(QChar(0));
    return !isForNone && !(isXml && (text.contains(u'\v') || text.contains(u'\uFFFE')));
}

/// Returns what of a table can be exported. Counts what is left out.
Texts Exportable(const Texts &rows, bool isXml, int &warnings)
{
    Texts expected;
    bool lacksSource = false;
    for (const auto &[id, texts] : rows) {
        const QString &source = texts.at(LANGUAGES[0]);
        lacksSource |= source.isEmpty();
        warnings += !source.isEmpty() && !CanHave(source, isXml) ? 1 : 0;
        if (source.isEmpty() || !CanHave(source, isXml))
            continue;
        for (const auto &[language, text] : texts) {
            const bool isLost = language == StringFileFormat::DESCRIPTION && !isXml && text.startsWith(u"max-length:");
            if (isLost || !CanHave(text, isXml))
                ++warnings;
            else if (!text.isEmpty())
                expected[id][language] = text;
        }
    }
    warnings += lacksSource ? 1 : 0;
    return expected;
}

} // namespace

TEST(TranslationRoundTrip, AnyTableComesBackInEachFormatButForWhatTheReportSays)
{
    EXPECT_TRUE(rc::check([] {
        Texts rows;
        for (int row = *rc::gen::inRange(1, 8); row > 0; --row) {
            auto &texts = rows[u"ID_%1"_s.arg(row)];
            texts[StringFileFormat::DESCRIPTION] = AnyText();
            for (const qint32 language : LANGUAGES)
                texts[language] = AnyText();
        }
        for (const TranslationFormat &format : TranslationFormats()) {
            if (format.isTemplate)
                continue;
            TableProject project;
            project.Fill(rows);
            const Texts before = project.All();
            int warnings = 0;
            const Texts expected = Exportable(rows, !format.hasLocales, warnings);
            const auto files = project.Export(format);
            RC_ASSERT(project.env.WarningCount == warnings);
            RC_ASSERT(project.Import(files));
            RC_ASSERT(project.All() == before); // all are the same
            TableProject fresh;
            RC_ASSERT(fresh.Import(files));
            RC_ASSERT(fresh.env.WarningCount == 0);
            RC_ASSERT(fresh.All() == expected);
        }
    }));
}
