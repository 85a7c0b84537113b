// SPDX-License-Identifier: MIT
#include "RuntimeFolder.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{

constexpr size_t SOCKET_PATH_LIMIT = sizeof(sockaddr_un::sun_path) - 1;

constexpr mode_t WRITABLE_BY_OTHERS = S_IWGRP | S_IWOTH;

/// Returns the value of an environment variable; empty if it isn't set.
std::string ValueOf(const char *variable)
{
    const char *const value = std::getenv(variable);
    return value ? value : "";
}

/// Returns false for the session folder of the user who called su or sudo, and for a folder that no longer exists.
bool IsOwnFolder(const std::string &path)
{
    struct stat info;
    return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == geteuid();
}

std::string ChosenFolder()
{
    std::string chosen = ValueOf("MORVANITE_RUNTIME_DIR");
    if (!chosen.empty())
        return chosen;
    const std::string session = ValueOf("XDG_RUNTIME_DIR");
    if (session.starts_with('/') && IsOwnFolder(session))
        return session + "/morvanite";
    return "/tmp/morvanite-" + std::to_string(geteuid());
}

/// Returns the permissions of a file as `chmod` takes them, such as "0700".
std::string ModeText(mode_t mode)
{
    char text[8];
    std::snprintf(text, sizeof text, "%04o", unsigned(mode & 07777));
    return text;
}

/// Says what is wrong with the folder that was made or found; empty if nothing is.
std::string FaultOf(const std::string &folder)
{
    struct stat info;
    if (lstat(folder.c_str(), &info) != 0 || !S_ISDIR(info.st_mode))
        return " is not a folder; remove it, or set MORVANITE_RUNTIME_DIR to a folder of your own";
    if (info.st_uid != geteuid())
        return " belongs to user " + std::to_string(info.st_uid) + ", not to you (" + std::to_string(geteuid()) +
               "); set MORVANITE_RUNTIME_DIR to a folder of your own";
    if (info.st_mode & WRITABLE_BY_OTHERS)
        return " has mode " + ModeText(info.st_mode) +
               ", so other users can put files into it; set MORVANITE_RUNTIME_DIR to a folder that only you can write "
               "to, or, if this folder has no other use, run \"chmod 700 " +
               folder + "\"";
    return {};
}

} // namespace

std::string EnsureRuntimeFolder(std::string &error)
{
    std::string folder = ChosenFolder();
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();          // a link with a separator after it would be followed
    if (!folder.starts_with('/')) { // the current directory changes with every project
        error = "the path of the runtime folder " + folder +
                " is not absolute; set MORVANITE_RUNTIME_DIR to an absolute path";
        return {};
    }
    if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) {
        error = "the runtime folder " + folder + " can't be created: " + std::strerror(errno) +
                "; set MORVANITE_RUNTIME_DIR to a folder of your own";
        return {};
    }
    if (const std::string fault = FaultOf(folder); !fault.empty()) {
        error = "the runtime folder " + folder + fault;
        return {};
    }
    return folder;
}

std::string SocketPath(const std::string &name, std::string &error)
{
    const std::string folder = EnsureRuntimeFolder(error);
    if (folder.empty())
        return {};
    std::string path = folder + '/' + name;
    if (path.size() > SOCKET_PATH_LIMIT) {
        error = "the socket path " + path + " has " + std::to_string(path.size()) + " bytes, but there is room for " +
                std::to_string(SOCKET_PATH_LIMIT) + " only; set MORVANITE_RUNTIME_DIR to a folder with a shorter path";
        return {};
    }
    return path;
}
