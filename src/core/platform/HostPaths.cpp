// SPDX-License-Identifier: MIT
#include "HostFiles.h"

#include <cerrno>
#include <dirent.h>
#include <list>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_map>

namespace
{

struct StringHash
{
    using is_transparent = void;
    size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view>()(text); }
};

template <typename Value> using NameMap = std::unordered_map<std::string, Value, StringHash, std::equal_to<>>;

std::string LowerUtf8(std::string_view name)
{
    std::string lower(name);
    bool isAscii = true;
    for (char &c : lower) {
        isAscii = isAscii && (c & 0x80) == 0;
        if (c >= 'A' && c <= 'Z')
            c = char(c - 'A' + 'a');
    }
    if (isAscii) // nearly every name
        return lower;
    return ToLowerSimple(QString::fromUtf8(name.data(), qsizetype(name.size()))).toStdString();
}

/// The names that were in a folder when it was listed.
struct Listing
{
    bool readable = false;
    bool missing = false;       // there is no such folder
    NameMap<bool> names;        // false: may be a symbolic link, whose target may not exist
    NameMap<std::string> lower; // made at the first look-up that needs it
    bool hasLower = false;

    explicit Listing(const std::string &folder)
    {
        DIR *dir = opendir(folder.c_str());
        missing = !dir && (errno == ENOENT || errno == ENOTDIR);
        if (!dir)
            return;
        readable = true;
        while (const dirent *entry = readdir(dir))
            names.emplace(entry->d_name, entry->d_type != DT_LNK && entry->d_type != DT_UNKNOWN);
        closedir(dir);
    }

    const std::string *FindNoCase(std::string_view name)
    {
        if (!hasLower) {
            hasLower = true;
            for (const auto &[known, certain] : names) {
                if (!QUtf8StringView(known).isValidUtf8())
                    continue; // different names could be equal after decoding
                std::string &first = lower.try_emplace(LowerUtf8(known), known).first->second;
                first = std::min(first, known); // always the same one of several spellings
            }
        }
        const auto found = lower.find(LowerUtf8(name));
        return found == lower.end() ? nullptr : &found->second;
    }
};

QByteArray WithSlashes(QStringView path)
{
    QByteArray bytes = path.toUtf8();
    bytes.replace('\\', '/');
    return bytes;
}

/// A map from paths to values, each with a weight. When the weights exceed a limit together, the values that were used
/// longest ago are dropped.
template <typename Value> class RecentlyUsed
{
public:
    explicit RecentlyUsed(size_t mostWeight) : most(mostWeight) {}

    /// Returns the value of a path, or null. The pointer is valid until the next call of `Insert`.
    [[nodiscard]] Value *Find(std::string_view path)
    {
        const auto found = places.find(path);
        if (found == places.end())
            return nullptr;
        entries.splice(entries.begin(), entries, found->second);
        return &entries.front().value;
    }

    /// Inserts the value of a path that has none yet. Keeps it even if it is heavier than the limit.
    Value &Insert(std::string path, Value value, size_t weight)
    {
        for (total += weight; total > most && !entries.empty(); entries.pop_back()) {
            total -= entries.back().weight;
            places.erase(entries.back().path);
        }
        entries.push_front({std::move(path), std::move(value), weight});
        places.emplace(entries.front().path, entries.begin());
        return entries.front().value;
    }

private:
    struct Entry
    {
        std::string path;
        Value value;
        size_t weight;
    };

    const size_t most;
    size_t total = 0;
    std::list<Entry> entries; // the one that was used last is the first
    std::unordered_map<std::string_view, typename std::list<Entry>::iterator> places;
};

/// The largest number of names in the folders that are kept: more than nearly every project has, and at most about
/// 50 MB of memory. A folder counts as one name more, so that empty folders are limited too.
constexpr size_t MOST_NAMES = 400'000;
/// The largest number of spellings of folders that are kept.
constexpr size_t MOST_SPELLINGS = 50'000;

} // namespace

struct HostPaths::Listings
{
    RecentlyUsed<Listing> byFolder{MOST_NAMES};
    RecentlyUsed<std::string> resolved{MOST_SPELLINGS}; // from the written spelling of a folder to the host's

    /// Returns a folder's listing, which is valid until the next call.
    Listing &Of(const std::string &folder)
    {
        if (Listing *const known = byFolder.Find(folder))
            return *known;
        Listing listing(folder);
        const size_t names = listing.names.size();
        return byFolder.Insert(folder, std::move(listing), names + 1);
    }

    /// Returns a folder in the host's spelling, resolved from its first name on. Names below a folder that doesn't
    /// exist keep their spelling.
    std::string ResolveFolder(std::string_view folder)
    {
        if (const std::string *const known = resolved.Find(folder))
            return *known;
        std::string host(folder);
        for (size_t slash = 0; access(host.c_str(), F_OK) != 0 && slash != std::string::npos;) {
            slash = host.find('/', slash + 1);
            const std::string upTo = host.substr(0, slash);
            if (access(upTo.c_str(), F_OK) == 0)
                continue;
            const std::string other = OtherSpelling(upTo);
            if (other.empty())
                break;
            host.replace(0, upTo.size(), other);
            slash = slash == std::string::npos ? slash : other.size();
        }
        return resolved.Insert(std::string(folder), host, 1);
    }

    /// Returns the path with its last name in the host's spelling; empty if the folder has no such name in any case.
    std::string OtherSpelling(const std::string &path)
    {
        const size_t slash = path.rfind('/');
        const std::string folder = slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
        Listing &listing = Of(folder);
        const std::string_view name = std::string_view(path).substr(slash == std::string::npos ? 0 : slash + 1);
        const std::string *found = listing.readable ? listing.FindNoCase(name) : nullptr;
        return found ? path.substr(0, path.size() - name.size()) + *found : std::string();
    }

    /// Splits a path and resolves its folder. Returns the folder's listing and sets `folder` and `name`.
    Listing &Locate(std::string_view path, std::string &folder, std::string_view &name)
    {
        const size_t slash = path.rfind('/');
        name = slash == std::string_view::npos ? path : path.substr(slash + 1);
        if (slash == std::string_view::npos)
            folder = ".";
        else
            folder = ResolveFolder(slash == 0 ? "/" : path.substr(0, slash));
        return Of(folder);
    }

    std::string Resolve(std::string_view path)
    {
        while (path.size() > 1 && path.back() == '/')
            path.remove_suffix(1);
        std::string folder;
        std::string_view name;
        Listing &listing = Locate(path, folder, name);
        std::string found(name);
        if (listing.readable && !listing.names.contains(name)) {
            if (const std::string *other = listing.FindNoCase(name))
                found = *other;
        }
        if (path.find('/') == std::string_view::npos)
            return found;
        return folder == "/" ? folder + found : folder + '/' + found;
    }

    bool Exists(std::string_view path)
    {
        std::string folder;
        std::string_view name;
        Listing &listing = Locate(path, folder, name);
        if (listing.missing)
            return false;
        const auto exact = listing.names.find(name);
        if (exact != listing.names.end() && exact->second)
            return true;
        if (listing.readable && exact == listing.names.end() && !name.empty() && !listing.FindNoCase(name))
            return false;
        return access(Resolve(path).c_str(), F_OK) == 0;
    }
};

HostPaths::HostPaths() : listings(std::make_unique<Listings>()) {}
HostPaths::~HostPaths() = default;

QByteArray HostPaths::Resolve(QStringView path)
{
    const QByteArray bytes = WithSlashes(path);
    return bytes.isEmpty() ? bytes
                           : QByteArray::fromStdString(listings->Resolve({bytes.constData(), size_t(bytes.size())}));
}

bool HostPaths::Exists(QStringView path)
{
    return Exists(path.toUtf8());
}

bool HostPaths::Exists(QByteArray utf8)
{
    utf8.replace('\\', '/');
    return !utf8.isEmpty() && listings->Exists({utf8.constData(), size_t(utf8.size())});
}

QByteArray HostPath(QStringView path)
{
    const QByteArray exact = WithSlashes(path);
    if (exact.isEmpty() || access(exact.constData(), F_OK) == 0)
        return exact;
    return HostPaths().Resolve(path);
}

bool PathExists(QStringView path)
{
    const QByteArray exact = WithSlashes(path);
    if (exact.isEmpty() || access(exact.constData(), F_OK) == 0)
        return !exact.isEmpty();
    const QByteArray other = HostPaths().Resolve(path);
    return other != exact && access(other.constData(), F_OK) == 0;
}
