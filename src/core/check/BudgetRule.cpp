// SPDX-License-Identifier: MIT
#include "FileRules.h"

#include "CResDoc.h"
#include "CheckFacts.h"
#include "DevicePictureSize.h"
#include "FileBlocks.h"
#include "FileFault.h"
#include "HostFiles.h"
#include "PackTrial.h"
#include "Packer.h"
#include "Paths.h"
#include "RuleReport.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr qint64 LARGEST_PICTURE = qint64(512) << 20; // that the converter takes
constexpr size_t NAMED = 3;                           // of the largest resources

/// Finds the sizes of converted pictures from their headers. Only a picture that may be transparent is decoded.
class PictureSizes
{
public:
    explicit PictureSizes(CountAlpha countOfAlpha) : countAlpha(countOfAlpha) {}

    std::optional<quint64> SizeOf(const QByteArray &file, QString &fault)
    {
        const auto known = sizes.constFind(file);
        if (known != sizes.constEnd())
            return *known;
        const std::optional<quint64> size = Measure(QString::fromUtf8(file), fault);
        if (size)
            sizes.insert(file, *size);
        return size;
    }

private:
    std::optional<quint64> Measure(const QString &file, QString &fault) const
    {
        const FileHandle handle = OpenRead(file);
        const qint64 fileSize = handle.IsOpen() ? handle.Size() : -1;
        if (fileSize < 0) {
            fault = u"it can't be read: "_s + ReadFault(errno);
            return std::nullopt;
        }
        FileBlocks blocks(handle.Get(), quint64(fileSize));
        const ContentKind content = ContentOf(blocks.Start());
        const PictureHeader header = IsConvertible(content) ? ReadPictureHeader(blocks, content) : PictureHeader();
        fault = header.fault;
        if (fault.isEmpty() && header.width == 0)
            fault = u"it isn't a BMP, GIF, JPEG or PNG file"_s;
        if (!fault.isEmpty())
            return std::nullopt;
        PictureAlpha alpha;
        QByteArray bytes;
        if (header.hasAlpha &&
            (ReadFile(file, bytes, LARGEST_PICTURE) != 0 || !countAlpha(bytes, PictureBytes::Whole, alpha))) {
            fault = u"its pixels can't be decoded"_s;
            return std::nullopt;
        }
        return DevicePictureSize(header.width, header.height, alpha.transparent == 0);
    }

    CountAlpha countAlpha;
    QHash<QByteArray, quint64> sizes; // pictures of several screens
};

QString LargestText(const std::vector<PackedSize> &largest)
{
    QStringList words;
    for (size_t i = 0; i < std::min(largest.size(), NAMED); ++i)
        words.append(u"%1 (%2)"_s.arg(largest[i].name).arg(largest[i].bytes));
    return words.join(u", "_s);
}

/// Returns what is wrong with the size of a pack for a screen; empty if nothing is.
QString FaultOf(const CheckInput &input, qint32 screen, const DeviceSizes &sizes)
{
    packinfo info;
    info.scope = qint16(screen);
    info.imageconvert = input.settings.convertsImages ? 1 : 0;
    PackTrial trial;
    trial.sizes = sizes;
    Packer::Measure(info, input.document, trial);
    if (!trial.isExact || trial.payload == 0) {
        const PackFault fault = trial.faults.empty() ? PackFault() : trial.faults.front();
        return u"the size isn't known, because the pack would fail with %1: %2: %3"_s.arg(QString::number(fault.code),
                                                                                          fault.about, fault.text);
    }
    const QString over = OverBudgetText(trial.payload, input.settings.budget);
    return over.isEmpty() ? over : u"%1; the largest resources are %2"_s.arg(over, LargestText(trial.largest));
}

} // namespace

void PayloadBudget(const CheckInput &input, RuleReport &report)
{
    if (input.settings.budget == 0 || !input.countAlpha || !input.measureLayouts)
        return;
    if (!SetCurrentFolder(DirectoryOf(input.document.PathName())))
        return;
    PictureSizes pictures(input.countAlpha);
    const DeviceSizes sizes{
        [&pictures](const QByteArray &file, QString &fault) { return pictures.SizeOf(file, fault); },
        input.measureLayouts};
    std::vector<CheckedScreen> screens = input.facts->Files(input).Screens();
    if (screens.empty())
        screens.push_back({ANY_RESOLUTION, {}});
    for (const CheckedScreen &screen : screens) {
        const QString fault = FaultOf(input, screen.index, sizes);
        if (fault.isEmpty())
            continue;
        Finding finding;
        finding.file = input.settings.file;
        finding.line = input.settings.budgetLine;
        finding.text = screen.size.width > 0 ? u"%1: %2"_s.arg(screen.Name(), fault) : fault;
        report.Add(finding);
    }
}
