// SPDX-License-Identifier: MIT
#include "FileView.h"

#include "HostFiles.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <sys/mman.h>
#include <unistd.h>

/// An entry of the list of mappings, which the signal handler reads.
struct FileView::Mapping
{
    FileHandle file;
    char *start = nullptr;
    size_t size = 0;
    std::atomic<bool> isCut = false;
    std::atomic<Mapping *> next = nullptr;

    Mapping(FileHandle handle, char *address, size_t bytes);
    ~Mapping();
};

namespace
{

using Mapping = FileView::Mapping;

/// The first entry. It is global because a signal handler gets no arguments of ours.
std::atomic<Mapping *> first = nullptr;
std::atomic<size_t> pageSize = 0;

/// Puts zeros in the place of the bytes that can't be read, from the page of the failure to the end of the file. A bus
/// error elsewhere ends the process as without this handler.
void FillWithZeros(int signal, siginfo_t *info, void * /*context*/)
{
    char *const address = static_cast<char *>(info->si_addr);
    for (Mapping *mapping = first; mapping; mapping = mapping->next) {
        if (address < mapping->start || address >= mapping->start + mapping->size)
            continue;
        const size_t from = size_t(address - mapping->start) / pageSize * pageSize;
        mapping->isCut = true;
        if (mmap(mapping->start + from, mapping->size - from, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1,
                 0) != MAP_FAILED)
            return;
    }
    std::signal(signal, SIG_DFL); // the same instruction runs again
}

void InstallHandler()
{
    if (pageSize != 0)
        return;
    pageSize = size_t(sysconf(_SC_PAGESIZE));
    struct sigaction action = {};
    action.sa_sigaction = FillWithZeros;
    action.sa_flags = SA_SIGINFO;
    sigaction(SIGBUS, &action, nullptr);
}

} // namespace

FileView::Mapping::Mapping(FileHandle handle, char *address, size_t bytes)
    : file(std::move(handle)), start(address), size(bytes), next(first.load())
{
    InstallHandler();
    first = this;
}

FileView::Mapping::~Mapping()
{
    std::atomic<Mapping *> *link = &first;
    while (*link != this)
        link = &link->load()->next;
    *link = next.load();
    munmap(start, size);
}

FileView::FileView() = default;
FileView::FileView(QByteArray bytes) : inMemory(std::move(bytes)) {}
FileView::~FileView() = default;
FileView::FileView(FileView &&other) noexcept = default;
FileView &FileView::operator=(FileView &&other) noexcept = default;

int FileView::Open(QStringView path, qint64 limit)
{
    mapping.reset();
    inMemory.clear();
    FileHandle file = OpenRead(path);
    if (!file.IsOpen())
        return errno;
    const qint64 size = file.Size();
    if (size < 0)
        return errno;
    if (size > limit)
        return EFBIG;
    void *const start = size > 0 ? mmap(nullptr, size_t(size), PROT_READ, MAP_PRIVATE, file.Get(), 0) : MAP_FAILED;
    if (start == MAP_FAILED) // an empty file, or a file system that can't map files
        return ReadFile(path, inMemory, limit);
    mapping = std::make_unique<Mapping>(std::move(file), static_cast<char *>(start), size_t(size));
    return 0;
}

QByteArrayView FileView::Bytes() const
{
    return mapping ? QByteArrayView(mapping->start, qsizetype(mapping->size)) : QByteArrayView(inMemory);
}

bool FileView::IsCutShort() const
{
    return mapping && (mapping->isCut || mapping->file.Size() < qint64(mapping->size));
}
