// SPDX-License-Identifier: MIT
#pragma once

#include "ElfBuilder.h"
#include "Packer.h"
#include "TestModel.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

/// Returns the bytes of an expected payload.
inline QByteArray BytesOf(const PayloadBuilder::Bytes &bytes)
{
    return {reinterpret_cast<const char *>(bytes.data()), qsizetype(bytes.size())};
}

inline PayloadBuilder::Bytes ToBytes(const QByteArray &text)
{
    return {text.begin(), text.end()};
}

/// A project whose tree a test fills directly, in the current folder, beside the application into which it is packed.
struct PackProject : TestModel
{
    explicit PackProject(const QByteArray &settings = {}, size_t text = 64) : TestModel(settings)
    {
        elf = BytesOf(ElfBuilder().Section(".text", ElfBuilder::Bytes(text, 0x5A)).Build());
        folder.Put("app.axf", elf);
        folder.Put("bin/AppLogo.img", "program's logo");
        folder.MakeFolder("arm");
        QDir::setCurrent(folder.Path());
        env.explain = [this](const QString &line) { explained += line.toUtf8() + '\n'; };
        info.inputfilename = Narrow("app.axf");
        info.outputfilename = Narrow("app.out");
        info.scope = 1;
    }

    [[nodiscard]] QByteArray Narrow(const char *file) const { return folder.Path(file).toUtf8(); }
    [[nodiscard]] int Mode(const char *file) const
    {
        struct stat of;
        return stat(Narrow(file).constData(), &of) == 0 ? int(of.st_mode & 0777) : -1;
    }

    /// Replaces a tool by a shell script. The image converter gets its source as $3 and its target as $4.
    void PutTool(const QByteArray &body, const char *file = "bin/qrk_resgenerator.exe") const
    {
        folder.Put(file, "#!/bin/sh\n" + body + "\n");
        EXPECT_EQ(chmod(Narrow(file).constData(), 0755), 0);
    }

    CFileRes *AddFile(CResFolder &to, const QByteArray &file, quint32 value)
    {
        to.AddResource(CreateFileRes("ID_" + QByteArray::number(++made), qint16(to.index)));
        auto *res = static_cast<CFileRes *>(to.resources.Last());
        res->path = file;
        res->Id()->value = value;
        return res;
    }

    /// Adds a language's folder; the first call adds the column of descriptions before it.
    void AddLanguage(qint32 number, const PayloadBuilder::Strings &texts = {})
    {
        if (strings.subfolders.empty())
            AddFolder(strings, KIND_LANGUAGE);
        CResFolder &language = AddFolder(strings, KIND_LANGUAGE, number);
        for (const auto &[value, text] : texts) {
            auto res = CreateStringRes("ID_" + QByteArray::number(++made));
            res->SetText(text);
            res->Id()->value = value;
            language.AddResource(std::move(res));
        }
    }

    /// Returns what was explained since the last call, a line each.
    [[nodiscard]] QByteArray TakeExplained() { return std::exchange(explained, {}); }

    /// Packs. `output` and `trace` are those of this pack.
    int Pack(qint32 mode = PACK_TO_TARGET, std::vector<QByteArray> *inputs = nullptr)
    {
        trace.clear();
        info.packmode = mode;
        const int code = Packer::Pack(info, *this, inputs);
        output = TakeOutput();
        return code;
    }

    QByteArray elf; ///< the application's file
    QByteArray explained;
    packinfo info;
    QByteArray output;
    CResFolder &files = AddFolder(root, KIND_FILES);
    CResFolder &audio = AddFolder(files, KIND_AUDIO);
    CResFolder &binary = AddFolder(files, KIND_BINARY);
    CResFolder &images = AddFolder(root, KIND_IMAGES);
    CResFolder &wideImages = AddFolder(images, KIND_RESO_IMAGES, 1);
    CResFolder &defaultImages = AddFolder(images, KIND_RESO_IMAGES);
    CResFolder &strings = AddFolder(root, KIND_STRINGS);
    int made = 0;
};
