// SPDX-License-Identifier: MIT
#include "FileRules.h"

#include "CResDoc.h"
#include "HostFiles.h"
#include "ListLines.h"
#include "Paths.h"
#include "PayloadLayout.h"
#include "RuleReport.h"
#include "V1ResourceList.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace
{

constexpr qint64 LARGEST_LIST = 64 << 20; // bytes

/// Checks one list of files beside a project.
class ListCheck
{
public:
    ListCheck(const CheckInput &checkInput, RuleReport &ruleReport, QString list)
        : env(checkInput.document.env), report(ruleReport), file(std::move(list)), folder(DirectoryOf(file))
    {
    }

    /// With `areNamed`, the device finds the files by their names, so no name may occur twice.
    void Check(bool areNamed)
    {
        QByteArray bytes;
        if (!PathExists(file) || ReadFile(file, bytes, LARGEST_LIST) != 0)
            return;
        QHash<NarrowText, int> firstLines; // by the name on the device
        const NarrowText icon = env.WideToNarrow(env.settings.String("Application", "app_icon", "AppLogo.img"));
        int cutLine = 0;
        for (ListLines lines(bytes); lines.Next();) {
            const int number = lines.Number();
            if (number == cutLine)
                continue; // the rest of a line that is too long
            if (lines.IsCut()) {
                cutLine = number;
                Add(number, u"the line has more than %1 bytes, and the rest is read as the next line"_s.arg(
                                ListLines::LONGEST));
                continue;
            }
            const QString stored = env.NarrowToWide(lines.Text());
            const QString path = ResolvePath(stored, folder);
            if (!disk.Exists(path)) {
                Add(number, u"the file %1 doesn't exist, so a pack leaves it out"_s.arg(stored));
                continue;
            }
            if (!areNamed)
                continue;
            const NarrowText name = env.WideToNarrow(FileName(stored));
            const int first = firstLines.value(name, 0);
            if (first > 0)
                Add(number, u"the file name %2 is also in line %1; the device finds only one of them"_s.arg(first).arg(
                                FileName(stored)));
            else if (name == BLOCK_NAME || name == icon)
                Add(number, u"the name %1 is reserved for a part of the payload"_s.arg(FileName(stored)));
            else
                firstLines.insert(name, number);
        }
    }

private:
    void Add(int line, const QString &text)
    {
        Finding finding;
        finding.file = file;
        finding.line = line;
        finding.text = text;
        report.Add(std::move(finding));
    }

    const Environment &env;
    RuleReport &report;
    QString file;
    QString folder;
    HostPaths disk;
};

} // namespace

void ListLine(const CheckInput &input, RuleReport &report)
{
    const QString project = input.document.PathName();
    ListCheck(input, report, DirectoryOf(project) + u"/preview.lst"_s).Check(false);
    ListCheck(input, report, V1ListPath(project)).Check(true);
}
