#include "CFileChangeMonitor.h"

struct CFileChangeMonitor::Parts
{
    Notify notify;
};

CFileChangeMonitor::CFileChangeMonitor(Notify changed) : parts(std::make_unique<Parts>(std::move(changed))) {}
CFileChangeMonitor::~CFileChangeMonitor() = default;
quint32 CFileChangeMonitor::AddFile(const QString &, CDocument *)
{
    return 0;
}
void CFileChangeMonitor::SetAutoReloadFlags(quint32, qint32 *, qint32 *) {}
void CFileChangeMonitor::RemoveFile(quint32) {}
void CFileChangeMonitor::Stop() {}
std::optional<FILEWATCHITEM> CFileChangeMonitor::ItemOf(quint32) const
{
    return {};
}
