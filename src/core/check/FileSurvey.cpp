// SPDX-License-Identifier: MIT
#include "FileSurvey.h"

#include "CResDoc.h"
#include "CheckInput.h"
#include "FileBlocks.h"
#include "PackFiles.h"
#include "Paths.h"
#include "Rules.h"
#include "Threads.h"

#include <QCryptographicHash>

#include <algorithm>
#include <functional>
#include <string_view>

namespace
{

constexpr size_t FILES_WORTH_A_THREAD = 256;
constexpr size_t MOST_THREADS = 4;
constexpr size_t FILES_AT_ONCE = 16;

/// Returns how transparent a picture is, if the first bytes of its file are enough to know it.
std::optional<PictureAlpha> AlphaOf(FileBlocks &blocks, CountAlpha count)
{
    const QByteArrayView start = blocks.Start();
    const QByteArray bytes = QByteArray::fromRawData(start.data(), start.size());
    PictureAlpha alpha;
    if (count(bytes, PictureBytes::Start, alpha))
        return alpha;
    if (quint64(start.size()) < blocks.Size())
        return std::nullopt;
    return count(bytes, PictureBytes::Whole, alpha) ? alpha : PictureAlpha();
}

/// Looks at one file and reads its first bytes. `count` may be null.
void ReadStart(PackFiles &disk, SurveyedFile &file, CountAlpha count)
{
    const PackFile onDisk = disk.Open(file.path);
    file.error = onDisk.error;
    if (!onDisk.exists)
        return;
    file.found = QString::fromUtf8(onDisk.host);
    file.isRegular = onDisk.file.IsOpen() && onDisk.size >= 0;
    if (!file.isRegular)
        return;
    file.size = onDisk.size;
    FileBlocks blocks(onDisk.file.Get(), quint64(onDisk.size));
    const QByteArrayView start = blocks.Start();
    file.startHash = std::hash<std::string_view>()({start.data(), size_t(start.size())});
    file.content = ContentOf(start);
    if (IsConvertible(file.content))
        file.picture = ReadPictureHeader(blocks, file.content);
    else if (file.content == ContentKind::Wave)
        file.wave = ReadWaveHeader(blocks);
    if (count && file.MayHaveAlpha())
        file.alpha = AlphaOf(blocks, count);
}

} // namespace

FileSurvey::FileSurvey(const CheckInput &input)
    : folder(DirectoryOf(input.document.PathName())),
      countAlpha(input.settings.LevelOf(*FindRule(u"image-alpha-few")) == RuleLevel::Off ? nullptr : input.countAlpha),
      positions(input.document)
{
    const CResDoc &document = input.document;
    const CResoTable &table = document.tables.resolutions;
    for (const ScreenSize size : input.screens) {
        const auto isSame = [size](const CheckedScreen &screen) { return screen.size == size; };
        if (std::none_of(screens.begin(), screens.end(), isSame))
            screens.push_back({table.IndexOf(size.width, size.height), size});
    }
    for (int i = 0; input.screens.empty() && i < table.Count(); ++i) {
        if (document.root.FindFolder(KIND_RESO_IMAGES, i, 2))
            screens.push_back({i, {table.At(i).width, table.At(i).height}});
    }
    AddAll(document);
}

void FileSurvey::AddAll(const CResDoc &document)
{
    const CResFolder &root = document.root;
    for (const quint32 kind : {KIND_AUDIO, KIND_VIDEO, KIND_BINARY})
        Add(document, root.FindFolder(kind, 2), false, ANY_RESOLUTION);
    for (const CheckedScreen &screen : screens) {
        if (screen.index >= 0)
            Add(document, root.FindFolder(KIND_RESO_IMAGES, screen.index, 2), true, screen.index);
    }
    Add(document, root.FindFolder(KIND_RESO_IMAGES, ANY_RESOLUTION, 2), true, ANY_RESOLUTION);
    if (const CResFolder *components = root.FindFolder(KIND_CPIMAGES, 2)) {
        for (const auto &component : components->subfolders)
            Add(document, component.get(), true, ANY_RESOLUTION);
    }
}

void FileSurvey::Add(const CResDoc &document, const CResFolder *from, bool isImage, qint32 screen)
{
    if (!from)
        return;
    for (const CBaseRes *res : from->resources) {
        const auto &resource = static_cast<const CFileRes &>(*res);
        const bool isComponent = from->kind == KIND_COMPONENT;
        if (!resource.Id() || (isComponent && !resource.inUse))
            continue;
        SurveyedFile &file = files.emplace_back();
        file.id = document.env.NarrowToWide(resource.Id()->name);
        file.isImage = isImage;
        file.isStock = isComponent && resource.path == resource.defaultPath;
        file.isPush = resource.Id()->push;
        file.screen = screen;
        file.stored = document.env.NarrowToWide(resource.path);
    }
}

const std::vector<SurveyedFile> &FileSurvey::Files() const
{
    if (!isRead)
        Read();
    return files;
}

void FileSurvey::Read() const
{
    isRead = true;
    std::atomic<size_t> next = 0;
    RunInThreads(ThreadsFor(files.size(), FILES_WORTH_A_THREAD, MOST_THREADS), [&](size_t) { ReadFrom(next); });
}

/// Reads the next few files again and again. Several threads may do so.
void FileSurvey::ReadFrom(std::atomic<size_t> &next) const
{
    OutputGuard guard({});
    PackFiles disk(nullptr, guard, 0);
    for (size_t from = next.fetch_add(FILES_AT_ONCE); from < files.size() && !IsStopped();
         from = next.fetch_add(FILES_AT_ONCE)) {
        for (size_t i = from; i < std::min(from + FILES_AT_ONCE, files.size()) && !IsStopped(); ++i) {
            SurveyedFile &file = files[i];
            if (file.stored.isEmpty())
                continue;
            file.path = ResolvePath(file.stored, folder);
            ReadStart(disk, file, countAlpha);
        }
    }
}

const CheckedScreen *FileSurvey::ScreenOf(const SurveyedFile &file) const
{
    for (const CheckedScreen &screen : screens) {
        if (file.screen >= 0 && screen.index == file.screen)
            return &screen;
    }
    return nullptr;
}

const QByteArray &FileSurvey::DigestOf(const SurveyedFile &file) const
{
    const auto known = digests.constFind(&file);
    if (known != digests.constEnd())
        return *known;
    QCryptographicHash hash(QCryptographicHash::Blake2b_256);
    const FileHandle handle = OpenRead(file.found);
    QByteArray piece(64 * 1024, Qt::Uninitialized);
    ssize_t got = handle.IsOpen() ? 0 : -1;
    while (got >= 0 && !IsStopped() && (got = handle.Read(piece.data(), size_t(piece.size()))) > 0)
        hash.addData(QByteArrayView(piece.constData(), got));
    return *digests.insert(&file, got < 0 || IsStopped() ? QByteArray() : hash.result());
}

bool FileSurvey::HaveSameBytes(const SurveyedFile &a, const SurveyedFile &b) const
{
    return a.isRegular && b.isRegular && a.size == b.size && a.startHash == b.startHash && !DigestOf(a).isEmpty() &&
           DigestOf(a) == DigestOf(b);
}

Finding FileSurvey::About(const SurveyedFile &file, const QString &text) const
{
    const CheckedScreen *const screen = ScreenOf(file);
    Finding finding;
    finding.file = positions.File();
    finding.line = positions.LineOf(file.id, screen ? screen->size : ScreenSize());
    finding.id = file.id;
    finding.text = text;
    return finding;
}
