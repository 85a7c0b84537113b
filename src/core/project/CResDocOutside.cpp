// How a document takes in what other programs change in its files.

#include "CResDoc.h"
#include "Environment.h"

#include <utility>

bool CResDoc::CanBeLoaded() const
{
    // What the attempt has to say is only of interest when it fails.
    QString report;
    QStringList explained;
    const auto output = std::exchange(env.output, [&](QStringView text) { report += text; });
    const auto explain = std::exchange(env.explain, [&](const QString &text) { explained.append(text); });
    bool isLoaded = true;
    try {
        CFrameServices nobody;
        CResDoc attempt(env, tables, nobody);
        attempt.m_strPathName = m_strPathName;
        attempt.Serialize(true);
    } catch (const ArchiveException &) {
        isLoaded = false;
    }
    env.output = output;
    env.explain = explain;
    env.ResetCounts();
    if (!isLoaded && env.output)
        env.output(report);
    for (const QString &text : isLoaded ? QStringList() : explained)
        env.Explain(text);
    return isLoaded;
}

CResDoc::Outside CResDoc::TakeInChanges()
{
    const FileStamps::Changes changes = stamps.Since();
    if (changes.files.isEmpty())
        return Outside::None;
    unreadable = false;
    const QString files = changes.files.join(QStringLiteral(", "));
    if (IsModified() || !changes.vanished.isEmpty()) {
        env.Explain(changes.vanished.isEmpty()
                        ? QStringLiteral("Another program has changed %1; what is open here has changes that aren't "
                                         "saved, so that was not taken in")
                              .arg(files)
                        : QStringLiteral("Another program has removed %1; the project stays open as it was")
                              .arg(changes.vanished.join(QStringLiteral(", "))));
        keepOnSave.Require(QStringLiteral("Another program has changed %1 since it was opened here.").arg(files));
        return Outside::LeftOut;
    }
    if (!CanBeLoaded()) {
        unreadable = true;
        env.Explain(
            QStringLiteral("Another program has changed %1, and the project can't be read any more").arg(files));
        return Outside::Unreadable;
    }
    try {
        env.ResetCounts();
        ReloadResources();
    } catch (const ArchiveException &) {
        return Outside::Unreadable;
    }
    return Outside::TakenIn;
}
