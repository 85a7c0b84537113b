// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "Inspect.h"
#include "PackDiff.h"
#include "PackNames.h"

#include <QDir>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <cstdlib>

namespace
{

/// Extracts into a folder in memory, and checks that each reported file is below it, and that there are no others.
void Extract(const Environment &env, const InspectResult &result)
{
    const QTemporaryDir parent(QStringLiteral("/dev/shm/fuzz_inspect"));
    std::vector<QByteArray> written;
    const QString folder = parent.filePath(QStringLiteral("out"));
    if (!parent.isValid() || !ExtractAll(env, result, folder, written).isEmpty())
        std::abort();
    const auto in = [](const QString &path) {
        return QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    };
    size_t found = 0;
    for (const QString &below : in(folder))
        found += size_t(in(folder + u'/' + below).size());
    if (in(parent.path()) != QStringList(QStringLiteral("out")) || found != written.size())
        std::abort();
}

} // namespace

// Any file, of all three kinds. All that is read is inside the file, and no byte is read twice. The JSON is valid. The
// parts have as many bytes as the file, which doesn't differ from itself. Some inputs are extracted.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static Environment env(QStringLiteral("/nonexistent"));
    InspectResult result;
    if (!InspectBytes(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)), result).isEmpty())
        return 0;
    quint64 total = 0;
    for (const DirectoryEntry &entry : result.payload.entries)
        total += quint64(entry.data.size());
    for (const BlockEntry &item : result.payload.block)
        total += quint64(item.data.size());
    if (total > size)
        std::abort();
    QJsonParseError error;
    QJsonDocument::fromJson(InspectJson(env, result, {}), &error);
    if (error.error != QJsonParseError::NoError || InspectText(env, result, {}).isEmpty())
        std::abort();
    const std::vector<PackedPart> parts = PartsOf(env, result);
    quint64 split = 0;
    for (const PackedPart &part : parts)
        split += quint64(part.bytes.size());
    if (split != size || !ComparePacks(parts, {}, parts, {}).empty())
        std::abort();
    static unsigned round = 0;
    if (++round % 16 == 0)
        Extract(env, result);
    return 0;
}
