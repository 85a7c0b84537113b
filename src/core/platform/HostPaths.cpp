// SPDX-License-Identifier: MIT
#include "HostFiles.h"

#include <cerrno>
#include <dirent.h>
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

/// The largest number of folders that are kept: more than any project has, but few enough to limit the memory when a
/// file names thousands of folders.
constexpr size_t MOST_FOLDERS = 1000;

} // namespace

struct HostPaths::Listings
{
    NameMap<Listing> byFolder;
    NameMap<std::string> resolved; // from the written spelling of a folder to the host's

    Listing &Of(const std::string &folder)
    {
        if (byFolder.size() >= MOST_FOLDERS && !byFolder.contains(folder))
            byFolder.clear();
        return byFolder.try_emplace(folder, folder).first->second;
    }

    /// Returns a folder in the host's spelling, resolved from its first name on. Names below a folder that doesn't
    /// exist keep their spelling.
    std::string ResolveFolder(std::string_view folder)
    {
        const auto known = resolved.find(folder);
        if (known != resolved.end())
            return known->second;
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
        if (resolved.size() >= MOST_FOLDERS)
            resolved.clear();
        resolved.emplace(folder, host);
        return host;
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
    return !path.isEmpty() && access(HostPath(path).constData(), F_OK) == 0;
}
