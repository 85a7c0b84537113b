#include "ConverterRun.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

TestFolder::TestFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "converter-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no folder for the test");
    m_folder = name;
}

TestFolder::~TestFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::string TestFolder::Write(const std::string &name, const ByteVector &bytes) const
{
    std::ofstream file(m_folder / name, std::ios::binary);
    file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return Path(name);
}

std::vector<std::string> TestFolder::Names() const
{
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(m_folder))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

std::optional<ByteVector> ReadBytes(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    return ByteVector(std::istreambuf_iterator<char>(file), {});
}

namespace
{

void Limit(__rlimit_resource resource, std::uint64_t most)
{
    const rlimit limit{most, most};
    if (most != 0)
        setrlimit(resource, &limit);
}

std::string ReadAll(int descriptor)
{
    std::string text;
    char part[4096];
    for (ssize_t count; (count = read(descriptor, part, sizeof part)) > 0;)
        text.append(part, static_cast<std::size_t>(count));
    close(descriptor);
    return text;
}

} // namespace

RunResult RunConverter(const std::vector<std::string> &arguments, const ChildLimits &limits)
{
    std::vector<std::string> words{CONVERTER};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char *> argv;
    for (std::string &word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    int output[2];
    int error[2];
    if (pipe2(output, O_CLOEXEC) != 0 || pipe2(error, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        dup2(output[1], STDOUT_FILENO);
        dup2(error[1], STDERR_FILENO);
        Limit(RLIMIT_AS, limits.memory);
        Limit(RLIMIT_FSIZE, limits.fileSize);
        execv(argv[0], argv.data());
        _exit(127);
    }
    close(output[1]);
    close(error[1]);
    RunResult result;
    result.standardError = ReadAll(error[0]); // a line or two: the other pipe can't fill up meanwhile
    result.standardOutput = ReadAll(output[0]);
    int status = 0;
    waitpid(child, &status, 0);
    result.hasExited = WIFEXITED(status);
    result.status = result.hasExited ? WEXITSTATUS(status) : -1;
    return result;
}

void PrintTo(const Pixel &pixel, std::ostream *out)
{
    *out << pixel.red << '/' << pixel.green << '/' << pixel.blue << '/' << pixel.alpha;
}

std::optional<DevicePicture> TakeApart(const ByteVector &bytes)
{
    const auto number = [&](std::size_t at, std::size_t size) {
        std::uint32_t value = 0;
        for (std::size_t byte = 0; byte < size; ++byte)
            value |= std::uint32_t{bytes.at(at + byte)} << (8 * byte);
        return value;
    };
    if (bytes.size() < 28 || std::memcmp(bytes.data(), "MIMG", 4) != 0 || bytes[4] != 1 || bytes[6] != 0 ||
        bytes[7] != 24 || (bytes[5] != 1 && bytes[5] != 2)) {
        ADD_FAILURE() << "not a picture of the device, " << bytes.size() << " bytes";
        return std::nullopt;
    }
    DevicePicture picture{.hasAlpha = bytes[5] == 2, .width = number(8, 4), .height = number(12, 4), .pixels = {}};
    const std::size_t pixelSize = picture.hasAlpha ? 4 : 2;
    const std::size_t used = picture.width * pixelSize;
    const std::size_t stride = (used + 3) / 4 * 4;
    if (number(16, 4) != stride || number(20, 4) != stride * picture.height ||
        bytes.size() != 24 + stride * picture.height) {
        ADD_FAILURE() << "sizes that don't fit: stride " << number(16, 4) << ", data " << number(20, 4) << ", file "
                      << bytes.size();
        return std::nullopt;
    }
    for (std::size_t y = 0; y < picture.height; ++y) {
        for (std::size_t x = 0; x < picture.width; ++x) {
            const std::uint32_t value = number(24 + y * stride + x * pixelSize, pixelSize);
            const auto bits = [value](unsigned shift, unsigned mask) {
                return static_cast<int>(value >> shift & mask);
            };
            if (picture.hasAlpha)
                picture.pixels.push_back({bits(16, 255), bits(8, 255), bits(0, 255), bits(24, 255)});
            else
                picture.pixels.push_back({bits(11, 31), bits(5, 63), bits(0, 31)});
        }
        for (std::size_t filler = used; filler < stride; ++filler)
            EXPECT_EQ(bytes[24 + y * stride + filler], 0) << "filler of row " << y;
    }
    return picture;
}

Pixel As565(const Pixel &pixel)
{
    return {(pixel.red * 31 + 127) / 255, (pixel.green * 63 + 127) / 255, (pixel.blue * 31 + 127) / 255};
}

DevicePicture Convert(const ByteVector &file)
{
    const TestFolder folder;
    const std::string source = folder.Write("picture", file);
    const std::string target = folder.Path("result");
    const RunResult run = RunConverter({"-f", "-i", source, target});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.standardError, "");
    EXPECT_EQ(run.standardOutput, "");
    const auto bytes = ReadBytes(target);
    return bytes ? TakeApart(*bytes).value_or(DevicePicture{}) : DevicePicture{};
}

std::string ExpectRefused(const ByteVector &file)
{
    const TestFolder folder;
    const std::string source = folder.Write("picture", file);
    const std::string target = folder.Write("result", {'s', 't', 'a', 'l', 'e'});
    const RunResult run = RunConverter({"-f", "-i", source, target});
    EXPECT_TRUE(run.hasExited);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.standardOutput, "");
    EXPECT_EQ(std::ranges::count(run.standardError, '\n'), 1) << run.standardError;
    EXPECT_TRUE(run.standardError.ends_with('\n'));
    EXPECT_TRUE(run.standardError.starts_with("qrk_resgenerator.exe: " + source + ": ")) << run.standardError;
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"picture"});
    return run.standardError;
}
