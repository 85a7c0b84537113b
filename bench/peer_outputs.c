// SPDX-License-Identifier: MIT
/* A peer of the benchmarks: the least that a repeated pack does. Looks at every file that standard input names, one a
   line, and writes files of the given sizes: peer_outputs FILE BYTES... */

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>

int main(int argc, char **argv)
{
    static char buffer[1 << 16];
    struct stat info;
    while (fgets(buffer, sizeof buffer, stdin)) {
        buffer[strcspn(buffer, "\n")] = '\0';
        if (stat(buffer, &info) != 0)
            return 1;
    }
    for (int i = 1; i + 1 < argc; i += 2) {
        FILE *file = fopen(argv[i], "wb");
        if (!file)
            return 1;
        for (long left = atol(argv[i + 1]); left > 0; left -= (long)sizeof buffer) {
            const size_t part = left < (long)sizeof buffer ? (size_t)left : sizeof buffer;
            if (fwrite(buffer, 1, part, file) != part)
                return 1;
        }
        if (fclose(file) != 0)
            return 1;
    }
    return 0;
}
