// SPDX-License-Identifier: MIT
#include "SourceNames.h"

#include "CResDoc.h"
#include "CheckInput.h"
#include "FileFault.h"
#include "HeaderFolder.h"
#include "HostFiles.h"
#include "IDGen.h"
#include "LayoutSurvey.h"
#include "Paths.h"
#include "SourceFiles.h"
#include "SourceScanner.h"

using namespace Qt::StringLiterals;

namespace
{

/// Returns the file names of the headers that are generated from the project. They have all IDs and use none.
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
    explicit SourceReader(const CheckInput &checkInput)
        : input(checkInput), ids(input.document.ids), prefix(input.settings.sourcePrefix.toUtf8())
    {
    }

    SourceNames Read()
    {
        const QSet<QString> generated = GeneratedNames(input.document);
        QSet<QString> seen;
        for (const QString &pattern : input.settings.sourceFiles) {
            const QStringList files = FilesOfPattern(DirectoryOf(input.document.PathName()), pattern);
            if (files.isEmpty())
                names.patternsWithoutFile.append(pattern);
            for (const QString &file : files) {
                if (!seen.contains(file) && !generated.contains(FileName(file)))
                    ReadSource(file);
                seen.insert(file);
            }
        }
        std::erase_if(names.unknown, [this](const auto &unknown) { return defined.contains(unknown.name); });
        for (const ListedLayout &layout : ListLayouts(input.document))
            ReadComponents(layout.layout->components);
        return std::move(names);
    }

private:
    void ReadSource(const QString &file)
    {
        QByteArray bytes;
        if (const int error = ReadFile(file, bytes)) {
            names.unreadable.append(WhyNotRead(file, error));
            return;
        }
        ++names.files;
        QSet<NarrowText> told;
        SourceScanner scanner(bytes);
        for (SourceName name; scanner.Next(name);) {
            // A copy is made only of names that are kept.
            const NarrowText word = NarrowText::fromRawData(name.text.data(), name.text.size());
            const bool hasPrefix = word.startsWith(prefix) && word.size() > prefix.size();
            if (name.isDefined) {
                if (hasPrefix)
                    defined.insert(name.text.toByteArray());
            } else if (ids.FindName(word)) {
                Use(name.text);
            } else if (hasPrefix && !told.contains(word)) {
                told.insert(name.text.toByteArray());
                const int column = int(QString::fromUtf8(name.before).size()) + 1;
                names.unknown.push_back({name.text.toByteArray(), file, name.line, column});
            }
        }
    }

    void Use(QByteArrayView name)
    {
        if (!names.used.contains(NarrowText::fromRawData(name.data(), name.size())))
            names.used.insert(name.toByteArray());
    }

    void ReadComponents(const std::vector<std::unique_ptr<ComponentObject>> &components)
    {
        for (const auto &component : components) {
            for (const AttributeRecord &attribute : component->attributes) {
                SourceScanner scanner(attribute.value); // references are such as "@ID_LOGO" and "{@ID_UP, @ID_DOWN}"
                for (SourceName name; scanner.Next(name);) {
                    if (ids.FindName(NarrowText::fromRawData(name.text.data(), name.text.size())))
                        Use(name.text);
                }
            }
            ReadComponents(component->children);
        }
    }

    const CheckInput &input;
    IDPool &ids;
    QByteArray prefix;
    QSet<NarrowText> defined;
    SourceNames names;
};

} // namespace

SourceNames ReadSources(const CheckInput &input)
{
    return SourceReader(input).Read();
}
