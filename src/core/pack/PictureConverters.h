// SPDX-License-Identifier: MIT
#pragma once

#include "PackOptions.h"
#include "PictureCache.h"
#include "RunTool.h"
#include "TemporaryFolder.h"

#include <set>

class ScratchFolder;

/// The image converters that a pack runs at a time, "qrk_resgenerator.exe" in the program's folder, and the cache of
/// what they made.
///
/// A converter may use files with fixed names in its current folder, such as "temp_image". So the first one runs in the
/// program's folder, and each of the others in a folder of its own, which is temporary and has a link to every entry of
/// the program's folder.
class PictureConverters
{
public:
    /// Starts nothing and makes nothing. `scratchFolder` must outlive this object.
    PictureConverters(Environment &environment, const PackOptions &options, const ScratchFolder &scratchFolder);
    ~PictureConverters();
    PictureConverters(const PictureConverters &) = delete;
    PictureConverters &operator=(const PictureConverters &) = delete;

    /// How many pictures of a phase may be begun before it is their turn.
    [[nodiscard]] size_t Ahead() const { return places.size() > 1 ? AHEAD_OF_EACH * places.size() : 0; }
    /// Asks all running converters to end, and doesn't wait.
    void BeginEnd();
    /// Called when a converter has ended while one of them is waited for; may be empty.
    std::function<void()> whenFree;

    /// The path of the converter, which every conversion runs.
    [[nodiscard]] static QString PathIn(const Environment &environment);
    /// The same as a host path.
    [[nodiscard]] QByteArray Converter() const { return HostPath(PathIn(env)); }

    using FileIdentity = std::pair<dev_t, ino_t>;
    /// Notes that a picture is in work. Returns false if it was so before.
    [[nodiscard]] bool Claim(const FileIdentity &picture);
    void Release(const FileIdentity &picture);

    PictureCache cache;

    /// One run of a converter. The destructor ends one that is still running.
    class Run
    {
    public:
        Run(PictureConverters &owner, size_t place, const QByteArray &source, const QByteArray &target);
        ~Run();
        Run(const Run &) = delete;
        Run &operator=(const Run &) = delete;

        /// Waits for the end of the converter and passes on what it wrote to its standard error.
        ToolEnd Wait();
        /// True if it is known that it wrote nothing there. Only known while there is a cache or several converters.
        [[nodiscard]] bool WasQuiet() const { return isQuiet; }
        /// Removes the file that the converter may have left in its current folder. If several converters run, this
        /// is done when it ends.
        void RemoveLeftFile() const;

    private:
        friend class PictureConverters;
        [[nodiscard]] bool HasEnded();
        void TakeErrors();

        PictureConverters &converters;
        size_t place;
        QByteArray errors; // what it wrote to its standard error, once it has ended; unless that is this process's
        RunningTool tool;
        bool hasEnded = false;
        bool isQuiet = false;
    };

    [[nodiscard]] bool IsOneFree();
    /// Starts a converter, after waiting for a free one. Paths are absolute host paths.
    [[nodiscard]] std::unique_ptr<Run> Start(const QByteArray &source, const QByteArray &target);

private:
    static constexpr size_t AHEAD_OF_EACH = 4;

    /// Where a converter runs.
    struct Place
    {
        Run *user = nullptr;                     ///< null: free
        std::unique_ptr<TemporaryFolder> folder; ///< null: the program's folder
        FileHandle errors;                       ///< takes the standard error; not open if that is this process's
        bool isReady = false;
        SignalCleanup debug; ///< of the folder "Debug" in `folder`
    };
    [[nodiscard]] std::optional<size_t> FreePlace();
    [[nodiscard]] bool Prepare(Place &place);
    [[nodiscard]] QString FolderOfPlace(size_t place) const;
    void WaitForAny();

    Environment &env;
    const ScratchFolder &scratch;
    std::vector<Place> places;
    std::multiset<FileIdentity> inWork;
};
