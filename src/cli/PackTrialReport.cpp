// SPDX-License-Identifier: MIT
#include "PackTrialReport.h"

#include "Paths.h"
#include "Session.h"

using namespace Qt::StringLiterals;

namespace
{

QString Row(quint64 bytes, const QString &count, const QString &name)
{
    return u"%1  %2  %3\n"_s.arg(bytes, 12).arg(count, 9).arg(name);
}

QString SizeTable(const PackTrial &trial, const QString &output)
{
    QString text = u"%1  %2\n"_s.arg(u"bytes"_s, 12).arg(u"resources"_s, 9);
    quint64 rest = trial.payload;
    for (const auto &[name, count, bytes] : trial.parts) {
        text += Row(bytes, QString::number(count), QLatin1StringView(name));
        rest -= bytes;
    }
    text += Row(rest, {}, u"directory and table"_s);
    text += Row(trial.payload, {}, u"payload"_s);
    if (trial.output > 0)
        text += Row(trial.output, {}, FileName(output));
    return text;
}

} // namespace

void ReportTrial(Session &session, const PackTrial &trial, const QString &output)
{
    if (trial.isExact)
        session.report.Print(SizeTable(trial, output));
    session.report.Flush();
    for (const QString &remark : trial.remarks)
        Complain(remark);
    for (const auto &[code, about, text] : trial.faults)
        Complain(QString::number(code) + u": "_s + (text.contains(about) ? QString() : about + u": "_s) + text);
    if (!trial.faults.empty())
        Complain(u"the pack would fail; faults: %1"_s.arg(trial.faults.size()));
    if (!trial.isExact)
        Complain(u"the sizes are unknown until the resources are correct"_s);
}
