// SPDX-License-Identifier: MIT
#include "PictureConverters.h"

#include "Environment.h"
#include "LayoutConverterCall.h"
#include "Paths.h"
#include "ScratchFolder.h"

#include <QDir>

#include <cerrno>
#include <cstring>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

/// A folder that a converter needs in its current folder, and a file that it may leave there.
const QString DEBUG_FOLDER = QStringLiteral("Debug");
const QString LEFT_FILE = QStringLiteral("temp_image");

QByteArray CacheFolder(const PackOptions &options)
{
    return options.cache.isEmpty() ? QByteArray() : HostForm(options.cache, CurrentFolder()).toUtf8();
}

} // namespace

PictureConverters::PictureConverters(Environment &environment, const PackOptions &options,
                                     const ScratchFolder &scratchFolder)
    : cache(CacheFolder(options), options.cacheLimit), env(environment), scratch(scratchFolder),
      places(size_t(options.jobs))
{
}

PictureConverters::~PictureConverters()
{
    cache.Shrink();
}

QString PictureConverters::PathIn(const Environment &environment)
{
    return environment.ProgramDir() + QStringLiteral("qrk_resgenerator.exe");
}

bool PictureConverters::Claim(const FileIdentity &picture)
{
    inWork.insert(picture);
    return inWork.count(picture) == 1;
}

void PictureConverters::Release(const FileIdentity &picture)
{
    inWork.erase(inWork.find(picture));
}

/// Makes the folders that a converter needs. Returns false, and explains why, if that isn't possible.
bool PictureConverters::Prepare(Place &place)
{
    if (place.isReady)
        return true;
    place.isReady = true;
    if (places.size() > 1 || cache.IsOn())
        place.errors = FileHandle(memfd_create("errors of a converter", MFD_CLOEXEC));
    if (&place == &places.front()) {
        // A program installed for all users can't make this folder; a converter may not need it.
        if (const QString debug = env.ProgramDir() + DEBUG_FOLDER; !PathExists(debug))
            CreateFolderOnDisk(debug);
        return true;
    }
    // Beside the program there may be no place for it.
    const QByteArray parent = scratch.IsNamed() ? scratch.Path() : QDir::tempPath().toUtf8();
    auto folder = std::make_unique<TemporaryFolder>(parent, "morvanite-converter");
    int error = folder->Error();
    if (error == 0) {
        const QByteArray debug = folder->Path() + '/' + DEBUG_FOLDER.toUtf8();
        const SignalHold hold;
        error = mkdir(debug.constData(), 0777) == 0 ? 0 : errno;
        place.debug = SignalCleanup::OfFolder(debug);
    }
    for (const QString &name :
         QDir(env.ProgramDir()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)) {
        if (error == 0 && name != DEBUG_FOLDER && name != LEFT_FILE &&
            symlink((env.ProgramDir() + name).toUtf8().constData(),
                    (folder->Path() + '/' + name.toUtf8()).constData()) != 0)
            error = errno;
    }
    if (error != 0) {
        env.Explain(QStringLiteral("fewer converters run at a time because one of them has no folder for its temporary "
                                   "files in %1: %2")
                        .arg(QString::fromUtf8(parent), QString::fromLocal8Bit(strerror(error))));
        return false;
    }
    place.folder = std::move(folder);
    return true;
}

QString PictureConverters::FolderOfPlace(size_t place) const
{
    const auto &folder = places[place].folder;
    return folder ? QString::fromUtf8(folder->Path()) + u'/' : env.ProgramDir();
}

void PictureConverters::BeginEnd()
{
    for (const Place &place : places) {
        if (place.user)
            place.user->tool.BeginEnd();
    }
}

std::optional<size_t> PictureConverters::FreePlace()
{
    for (size_t at = 0; at < places.size(); ++at) {
        if (places[at].user)
            continue;
        if (Prepare(places[at]))
            return at;
        places.resize(at); // the places after this one have never been used
    }
    return std::nullopt;
}

bool PictureConverters::IsOneFree()
{
    return FreePlace().has_value();
}

std::unique_ptr<PictureConverters::Run> PictureConverters::Start(const QByteArray &source, const QByteArray &target)
{
    while (true) {
        if (const auto place = FreePlace())
            return std::make_unique<Run>(*this, *place, source, target);
        WaitForAny();
    }
}

void PictureConverters::WaitForAny()
{
    std::vector<RunningTool *> tools;
    for (const Place &place : places) {
        if (place.user)
            tools.push_back(&place.user->tool);
    }
    RunningTool::WaitForAny(env, tools);
    for (const Place &place : places) {
        if (place.user)
            (void)place.user->HasEnded();
    }
}

PictureConverters::Run::Run(PictureConverters &owner, size_t placeNumber, const QByteArray &source,
                            const QByteArray &target)
    : converters(owner), place(placeNumber),
      tool(owner.env,
           {QString::fromUtf8(owner.Converter()), QStringLiteral("-f"), QStringLiteral("-i"), QString::fromUtf8(source),
            QString::fromUtf8(target)},
           {owner.FolderOfPlace(place), owner.places[place].errors.Get(), owner.places.size() > 1})
{
    owner.places[place].user = this;
}

PictureConverters::Run::~Run()
{
    tool.End();
    (void)HasEnded();
}

/// Frees the place of a converter that has ended.
bool PictureConverters::Run::HasEnded()
{
    if (hasEnded)
        return true;
    hasEnded = !tool.IsRunning();
    if (!hasEnded)
        return false;
    if (converters.Ahead() > 0)
        RemoveLeftFile();
    TakeErrors();
    converters.places[place].user = nullptr;
    return true;
}

/// Reads what the converter wrote, and empties the file for the next one.
void PictureConverters::Run::TakeErrors()
{
    const FileHandle &file = converters.places[place].errors;
    const qint64 written = file.IsOpen() ? file.Size() : -1;
    isQuiet = written == 0;
    if (written <= 0)
        return;
    errors.resize(written);
    errors.truncate(std::max(pread(file.Get(), errors.data(), size_t(written), 0), ssize_t(0)));
    (void)!ftruncate(file.Get(), 0);
    (void)lseek(file.Get(), 0, SEEK_SET);
}

void PictureConverters::Run::RemoveLeftFile() const
{
    DeleteFileOnDisk(converters.FolderOfPlace(place) + LEFT_FILE);
}

ToolEnd PictureConverters::Run::Wait()
{
    if (!HasEnded())
        converters.env.FlushOutput();
    while (!HasEnded()) {
        converters.WaitForAny();
        if (converters.whenFree)
            converters.whenFree();
    }
    if (!errors.isEmpty()) {
        converters.env.FlushOutput();
        (void)!write(STDERR_FILENO, errors.constData(), size_t(errors.size()));
        errors.clear();
    }
    return tool.Wait(converters.env);
}
