// SPDX-License-Identifier: MIT
#include "JsonWriter.h"
#include "PackOptions.h"
#include "Paths.h"
#include "PictureCache.h"
#include "Session.h"
#include "Subcommands.h"

#include <cerrno>
#include <cstring>

namespace
{

class CacheSubcommand : public Subcommand<CacheArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        const PackOptions options = PackOptionsOf(session.env.settings, Complain);
        const QString path = folder.empty() ? options.cache : AbsolutePath(folder);
        if (path.isEmpty() || IsRelativePath(path)) {
            Complain(path.isEmpty() ? QStringLiteral("the settings name no cache (section Pack, key cache); --cache "
                                                     "names its folder")
                                    : QStringLiteral("the cache of the settings, %1, is in each project's folder; "
                                                     "--cache names the folder")
                                          .arg(path));
            return EXIT_WRONG_USE;
        }
        PictureCache cache(HostPath(path), options.cacheLimit);
        const PictureCache::Content content = clear ? cache.Clear() : cache.Count();
        Print(session, path, content);
        if (content.error == 0 || content.error == ENOENT) // nothing has been packed yet
            return EXIT_FINE;
        Complain(QStringLiteral("%1: %2").arg(path, QString::fromLocal8Bit(strerror(content.error))));
        return EXIT_FAILED;
    }

private:
    void Print(Session &session, const QString &path, const PictureCache::Content &content) const
    {
        if (!json) {
            const QString line = QStringLiteral("%1: %2 pictures, %3 bytes%4\n")
                                     .arg(path)
                                     .arg(content.files)
                                     .arg(content.bytes)
                                     .arg(clear ? QStringLiteral(" deleted") : QString());
            if (clear)
                session.report.Write(line);
            else
                session.report.Print(line);
            return;
        }
        QByteArray text;
        JsonWriter writer(text);
        writer.BeginObject();
        writer.Key("version");
        writer.Number(1);
        writer.Key("folder");
        writer.String(path);
        writer.Key(clear ? "deleted" : "pictures");
        writer.Number(content.files);
        writer.Key("bytes");
        writer.Number(content.bytes);
        writer.EndObject();
        session.report.WriteBytes(text + '\n');
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(CacheArguments &&arguments)
{
    return std::make_unique<CacheSubcommand>(std::move(arguments));
}
