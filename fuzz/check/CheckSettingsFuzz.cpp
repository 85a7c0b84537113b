// SPDX-License-Identifier: MIT
// Settings of a check, a baseline, a row's notes and a source of any bytes: every reading ends, each finding has a rule
// and a line of the file, and a baseline of the findings accepts all that baselines may accept.

#include "Baseline.h"
#include "CheckSettings.h"
#include "FuzzFolder.h"
#include "RowNotes.h"
#include "Rules.h"
#include "SourceScanner.h"

using namespace Qt::StringLiterals;

namespace
{

void Require(bool isTrue)
{
    if (!isTrue)
        std::abort();
}

void RequirePlaces(const std::vector<Finding> &findings, const QByteArray &bytes)
{
    for (const Finding &finding : findings) {
        Require(FindRule(QString::fromLatin1(finding.code)) && !finding.text.isEmpty());
        Require(finding.line >= 0 && finding.line <= bytes.count('\n') + bytes.count('\r') + 1);
    }
}

void ReadSource(const QByteArray &bytes)
{
    SourceScanner scanner(bytes);
    const char *last = bytes.constData();
    for (SourceName name; scanner.Next(name);) {
        Require(name.text.data() >= last && name.text.end() <= bytes.constData() + bytes.size());
        Require(!name.before.contains('\n') && name.line <= bytes.count('\n') + 1);
        last = name.text.end();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    static const FuzzFolder folder;
    folder.Put("morvanite-check.ini", bytes);
    std::vector<Finding> findings;
    const CheckSettings settings = ReadCheckSettings(folder.Path(""), findings);
    RequirePlaces(findings, bytes);
    for (const Rule &rule : AllRules())
        (void)settings.Ignores(rule, u"ID_DEBUG_PAGE"_s);
    (void)NotesOf(QString::fromUtf8(bytes)).Ignores(u"id-case");
    ReadSource(bytes);

    std::vector<Finding> left;
    Baseline baseline;
    baseline.Parse(bytes, u"/base"_s, left);
    RequirePlaces(left, bytes);
    std::vector<Finding> known;
    baseline.Apply(left, known, u"/"_s);
    Require(known.empty()); // there are only findings about the baseline

    left = {{.code = "id-case", .id = QString::fromUtf8(bytes.left(32))}};
    const QByteArray written = Baseline::Bytes(left, u"/"_s);
    Baseline again;
    again.Parse(written, u"/base"_s, left);
    again.Apply(left, known, u"/"_s);
    Require(left.empty() && known.size() == 1);
    return 0;
}
