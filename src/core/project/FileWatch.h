// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <map>

class CDocument;

/// Watches files for changes by other programs. A handle is never 0.
class IFileChangeMonitor
{
public:
    /// Starts watching; 0 if the file can't be read.
    virtual quint32 AddFile(const QString &path, CDocument *doc) = 0;
    /// Sets the flags that mean "reload without asking". They must outlive the watch.
    virtual void SetAutoReloadFlags(quint32 handle, qint32 *fileFlag, qint32 *typeFlag) = 0;
    virtual void RemoveFile(quint32 handle) = 0;
    /// Ends all watching, of every document.
    virtual void Stop() = 0;

protected:
    ~IFileChangeMonitor() = default;
};

/// Which kinds of files are reloaded without asking the user. All documents share it.
struct ReloadFlags
{
    qint32 resources = 0;
    qint32 strings = 0;
    qint32 configuration = 0;
    std::map<QString, qint32> layouts; // by path, added at the first use
};
