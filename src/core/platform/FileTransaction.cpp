#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"

FileTransaction::FileTransaction(Environment &environment) : env(environment)
{
    env.transaction = this;
}

FileTransaction::~FileTransaction()
{
    End();
}

void FileTransaction::End()
{
    if (env.transaction == this)
        env.transaction = nullptr;
    staged.clear();
}

int FileTransaction::Write(QStringView path, QByteArrayView bytes, IfRefused ifRefused)
{
    FileReplacement file;
    const int error = file.Write(path, bytes);
    if (error == 0)
        staged.push_back({std::move(file), path.toString(), ifRefused});
    return error;
}

QStringList FileTransaction::Replaced() const
{
    QStringList replaced;
    for (const Staged &item : staged) {
        if (item.file.Replaces())
            replaced.append(ResolvePath(item.path, CurrentFolder()));
    }
    return replaced;
}

std::optional<QString> FileTransaction::Commit()
{
    std::optional<QString> refused;
    QByteArray lastFolder;
    for (Staged &item : staged) {
        if (item.file.PutInPlace() != 0) {
            if (item.ifRefused == IfRefused::GoOn)
                continue;
            refused = item.path;
            break;
        }
        const QByteArray folder = item.file.Folder();
        if (folder != lastFolder && !lastFolder.isEmpty())
            SyncFolder(lastFolder);
        lastFolder = folder; // once for the files of one folder
    }
    if (!lastFolder.isEmpty())
        SyncFolder(lastFolder);
    End();
    return refused;
}
