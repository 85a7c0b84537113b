// SPDX-License-Identifier: MIT
// Makes a C header from the tables of numbers that zul_xml_conv.exe writes.
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace
{

constexpr char USAGE[] = "usage: convert_i_2_h.exe TABLE ENUMERATORS HEADER "
                         "(TABLE: zul_xml_table.i; ENUMERATORS: zul_xml_enum.i; HEADER: the header to be written)\n";

constexpr char HEAD[] =
    R"(/* The numbers that stand for names in this project's layouts. Made by convert_i_2_h.exe when the project is saved.
 *
 * LAYOUT_TABLE           changes with every name and number below: that of an open layout should be the same
 * LAYOUT_CLASS_name      the class of a component
 * LAYOUT_PROPERTY_name   a property
 * LAYOUT_ENUM_type_name  an enumerator
 *
 * With LAYOUT_NAMES defined before it's included there are tables of the names too, for output that people read. */
#if !defined _LAYOUTID_H_
#define _LAYOUTID_H_

)";

struct Error : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

class Header
{
public:
    /// Reads the lines of a file. Lines other than comments and the macros of the tables are errors.
    void Read(const char *path)
    {
        std::ifstream file(path);
        if (!file)
            throw Error(std::string(path) + ": " + std::strerror(errno));
        int number = 0;
        for (std::string line; std::getline(file, line);) {
            ++number;
            if (!line.empty() && line.back() == '\r')
                line.pop_back();
            if (!Line(line))
                throw Error(std::string(path) + ", line " + std::to_string(number) + ": this is not a line of a table");
        }
        if (file.bad())
            throw Error(std::string(path) + ": can't be read");
    }

    [[nodiscard]] std::string Text() const
    {
        return HEAD + defines + "\n#if defined LAYOUT_NAMES\n" + Names("layout_class_names", classes) +
               Names("layout_property_names", properties) + "#endif\n\n#endif\n";
    }

private:
    using Table = std::map<unsigned long, std::string>;

    static constexpr size_t LONGEST_LINE = 1000; // matching the patterns below recurses
    static constexpr unsigned long LARGEST_NUMBER = 0xFFFF;

    bool Line(const std::string &line)
    {
        static const std::regex stamp("ZUL_TABLE\\((0x[0-9A-F]{8})\\)");
        static const std::regex name("ZUL_(CLASS|PROPERTY)\\(([0-9]{1,5}), ([A-Za-z_][A-Za-z0-9_]*)\\)");
        static const std::regex enumerator(
            "ZUL_ENUMERATOR\\(([A-Za-z_][A-Za-z0-9_]*), ([0-9]{1,9}), ([A-Za-z_][A-Za-z0-9_]*)\\)");
        std::smatch found;
        if (line.empty() || line.starts_with("/*") || line.starts_with(" *"))
            return true;
        if (line.size() > LONGEST_LINE)
            return false;
        if (std::regex_match(line, found, stamp)) {
            Define("LAYOUT_TABLE", found[1].str() + 'u');
        } else if (std::regex_match(line, found, name)) {
            if (std::stoul(found[2]) > LARGEST_NUMBER)
                return false;
            Define("LAYOUT_" + found[1].str() + '_' + found[3].str(), found[2]);
            (found[1] == "CLASS" ? classes : properties)[std::stoul(found[2])] = found[3];
        } else if (std::regex_match(line, found, enumerator)) {
            Define("LAYOUT_ENUM_" + found[1].str() + '_' + found[3].str(), found[2]);
        } else {
            return false;
        }
        return true;
    }

    void Define(const std::string &name, const std::string &number)
    {
        if (!known.insert(name).second)
            throw Error(name + ": two names of the catalogue would both become this name");
        defines += "#define " + name + ' ' + number + '\n';
    }

    /// In C the number of a name is its index; the first element belongs to no name.
    static std::string Names(const char *array, const Table &names)
    {
        std::string text = std::string("static const char *const ") + array + "[] = {\n    \"\",\n";
        unsigned long next = 1;
        for (const auto &[number, name] : names) {
            for (; next < number; ++next)
                text += "    \"\",\n";
            text += "    \"" + name + "\",\n";
            next = number + 1;
        }
        return text + "};\n";
    }

    std::string defines;
    std::set<std::string> known;
    Table classes;
    Table properties;
};

/// Makes a file beside another with an unused name, since an existing file may be a link to another user's file. If
/// that fails, errno has the system's error number.
std::FILE *MakeBeside(const std::string &path, std::string &fresh)
{
    constexpr int MOST_FILES = 1000;
    const size_t name = path.rfind('/') + 1; // 0 when there is no "/"
    const std::string start = path.substr(0, name) + '.' + path.substr(name) + '.' + std::to_string(getpid()) + '-';
    int descriptor = -1;
    for (int number = 0; descriptor < 0 && number < MOST_FILES; ++number) {
        fresh = start + std::to_string(number);
        descriptor = open(fresh.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor < 0 && errno != EEXIST)
            break;
    }
    return descriptor < 0 ? nullptr : fdopen(descriptor, "wb");
}

bool HasContent(const std::string &path, const std::string &text)
{
    std::ifstream file(path, std::ios::binary);
    std::string content(text.size() + 1, '\0');
    file.read(content.data(), std::streamsize(content.size()));
    return file.eof() && size_t(file.gcount()) == text.size() && content.compare(0, text.size(), text) == 0;
}

/// Replaces a file in one step: the new one is written beside the old one, then renamed over it. A file with that text
/// isn't touched, so that nothing is compiled anew because of it.
void Replace(const std::string &path, const std::string &text)
{
    if (HasContent(path, text))
        return;
    std::string fresh;
    std::FILE *file = MakeBeside(path, fresh);
    if (!file)
        throw Error(path + ": " + std::strerror(errno));
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    if (std::fclose(file) != 0 || !isWritten || std::rename(fresh.c_str(), path.c_str()) != 0) {
        const std::string why = std::strerror(errno);
        std::remove(fresh.c_str());
        throw Error(path + ": " + why);
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4) {
        std::fputs(USAGE, stderr);
        return 2;
    }
    std::signal(SIGXFSZ, SIG_IGN); // a file that grows beyond the limit is an error like any other
    try {
        Header header;
        header.Read(argv[1]);
        header.Read(argv[2]);
        Replace(argv[3], header.Text());
    } catch (const std::exception &error) {
        std::fprintf(stderr, "convert_i_2_h.exe: %s\n", error.what());
        return 1;
    }
    return 0;
}
