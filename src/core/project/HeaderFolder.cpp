// SPDX-License-Identifier: MIT
#include "HeaderFolder.h"

#include "CResDoc.h"
#include "Environment.h"
#include "HostFiles.h"
#include "IDGen.h"
#include "LayoutExport.h"
#include "OutputGuard.h"
#include "Packer.h"
#include "Paths.h"
#include "ProjectFiles.h"
#include "ProjectInputs.h"
#include "TemporaryFolder.h"

#include <QDir>

#include <cstring>

using namespace Qt::StringLiterals;

HeaderFolder::HeaderFolder(CResDoc &document, QString folderPath) : doc(document), folder(std::move(folderPath)) {}

QString HeaderFolder::Write()
{
    files.clear();
    if (!QDir().mkpath(folder))
        return u"%1: the folder can't be created: %2"_s.arg(folder, QString::fromLocal8Bit(strerror(errno)));
    std::vector<GeneratedHeader> headers;
    if (IDGen::MakeHeaders(&doc.ids, doc.env.settings.String("Path", "header_output", ".\\ResID"), doc, headers) != 0)
        return u"%1: more IDs of one kind than there are numbers"_s.arg(doc.PathName());
    for (GeneratedHeader &header : headers)
        files.push_back({HeaderIn(folder, header.name), std::move(header.text)});
    if (HasLayoutTables(doc.env)) {
        if (QString problem = MakeTables(); !problem.isEmpty())
            return problem;
    }
    return WriteAll();
}

QString HeaderFolder::MainHeader() const
{
    return folder + u'/' + NamesBySettings(doc.env).front();
}

QStringList HeaderFolder::NamesBySettings(const Environment &env)
{
    QStringList names{HeaderIn({}, env.settings.String("ResID", "main_header", "ResID.h")).sliced(1)};
    if (HasLayoutTables(env))
        names.append(u"LayoutID.h"_s);
    return names;
}

QString HeaderFolder::MakeTables()
{
    if (const QString catalogue = LayoutTableInputs(doc.env).value(1); !PathExists(catalogue))
        return u"%1: the catalogue that the key export_xml names does not exist"_s.arg(catalogue);
    const TemporaryFolder temporary(HostPath(folder), "tables");
    if (temporary.Error() != 0)
        return u"%1: %2"_s.arg(folder, QString::fromLocal8Bit(strerror(temporary.Error())));
    const QDir made(QString::fromUtf8(temporary.Path()));
    const QString projectFolder = DirectoryOf(doc.PathName());
    if (!SetCurrentFolder(projectFolder))
        return u"%1: the project's folder does not exist any more"_s.arg(projectFolder);
    MakeLayoutTables(doc.env, projectFolder, made.path());
    bool hasHeader = false;
    for (const QString &name : made.entryList(QDir::Files, QDir::Name)) {
        File file{folder + u'/' + name, {}};
        if (const int error = ReadFile(made.filePath(name), file.text))
            return u"%1: %2"_s.arg(made.filePath(name), QString::fromLocal8Bit(strerror(error)));
        hasHeader = hasHeader || name.endsWith(u".h");
        files.push_back(std::move(file));
    }
    return hasHeader
               ? QString()
               : u"the layout converter didn't write the header of its tables (keys export_xml and export_layout)"_s;
}

QString HeaderFolder::WriteAll()
{
    FileTransaction transaction(doc.env);
    for (const File &file : files) {
        if (!QDir().mkpath(DirectoryOf(file.path)))
            return u"%1: the folder can't be created"_s.arg(DirectoryOf(file.path));
        if (const int error = transaction.Write(file.path, OnePiece(file.text), IfRefused::Stop))
            return u"%1: %2"_s.arg(file.path, QString::fromLocal8Bit(strerror(error)));
    }
    const std::optional<QString> refused = transaction.Commit();
    return refused ? u"%1: can't be replaced"_s.arg(*refused) : QString();
}

QStringList HeaderFolder::Inputs() const
{
    QStringList inputs = ProjectInputs(doc);
    for (const QString &file : HasLayoutTables(doc.env) ? LayoutTableInputs(doc.env) : QStringList()) {
        if (PathExists(file))
            inputs.append(file);
    }
    return inputs;
}

QString HeaderFolder::FileThatIs(const QString &path) const
{
    OutputGuard guard({HostPath(path)});
    CompareAllProjectFiles(guard, Inputs(), doc);
    for (const File &file : files)
        guard.Compare(HostPath(file.path));
    return QString::fromUtf8(guard.File());
}
