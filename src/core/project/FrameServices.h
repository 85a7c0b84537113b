#pragma once

#include "FileWatch.h"
#include "UserInterface.h"

#include <functional>

class CResDoc;

/// What the documents of a process are handed by their frame. All of it outlives the documents.
struct CFrameServices
{
    /// The command of the channel that is running for a document's path; 0 when none is.
    std::function<quint32(const QString &docPath)> GetCommandID;
    IUserInterface *user = nullptr;      ///< message boxes and file dialogs; null without a window
    IFileChangeMonitor *watch = nullptr; ///< null where nobody watches files
    ReloadFlags *reloadFlags = nullptr;  ///< null where nobody watches files
    /// Told what the user of an open document has to know although nothing failed, such as where the files are that a
    /// save replaced; may be empty. The window shows it in a bar of the document's window.
    std::function<void(const CResDoc &doc, const QString &text)> Notify;
};
