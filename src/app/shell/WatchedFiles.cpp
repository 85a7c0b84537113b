// SPDX-License-Identifier: MIT
#include "WatchedFiles.h"

#include "CFileWatchDlg.h"
#include "CMainFrame.h"

#include <QApplication>

WatchedFiles::WatchedFiles(CMainFrame &mainFrame)
    : frame(mainFrame), monitor([this](const std::vector<quint32> &handles) {
          QMetaObject::invokeMethod(
              this, [this, handles] { Changed(handles); }, Qt::QueuedConnection);
      })
{
    constexpr int BETWEEN_MS = 200;
    again.setInterval(BETWEEN_MS);
    connect(&again, &QTimer::timeout, this, &WatchedFiles::Run);
}

void WatchedFiles::Changed(const std::vector<quint32> &handles)
{
    queue.Add(handles);
    Run();
}

void WatchedFiles::Run()
{
    queue.Run();
    if (queue.IsEmpty())
        again.stop();
    else if (!again.isActive())
        again.start();
}

std::optional<WatchClass> WatchedFiles::ClassOf(const CDocument &doc, quint32 handle) const
{
    return static_cast<const CResDoc &>(doc).WatchedClass(handle);
}

bool WatchedFiles::MayAsk()
{
    if (isBusy && isBusy())
        return false;
    const UserBoxes &boxes = frame.Boxes();
    if (frame.Turn().IsOn() || boxes.IsAnyOpen() || boxes.IsAnyWaiting() || QApplication::activeModalWidget() ||
        QApplication::activePopupWidget() || QGuiApplication::mouseButtons() != Qt::NoButton)
        return false;
    if (isEditRefused && frame.IsEditing())
        return false; // waits until the user corrects it, without repeating the message
    isEditRefused = !frame.TakeEdit();
    return !isEditRefused;
}

bool WatchedFiles::Ask(const FILEWATCHITEM &item)
{
    QApplication::alert(&frame);
    CFileWatchDlg dialog(item.path, item.autoReloadFile, item.autoReloadType, item.doc->IsModified(), &frame);
    return frame.Boxes().RunDialog(dialog);
}

void WatchedFiles::Reload(CDocument &doc, quint32 handle)
{
    const WaitCursor cursor;
    frame.Bars().BeginOutput();
    try {
        static_cast<CResDoc &>(doc).OnWatchedFileChanged(handle);
    } catch (const ArchiveException &exception) {
        doc.ReportSaveLoadException(doc.m_strPathName, exception, false);
    }
}
