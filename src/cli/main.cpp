// SPDX-License-Identifier: MIT
// The program itself. It is small, so that it starts quickly. Everything but the version is in libmorvanite-commands.so
// beside it.

#include <climits>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace
{

constexpr char LIBRARY[] = "libmorvanite-commands.so";
using RunFunction = int (*)(int, char **);

/// Gets the path of the library beside the program. Returns false if the path is too long.
bool FindLibrary(char (&path)[PATH_MAX])
{
    const ssize_t size = readlink("/proc/self/exe", path, sizeof path - 1);
    if (size <= 0)
        return false;
    path[size] = 0;
    char *const name = strrchr(path, '/') + 1;
    if (size_t(name - path) + sizeof LIBRARY > sizeof path)
        return false;
    memcpy(name, LIBRARY, sizeof LIBRARY);
    return true;
}

/// Opens /dev/null for each standard file that is closed; otherwise the next file that is opened would get its number.
void FillClosedFiles()
{
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd) {
        if (fcntl(fd, F_GETFD) == -1 && open("/dev/null", O_RDWR) == -1)
            return;
    }
}

} // namespace

int main(int argc, char **argv)
{
    FillClosedFiles();
    if (argc == 2 && (strcmp(argv[1], "--version") == 0 || strcmp(argv[1], "-V") == 0)) {
        static constexpr char VERSION[] = "morvanite-cli " MORVANITE_VERSION "\n";
        return write(STDOUT_FILENO, VERSION, sizeof VERSION - 1) < 0 ? 1 : 0;
    }
    char path[PATH_MAX];
    void *const library = FindLibrary(path) ? dlopen(path, RTLD_LAZY | RTLD_LOCAL) : nullptr;
    void *const run = library ? dlsym(library, "MorvaniteRun") : nullptr;
    if (!run) {
        fprintf(stderr, "morvanite-cli: %s must be beside the program: %s\n", LIBRARY, dlerror());
        return 1;
    }
    return reinterpret_cast<RunFunction>(run)(argc, argv);
}
