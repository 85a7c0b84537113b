// SPDX-License-Identifier: MIT
#pragma once

#include "FileWatch.h"
#include "UserInterface.h"

#include <functional>

class CResDoc;

/// The services that the frame provides to the documents of a process. All of them outlive the documents.
struct CFrameServices
{
    /// Returns the ID of the channel's command that is running for a document's path; 0 when none is running.
    std::function<quint32(const QString &docPath)> GetCommandID;
    IUserInterface *user = nullptr;      ///< message boxes and file dialogs; null without a window
    IFileChangeMonitor *watch = nullptr; ///< null if files aren't watched
    ReloadFlags *reloadFlags = nullptr;  ///< null if files aren't watched
    /// Gets messages that the user of an open document should know although nothing failed, such as where the copies of
    /// replaced files are; may be empty. The window shows them in a bar of the document's window.
    std::function<void(const CResDoc &doc, const QString &text)> Notify;
};
