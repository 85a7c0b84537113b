// SPDX-License-Identifier: MIT
#include "FileCheck.h"

#include "FileCheckInput.h"
#include "RuleReport.h"
#include "Rules.h"
#include "SignalCleanup.h"

FileCheck::FileCheck(const CheckInput &input, std::shared_ptr<const CheckSettings> checkSettings,
                     std::function<void()> ended)
    : files(std::make_shared<FileSurvey>(input)), settings(std::move(checkSettings)), countAlpha(input.countAlpha),
      told(std::move(ended))
{
    files->ReadPositions();
    files->StopWhen(stop);
    if (!settings->sourceFiles.isEmpty()) {
        request = SourceRequestOf(input);
        request->stop = &stop;
    }
    const SignalHold hold;
    thread = std::thread([this] { Run(); });
}

FileCheck::~FileCheck()
{
    stop = true;
    Wait();
}

void FileCheck::Wait()
{
    if (thread.joinable())
        thread.join();
}

void FileCheck::Run()
{
    RuleReport report(*settings, [this](Finding &&finding) { findings.push_back(std::move(finding)); });
    for (const Rule &rule : AllRules()) {
        if (!stop && rule.files && report.Begin(rule))
            rule.files({*files, *settings, countAlpha}, report);
    }
    if (request && !stop)
        sources = ReadSources(*request);
    hasEnded = true;
    if (!stop)
        QMetaObject::invokeMethod(&receiver, told, Qt::QueuedConnection);
}
