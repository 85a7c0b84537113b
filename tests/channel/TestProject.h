#pragma once

#include "CResDoc.h"
#include "HostFiles.h"
#include "Paths.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A program folder and a small project on disk: one audio file with an ID, two known resolutions, a tiny ELF file to
/// pack into.
class TestProject
{
public:
    TestProject()
    {
        for (const char *name : {"bin", "demo", "demo/res", "demo/arm"})
            EXPECT_TRUE(CreateFolderOnDisk(Path(name)));
        Put("bin/Morvanite.ini", "[Path]\r\nreso_set=resolutions.ini\r\n");
        Put("bin/resolutions.ini", "[Resolution]\r\n176x220\r\n240x320\r\n");
        Put("bin/tuvik.ini", "[Language]\r\nEnglish=0\r\n");
        Put("bin/AppLogo.img", "a drawn logo");
        Put("demo/config.xml", "<config><zxa><zepversion>20</zepversion></zxa>"
                               "<resolution><Width>240</Width><Height>320</Height></resolution></config>");
        Put("demo/res/demo.res.xml", "<APP><FILE id=\"ID_AUDIO_BELL\">.\\bell.wav</FILE></APP>");
        Put("demo/bell.wav", "ding dong");
        Put("demo/app.axf", TinyElf());
    }

    [[nodiscard]] QString Path(const char *name) const { return folder.filePath(QString::fromUtf8(name)); }
    [[nodiscard]] QString ProgramDir() const { return Path("bin"); }
    [[nodiscard]] QString Project() const { return Path("demo/demo.vcproj"); }

    void Put(const char *name, const QByteArray &bytes) const { EXPECT_EQ(WriteFileAtomically(Path(name), bytes), 0); }
    [[nodiscard]] QByteArray Get(const char *name) const
    {
        QByteArray bytes;
        EXPECT_EQ(ReadFile(Path(name), bytes), 0) << name;
        return bytes;
    }

    /// A 32-bit little-endian ELF file for ARM: header, the names of its sections, and the table of two.
    static QByteArray TinyElf()
    {
        QByteArray elf("\x7f"
                       "ELF\1\1\1",
                       7);
        elf.append(9, '\0');
        const auto half = [&](quint16 value) { elf.append(char(value)).append(char(value >> 8)); };
        const auto word = [&](quint32 value) {
            half(quint16(value));
            half(quint16(value >> 16));
        };
        half(2);                                                   // executable
        half(40);                                                  // ARM
        for (const quint32 value : {1U, 0U, 0U, 64U, 0x05000000U}) // version, entry, program headers, sections, flags
            word(value);
        for (const int value : {52, 32, 0, 40, 2, 1}) // sizes and counts; the names are in section 1
            half(quint16(value));
        elf.append("\0.shstrtab\0\0", 12);
        elf.append(40, '\0');
        for (const quint32 value : {1U, 3U, 0U, 0U, 52U, 11U, 0U, 0U, 1U, 0U})
            word(value);
        return elf;
    }

private:
    QTemporaryDir folder;
};
