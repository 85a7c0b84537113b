// SPDX-License-Identifier: MIT
#pragma once

#include "CheckInput.h"
#include "FileSurvey.h"
#include "SourceNames.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <thread>

/// Runs the rules about files and reads the application's sources in a thread of its own, because both can take
/// seconds. The document may be edited meanwhile. Main thread only.
class FileCheck
{
public:
    /// Takes from the project what the thread needs, and starts the thread. `ended` is called by the event loop of this
    /// thread.
    FileCheck(const CheckInput &input, std::shared_ptr<const CheckSettings> checkSettings, std::function<void()> ended);
    /// Stops the thread. Waits until it has read the present file.
    ~FileCheck();
    FileCheck(const FileCheck &) = delete;
    FileCheck &operator=(const FileCheck &) = delete;

    [[nodiscard]] bool HasEnded() const { return hasEnded; }
    /// Waits for the end.
    void Wait();

    // The results, once the thread has ended.
    std::vector<Finding> findings; ///< of the rules about files
    std::shared_ptr<FileSurvey> files;
    std::optional<SourceNames> sources; ///< empty if the settings name no sources

private:
    void Run();

    std::shared_ptr<const CheckSettings> settings;
    CountAlpha countAlpha;
    std::optional<SourceRequest> request;
    std::function<void()> told;
    QObject receiver; // of the message that the thread has ended; in the thread that made this object
    std::atomic<bool> stop = false;
    std::atomic<bool> hasEnded = false;
    std::thread thread;
};
