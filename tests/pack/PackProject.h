#pragma once

#include "Environment.h"
#include "HostFiles.h"
#include "ResModel.h"

#include "ElfBuilder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

/// A project that a test fills by hand.
class HandModel : public CResModel
{
public:
    using CResModel::CResModel;
    [[nodiscard]] const QString &PathName() const override { return path; }
    QString path;
};

/// A program's folder and a project's folder on disk, the tree of a project, and both logs. The project's folder is the
/// current one while this lives.
class PackProject
{
public:
    PackProject()
    {
        for (const char *name : {"bin", "demo", "demo/res", "demo/arm"})
            EXPECT_TRUE(CreateFolderOnDisk(Path(name)));
        Put("bin/AppLogo.img", "program's logo");
        Reset();
        SetCurrentFolder(Path("demo"));
    }
    ~PackProject() { SetCurrentFolder(u"/"); }
    PackProject(const PackProject &) = delete;
    PackProject &operator=(const PackProject &) = delete;

    /// Begins with an empty tree and the settings that stand in the program's file now.
    void Reset()
    {
        model.reset();
        env = std::make_unique<Environment>(Path("bin"));
        env->output = [this](QStringView text) { output += text.toUtf8(); };
        env->trace = [this](QStringView text) { trace += text.toUtf8(); };
        model = std::make_unique<HandModel>(*env, tables);
        model->path = Path("demo/demo.vcproj");
        CResFolder *files = Attach(model->root, KIND_FILES, -1);
        audio = Attach(*files, KIND_AUDIO, -1);
        Attach(*files, KIND_VIDEO, -1);
        binary = Attach(*files, KIND_BINARY, -1);
        CResFolder *images = Attach(model->root, KIND_IMAGES, -1);
        Attach(*images, KIND_RESO_IMAGES | KIND_FLAG_OFF, 0);
        wideImages = Attach(*images, KIND_RESO_IMAGES, 1);
        defaultImages = Attach(*images, KIND_RESO_IMAGES, -1);
        strings = Attach(model->root, KIND_STRINGS, -1);
    }

    [[nodiscard]] QString Path(const QByteArray &name) const { return folder.filePath(QString::fromUtf8(name)); }
    [[nodiscard]] QByteArray Narrow(const QByteArray &name) const { return Path(name).toUtf8(); }

    void Put(const QByteArray &name, const QByteArray &bytes) const
    {
        EXPECT_EQ(WriteFileAtomically(Path(name), bytes), 0) << name.constData();
    }
    [[nodiscard]] QByteArray Get(const QByteArray &name) const
    {
        QByteArray bytes;
        EXPECT_EQ(ReadFile(Path(name), bytes), 0) << name.constData();
        return bytes;
    }
    [[nodiscard]] bool Has(const QByteArray &name) const { return access(Narrow(name).constData(), F_OK) == 0; }
    [[nodiscard]] int Mode(const QByteArray &name) const
    {
        struct stat info;
        return stat(Narrow(name).constData(), &info) == 0 ? int(info.st_mode & 0777) : -1;
    }

    CFileRes *AddFile(CResFolder *to, const QByteArray &path, quint32 value)
    {
        auto res = model->CreateFileRes("ID_" + QByteArray::number(++made), qint16(to->index));
        res->path = path;
        res->Id()->value = value;
        auto *kept = res.get();
        to->AddResource(std::move(res));
        return kept;
    }

    /// A language's folder; the column of descriptions is made before the first.
    CResFolder *AddLanguage(qint32 number)
    {
        if (strings->subfolders.empty())
            Attach(*strings, KIND_LANGUAGE, -1);
        return Attach(*strings, KIND_LANGUAGE, number);
    }
    void AddString(CResFolder *language, const QString &text, quint32 value)
    {
        auto res = model->CreateStringRes("ID_" + QByteArray::number(++made), language->index);
        res->text = text;
        res->Id()->value = value;
        language->AddResource(std::move(res));
    }

    /// Puts a shell script in the place of the image converter; $3 is the source, $4 the target.
    void PutConverter(const QByteArray &body) { PutTool("bin/qrk_resgenerator.exe", body); }
    void PutTool(const QByteArray &name, const QByteArray &body)
    {
        Put(name, "#!/bin/sh\n" + body + "\n");
        EXPECT_EQ(chmod(Narrow(name).constData(), 0755), 0);
    }

    static QByteArray Elf(qsizetype text = 64)
    {
        const auto bytes = ElfBuilder().Section(".text", ElfBuilder::Bytes(size_t(text), 0x5A)).Build();
        return {reinterpret_cast<const char *>(bytes.data()), qsizetype(bytes.size())};
    }

    QTemporaryDir folder;
    ProcessTables tables;
    std::unique_ptr<Environment> env;
    std::unique_ptr<HandModel> model;
    CResFolder *audio = nullptr;
    CResFolder *binary = nullptr;
    CResFolder *wideImages = nullptr; ///< of resolution 1
    CResFolder *defaultImages = nullptr;
    CResFolder *strings = nullptr;
    QByteArray output;
    QByteArray trace;

private:
    CResFolder *Attach(CResFolder &parent, quint32 kind, qint32 index)
    {
        auto made_ = model->CreateFolder(kind, index);
        auto *kept = made_.get();
        parent.AddFolder(std::move(made_));
        return kept;
    }

    int made = 0;
};

/// Bytes of an expected payload.
inline QByteArray BytesOf(const PayloadBuilder &payload)
{
    const auto bytes = payload.Build();
    return {reinterpret_cast<const char *>(bytes.data()), qsizetype(bytes.size())};
}

inline PayloadBuilder::Bytes ToBytes(const QByteArray &text)
{
    return {text.begin(), text.end()};
}
