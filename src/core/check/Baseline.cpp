// SPDX-License-Identifier: MIT
#include "Baseline.h"

#include "Paths.h"
#include "Rules.h"
#include "TextHash.h"

#include <QDir>
#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int FIELDS = 4;
constexpr int HASH_DIGITS = 16;

bool IsFingerprint(const QByteArray &line)
{
    const QList<QByteArray> fields = line.split('\t');
    if (fields.size() != FIELDS || fields.back().size() != HASH_DIGITS)
        return false;
    bool isHash = false;
    (void)fields.back().toULongLong(&isHash, 16);
    return isHash && FindRule(QString::fromUtf8(fields.front()));
}

/// Returns a file's path relative to the project's folder. A file outside of it, such as one of the program's settings,
/// isn't in the same place on all machines, so only its name counts.
QString PathInProject(const QString &file, const QString &folder)
{
    const QString relative = QDir(folder).relativeFilePath(file);
    return relative.startsWith(u"../"_s) ? FileName(relative) : relative;
}

/// A baseline doesn't accept findings about itself or about the settings of the check.
bool CanBeAccepted(const Finding &finding)
{
    const Rule *const rule = FindRule(QString::fromLatin1(finding.code));
    return rule && rule->group != RuleGroup::Check;
}

} // namespace

QByteArray FingerprintOf(const Finding &finding, const QString &folder)
{
    const quint64 hash =
        finding.basis != 0 ? finding.basis : HashOf(finding.text, HashOf(PathInProject(finding.file, folder)));
    const QByteArray digits = QByteArray::number(hash, 16).rightJustified(HASH_DIGITS, '0');
    QString id = finding.id;
    for (QChar &c : id) {
        if (c.unicode() < 0x20)
            c = u' '; // a tab or a line end would end the field
    }
    const QByteArray language = finding.language < 0 ? QByteArray() : QByteArray::number(finding.language);
    return QByteArray(finding.code) + '\t' + id.toUtf8() + '\t' + language + '\t' + digits;
}

void Baseline::Parse(const QByteArray &bytes, const QString &file, std::vector<Finding> &findings)
{
    path = file;
    int number = 0;
    for (QByteArray line : bytes.split('\n')) {
        ++number;
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        if (IsFingerprint(line))
            lines.push_back({line, number});
        else
            findings.push_back({"baseline-line",
                                Severity::Error,
                                file,
                                number,
                                {},
                                u"the line isn't a rule, an ID, a language and a hash with tabs between them"_s});
    }
}

void Baseline::Apply(std::vector<Finding> &findings, std::vector<Finding> &known, const QString &folder) const
{
    QHash<QByteArray, QList<int>> unused; // the lines with each fingerprint, the first at the end
    for (auto line = lines.rbegin(); line != lines.rend(); ++line)
        unused[line->fingerprint].append(line->number);
    std::vector<Finding> left;
    for (Finding &finding : findings) {
        const auto found = CanBeAccepted(finding) ? unused.find(FingerprintOf(finding, folder)) : unused.end();
        if (found != unused.end() && !found->isEmpty()) {
            found->removeLast();
            known.push_back(std::move(finding));
        } else {
            left.push_back(std::move(finding));
        }
    }
    for (const Line &line : lines) {
        if (unused[line.fingerprint].contains(line.number))
            left.push_back({"baseline-stale",
                            Severity::Note,
                            path,
                            line.number,
                            {},
                            u"there is no such finding any more: delete the line"_s});
    }
    findings = std::move(left);
}

QByteArray Baseline::Bytes(const std::vector<Finding> &findings, const QString &folder)
{
    QList<QByteArray> fingerprints;
    for (const Finding &finding : findings) {
        if (CanBeAccepted(finding))
            fingerprints.append(FingerprintOf(finding, folder));
    }
    std::sort(fingerprints.begin(), fingerprints.end());
    QByteArray bytes;
    for (const QByteArray &fingerprint : fingerprints)
        bytes += fingerprint + '\n';
    return bytes;
}
