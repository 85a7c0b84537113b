// SPDX-License-Identifier: MIT
// A peer of the benchmarks: parses an XML file with TinyXML and does nothing with it.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <tinyxml.h>

int main(int argc, char **argv)
{
    FILE *file = argc > 1 ? fopen(argv[1], "rb") : nullptr;
    if (!file)
        return 1;
    fseek(file, 0, SEEK_END);
    std::string text(size_t(ftell(file)), 0);
    rewind(file);
    if (fread(text.data(), 1, text.size(), file) != text.size())
        return 1;
    TiXmlDocument document;
    document.Parse(text.c_str(), nullptr, TIXML_ENCODING_UTF8);
    _Exit(document.Error() ? 1 : 0);
}
