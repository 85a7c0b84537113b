// SPDX-License-Identifier: MIT
#include "PictureCache.h"

#include "Environment.h"
#include "FilePlace.h"
#include "PackCodes.h"
#include "SignalCleanup.h"

#define XXH_INLINE_ALL // no library to load at the start of every command
#include <xxhash.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace
{

constexpr char CONTENT_MARK[] = "mpicture"; // at the end of an entry, before the hash
constexpr qsizetype MARK_SIZE = sizeof CONTENT_MARK - 1;
constexpr qsizetype HASH_SIZE = 16;
static_assert(MARK_SIZE + HASH_SIZE == PictureCache::ENTRY_END);

constexpr qsizetype KEY_DIGITS = 2 * HASH_SIZE;
constexpr char UNFINISHED[] = ".new-"; // begins the name of a file that is being written
constexpr int MOST_UNFINISHED = 1000;
constexpr time_t ABANDONED_S = 3600; // an unfinished file of this age has no writer any more

bool IsDigits(QByteArrayView text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); });
}

bool IsUnfinished(const QByteArray &name)
{
    return name.startsWith(UNFINISHED);
}

/// True for the names of the cache's own files.
bool IsOurs(const QByteArray &name)
{
    return (name.size() == KEY_DIGITS && IsDigits(name)) || IsUnfinished(name);
}

class Hash
{
public:
    Hash() { XXH3_128bits_reset(&state); }

    void Add(QByteArrayView bytes) { XXH3_128bits_update(&state, bytes.data(), size_t(bytes.size())); }

    /// Adds `size` bytes of a file, or all to its end. Passes them to `copy` too. Returns false if there are less or
    /// they can't be read.
    template <typename Copy> bool AddFile(const FileHandle &file, qint64 size, const Copy &copy)
    {
        char part[1 << 16];
        for (qint64 left = size; left > 0;) {
            const ssize_t got = file.Read(part, size_t(std::min(left, qint64(sizeof part))));
            if (got <= 0 || !copy(part, size_t(got)))
                return false;
            Add(QByteArrayView(part, got));
            left -= got;
        }
        return true;
    }
    bool AddFile(const FileHandle &file, qint64 size)
    {
        return AddFile(file, size, [](const char *, size_t) { return true; });
    }

    [[nodiscard]] QByteArray Value() const
    {
        XXH128_canonical_t bytes;
        XXH128_canonicalFromHash(&bytes, XXH3_128bits_digest(&state));
        return {reinterpret_cast<const char *>(bytes.digest), HASH_SIZE};
    }

private:
    XXH3_state_t state;
};

/// Adds the bytes of a whole regular file, and sets `info` to its state. Returns false if it can't be read.
bool AddWhole(Hash &hash, const QByteArray &path, struct stat &info)
{
    const FileHandle file(open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    return file.IsOpen() && fstat(file.Get(), &info) == 0 && S_ISREG(info.st_mode) && hash.AddFile(file, info.st_size);
}

bool IsSameState(const struct stat &a, const struct stat &b)
{
    const auto values = [](const struct stat &of) {
        return std::tuple(of.st_dev, of.st_ino, of.st_size, of.st_mtim.tv_sec, of.st_mtim.tv_nsec, of.st_ctim.tv_sec,
                          of.st_ctim.tv_nsec);
    };
    return values(a) == values(b);
}

/// Makes a folder and those that it is in. Returns an error number or 0.
int MakeFolders(const QByteArray &path)
{
    if (mkdir(path.constData(), 0777) == 0 || errno == EEXIST)
        return 0;
    const QByteArray parent = FolderOf(path);
    if (errno != ENOENT || parent.isEmpty() || parent == path)
        return errno;
    if (const int error = MakeFolders(parent))
        return error;
    return mkdir(path.constData(), 0777) == 0 || errno == EEXIST ? 0 : errno;
}

} // namespace

struct PictureCache::Entry
{
    QByteArray path;
    qint64 size;
    timespec used;
};

QByteArray PictureCache::KeyOf(const QByteArray &source, const QByteArray &converter)
{
    const QByteArray none = "";
    struct stat info;
    if (path.isEmpty() || stat(converter.constData(), &info) != 0)
        return none;
    if (converterHash.isEmpty() || !IsSameState(info, hashed)) {
        Hash hash;
        if (!AddWhole(hash, converter, hashed))
            return none;
        converterHash = hash.Value();
    }
    // The converter also gets the names of the source and of the target. Their folders belong to a machine. A change of
    // the form of the entries needs another first word here.
    Hash hash;
    hash.Add("picture 1 -f -i");
    hash.Add(converterHash);
    hash.Add(source.sliced(source.lastIndexOf('/') + 1));
    hash.Add(QByteArrayView("\0", 1));
    return AddWhole(hash, source, info) ? hash.Value().toHex() : none;
}

PackFile PictureCache::Find(const QByteArray &key) const
{
    if (key.isEmpty())
        return PackFile();
    PackFile entry;
    entry.host = path + '/' + key;
    entry.file = FileHandle(open(entry.host.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat info;
    if (!entry.file.IsOpen() || fstat(entry.file.Get(), &info) != 0 || !S_ISREG(info.st_mode))
        return PackFile();
    entry.exists = true;
    entry.isMade = true; // another pack may delete it
    entry.size = info.st_size - ENTRY_END;
    Hash hash;
    char end[ENTRY_END];
    const bool isWhole = entry.size > IMAGE_TOO_SMALL && hash.AddFile(entry.file, entry.size) &&
                         entry.file.Read(end, sizeof end) == ENTRY_END &&
                         std::memcmp(end, CONTENT_MARK, MARK_SIZE) == 0 &&
                         hash.Value() == QByteArrayView(end + MARK_SIZE, HASH_SIZE);
    if (!isWhole || lseek(entry.file.Get(), 0, SEEK_SET) != 0)
        return PackFile();
    (void)futimens(entry.file.Get(), nullptr); // a cache that may only be read is used all the same
    return entry;
}

/// Returns an error number or 0.
int PictureCache::Write(const QByteArray &key, const QByteArray &converted)
{
    const FileHandle from(open(converted.constData(), O_RDONLY | O_CLOEXEC));
    const qint64 size = from.IsOpen() ? from.Size() : -1;
    if (size < 0)
        return errno;
    if (quint64(size) + ENTRY_END > mostBytes)
        return 0;
    if (const int error = MakeFolders(path))
        return error;
    QByteArray made;
    FileHandle to;
    SignalCleanup cleanup;
    for (int number = 0; !to.IsOpen(); ++number) {
        made = path + '/' + UNFINISHED + QByteArray::number(getpid()) + '-' + QByteArray::number(number);
        const SignalHold hold;
        // Other users may read a shared cache as far as the process's mask lets them.
        to = FileHandle(open(made.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (to.IsOpen())
            cleanup = SignalCleanup::OfFile(made);
        else if (errno != EEXIST || number == MOST_UNFINISHED)
            return errno;
    }
    Hash hash;
    errno = 0;
    const auto copy = [&](const char *bytes, size_t count) { return to.WriteAll(bytes, count); };
    const bool isWritten = hash.AddFile(from, size, copy) && to.WriteAll(CONTENT_MARK, MARK_SIZE) &&
                           to.WriteAll(hash.Value().constData(), HASH_SIZE);
    if (isWritten && rename(made.constData(), (path + '/' + key).constData()) == 0)
        return 0;
    const int error = errno;
    unlink(made.constData());
    return isWritten && error == ENOENT ? 0 : error; // the cache was cleared meanwhile
}

void PictureCache::Add(const Environment &env, const QByteArray &key, const QByteArray &converted)
{
    if (key.isEmpty())
        return;
    const int error = Write(key, converted);
    hasAdded = true;
    if (error == 0 || hasExplained)
        return;
    hasExplained = true;
    env.Explain(QStringLiteral("converted pictures can't be kept in the cache %1: %2; the pack goes on without them")
                    .arg(QString::fromUtf8(path), QString::fromLocal8Bit(strerror(error))));
}

std::vector<PictureCache::Entry> PictureCache::Entries(int &error) const
{
    std::vector<Entry> entries;
    DIR *const folder = opendir(path.constData());
    error = folder ? 0 : errno;
    if (!folder)
        return entries;
    while (const dirent *const listed = readdir(folder)) {
        const QByteArray name(listed->d_name);
        struct stat info;
        if (IsOurs(name) && fstatat(dirfd(folder), listed->d_name, &info, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISREG(info.st_mode))
            entries.push_back({path + '/' + name, info.st_size, info.st_mtim});
    }
    closedir(folder);
    return entries;
}

void PictureCache::Shrink()
{
    if (!hasAdded)
        return;
    hasAdded = false;
    int error = 0;
    std::vector<Entry> entries = Entries(error);
    quint64 total = 0;
    const time_t now = time(nullptr);
    for (const Entry &entry : entries) {
        const bool isAbandoned =
            IsUnfinished(entry.path.sliced(path.size() + 1)) && entry.used.tv_sec < now - ABANDONED_S;
        if (!isAbandoned || unlink(entry.path.constData()) != 0)
            total += quint64(entry.size);
    }
    if (total <= mostBytes)
        return;
    std::sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) {
        return std::tie(a.used.tv_sec, a.used.tv_nsec, a.path) < std::tie(b.used.tv_sec, b.used.tv_nsec, b.path);
    });
    for (const Entry &entry : entries) {
        // Another process may be writing an unfinished file, or have deleted one.
        if (total <= mostBytes)
            return;
        if (!IsUnfinished(entry.path.sliced(path.size() + 1)) &&
            (unlink(entry.path.constData()) == 0 || errno == ENOENT))
            total -= quint64(entry.size);
    }
}

PictureCache::Content PictureCache::Count() const
{
    Content content;
    for (const Entry &entry : Entries(content.error)) {
        ++content.files;
        content.bytes += entry.size;
    }
    return content;
}

PictureCache::Content PictureCache::Clear()
{
    Content content;
    for (const Entry &entry : Entries(content.error)) {
        if (unlink(entry.path.constData()) == 0) {
            ++content.files;
            content.bytes += entry.size;
        } else if (errno != ENOENT && content.error == 0) {
            content.error = errno;
        }
    }
    return content;
}
