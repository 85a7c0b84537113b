// SPDX-License-Identifier: MIT
#include "RunGit.h"

#include "HostFiles.h"

#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

int Start(const std::vector<std::string> &arguments, const FileHandle &output, pid_t &process)
{
    std::vector<char *> words{const_cast<char *>("git")};
    for (const std::string &argument : arguments)
        words.push_back(const_cast<char *>(argument.c_str()));
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output.Get(), STDOUT_FILENO);
    const int error = posix_spawnp(&process, words.front(), &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return error;
}

} // namespace

GitEnd RunGit(const std::vector<std::string> &arguments)
{
    GitEnd end;
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        end.startError = errno;
        return end;
    }
    const FileHandle reading(ends[0]);
    pid_t process = 0;
    {
        const FileHandle writing(ends[1]); // closed here: the end of the output is seen when git ends
        end.startError = Start(arguments, writing, process);
    }
    if (end.startError != 0)
        return end;
    char buffer[4096];
    for (ssize_t got = 0; (got = reading.Read(buffer, sizeof buffer)) > 0;)
        end.output.append(buffer, got);
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    end.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return end;
}
