#include "PackProject.h"

#include "PackCodes.h"
#include "Packer.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

quint32 U32(const QByteArray &bytes, qsizetype at)
{
    quint32 value = 0;
    for (int i = 3; i >= 0; --i)
        value = value << 8 | quint8(bytes.at(at + i));
    return value;
}

class PackTest : public testing::Test
{
protected:
    PackTest()
    {
        project.Put("demo/app.axf", PackProject::Elf());
        info.inputfilename = project.Narrow("demo/app.axf");
        info.outputfilename = project.Narrow("demo/app.out");
        info.scope = 1;
    }

    int Pack()
    {
        project.output.clear();
        project.trace.clear();
        return Packer::Pack(info, *project.model);
    }
    int PackDll()
    {
        info.packmode = PACK_TO_DLL;
        return Pack();
    }

    /// The new section of the output, found through the section table's last record.
    QByteArray Section(const QByteArray &file, quint32 *offset = nullptr)
    {
        const quint32 table = U32(file, 32);
        const quint16 count = quint16(U32(file, 48) & 0xFFFF);
        const qsizetype record = qsizetype(table) + 40 * (count - 1);
        if (offset)
            *offset = U32(file, record + 16);
        return file.mid(U32(file, record + 16), U32(file, record + 20));
    }

    PackProject project;
    packinfo info;
};

TEST_F(PackTest, TheDocumentedExampleComesOutByteForByte)
{
    project.Put("demo/AppLogo.img", "0123456789");
    project.Put("demo/bell.wav", "ding!");
    project.AddFile(project.audio, ".\\bell.wav", 1);
    project.AddString(project.AddLanguage(0), u"Hi"_s, 2);
    info.imageconvert = 1;
    ASSERT_EQ(Pack(), 0) << project.output.constData();

    const QByteArray expected =
        QByteArray::fromHex("4170704c6f676f2e696d6700" "30000000" "0a000000" // AppLogo.img, 48, 10
                            "7a65702d322e3000" "3c000000" "18000000"         // zep-2.0, 60, 24
                            "00" "3c000000" "00000000"                       // the end of the directory
                            "000000"
                            "30313233343536373839" "0000"
                            "0000ffff" "54000000" "01000000" "70000000" "ffffffff" "80000000"
                            "02000000" "02000000" "14000000" "ffffffff" "1c000000"
                            "48006900" "0000" "0000"
                            "0000000000000000" "64696e6721" "000000");
    ASSERT_EQ(expected.size(), 128);
    EXPECT_EQ(project.Get("demo/arm/app.res").toHex(), expected.toHex());
    EXPECT_EQ(Section(project.Get("demo/app.out")).toHex(), expected.toHex());
}

TEST_F(PackTest, AnIconAloneGivesThreeDirectoryRecordsAndOneTableRecord)
{
    ASSERT_EQ(Pack(), 0) << project.output.constData();
    EXPECT_EQ(project.Get("demo/arm/app.res"), BytesOf(PayloadBuilder().Entry("AppLogo.img", ToBytes("program's logo"))));
    EXPECT_THAT(project.output.toStdString(), HasSubstr("[warning] App icon file does not exist in project folder"));
}

} // namespace
