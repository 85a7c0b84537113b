// SPDX-License-Identifier: MIT
#include "SourceNames.h"

#include "CResDoc.h"
#include "CheckInput.h"
#include "HeaderFolder.h"
#include "HostFiles.h"
#include "IDGen.h"
#include "LayoutIds.h"
#include "Paths.h"
#include "SourceFiles.h"
#include "SourceScanner.h"

using namespace Qt::StringLiterals;

namespace
{

/// Returns the file names of the headers that are generated from the project.
QSet<QString> GeneratedNames(const CResDoc &document)
{
    QSet<QString> names;
    for (const QString &path : IDGen::Headers({}, document) + HeaderFolder::NamesBySettings(document.env))
        names.insert(FileName(path));
    return names;
}

class SourceReader
{
public:
    explicit SourceReader(const SourceRequest &sourceRequest) : request(sourceRequest)
    {
        names.used = request.usedElsewhere;
    }

    SourceNames Read()
    {
        QSet<QString> seen;
        for (const QString &pattern : request.patterns) {
            const QStringList files = FilesOfPattern(request.folder, pattern);
            if (files.isEmpty())
                names.patternsWithoutFile.append(pattern);
            for (const QString &file : files) {
                if (request.stop && *request.stop)
                    return {};
                if (!seen.contains(file) && !request.generated.contains(FileName(file)))
                    ReadSource(file);
                seen.insert(file);
            }
        }
        std::erase_if(names.unknown, [this](const auto &unknown) { return defined.contains(unknown.name); });
        return std::move(names);
    }

private:
    void ReadSource(const QString &file)
    {
        QByteArray bytes;
        if (const int error = ReadFile(file, bytes)) {
            names.unreadable.emplace_back(file, error);
            return;
        }
        ++names.files;
        QSet<NarrowText> told;
        SourceScanner scanner(bytes);
        for (SourceName name; scanner.Next(name);) {
            // A copy is made only of names that are kept.
            const NarrowText word = NarrowText::fromRawData(name.text.data(), name.text.size());
            const bool hasPrefix = word.startsWith(request.prefix) && word.size() > request.prefix.size();
            if (name.isDefined) {
                if (hasPrefix)
                    defined.insert(name.text.toByteArray());
            } else if (const auto id = request.ids.constFind(word); id != request.ids.constEnd()) {
                names.used.insert(*id);
            } else if (hasPrefix && !told.contains(word)) {
                told.insert(name.text.toByteArray());
                const int column = int(QString::fromUtf8(name.before).size()) + 1;
                names.unknown.push_back({name.text.toByteArray(), file, name.line, column});
            }
        }
    }

    const SourceRequest &request;
    QSet<NarrowText> defined;
    SourceNames names;
};

} // namespace

SourceRequest SourceRequestOf(const CheckInput &input)
{
    const CResDoc &document = input.document;
    SourceRequest request;
    request.folder = DirectoryOf(document.PathName());
    request.patterns = input.settings.sourceFiles;
    request.prefix = input.settings.sourcePrefix.toUtf8();
    request.generated = GeneratedNames(document);
    for (const IDRecord *record = document.ids.sentinel.next; record != &document.ids.sentinel; record = record->next)
        request.ids.insert(record->name);
    request.usedElsewhere = IdsInLayouts(document, request.ids, {});
    return request;
}

SourceNames ReadSources(const SourceRequest &request)
{
    return SourceReader(request).Read();
}
