// SPDX-License-Identifier: MIT
#pragma once

#include "ViewBoxes.h"

/// Answers questions with the given answers, and records the questions.
struct FakeBoxes : IViewBoxes
{
    bool Ask(const QString &with, const QString &question)
    {
        asked.append(with + question);
        return answers.takeFirst();
    }
    bool AskYesNo(const QString &question) override { return Ask(QStringLiteral("Yes/No: "), question); }
    bool AskOkCancel(const QString &question) override { return Ask(QStringLiteral("OK/Cancel: "), question); }
    Answer AskYesNoCancel(const QString &) override { return Answer::Cancel; }
    void ShowMessage(const QString &, std::function<void()>) override {}
    QStringList OpenFileDialog(const QString &filter, int selectedFilter, bool multiSelect, const QString &) override
    {
        asked.append(QStringLiteral("Open %1 %2: ").arg(selectedFilter).arg(int(multiSelect)) + filter);
        return files;
    }
    QString SaveFileDialog(const QString &, const QString &) override { return {}; }
    bool RunDialog(QDialog &) override { return false; }

    QStringList asked;
    QList<bool> answers;
    QStringList files; ///< the files chosen in a file dialog
};
