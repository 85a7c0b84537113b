#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

using ByteVector = std::vector<std::uint8_t>;

/// A folder of its own for each test, gone with it.
class TestFolder
{
public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder &) = delete;
    TestFolder &operator=(const TestFolder &) = delete;

    std::string Path(const std::string &name) const { return (m_folder / name).string(); }
    std::string Write(const std::string &name, const ByteVector &bytes) const;
    std::vector<std::string> Names() const;

private:
    std::filesystem::path m_folder;
};

std::optional<ByteVector> ReadBytes(const std::string &path);

/// What the child may take; 0 leaves the host's limit.
struct ChildLimits
{
    std::uint64_t memory = 0;
    std::uint64_t fileSize = 0;
};

struct RunResult
{
    bool hasExited = false; ///< false: a signal ended it
    int status = -1;
    std::string standardError;
    std::string standardOutput;
};

/// Runs the real program with these arguments.
RunResult RunConverter(const std::vector<std::string> &arguments, const ChildLimits &limits = {});

struct Pixel
{
    int red = 0, green = 0, blue = 0, alpha = 255;
    bool operator==(const Pixel &) const = default;
};
void PrintTo(const Pixel &pixel, std::ostream *out);

/// A picture in the device's format, taken apart by a reader written after docs/image-format.md alone.
struct DevicePicture
{
    bool hasAlpha = false;
    std::uint32_t width = 0, height = 0;
    std::vector<Pixel> pixels; ///< of RGB565: as 5, 6 and 5 bits
    Pixel At(std::uint32_t x, std::uint32_t y) const { return pixels.at(y * width + x); }
};

/// Nothing, and a failure of the test, if the bytes aren't as the document says.
std::optional<DevicePicture> TakeApart(const ByteVector &bytes);

/// The pixel as RGB565 has it.
Pixel As565(const Pixel &pixel);

/// Converts a file of these bytes and takes the result apart; a failure of the test when that fails.
DevicePicture Convert(const ByteVector &file);

/// Expects that a file of these bytes gives status 1, one line on standard error that names it, and no target although
/// there was one before. Gives that line.
std::string ExpectRefused(const ByteVector &file);
