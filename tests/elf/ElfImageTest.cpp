#include "ElfImage.h"

#include "../fixtures/TempFolder.h"
#include "ArmElf.h"
#include "ByteReader.h"
#include "Environment.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>

namespace
{

constexpr qsizetype E_SHOFF = 32;
constexpr qsizetype E_PHOFF = 28;
constexpr qsizetype E_PHNUM = 44;
constexpr qsizetype E_SHENTSIZE = 46;
constexpr qsizetype E_SHNUM = 48;
constexpr qsizetype E_SHSTRNDX = 50;

quint32 U32(const QByteArray &bytes, qsizetype at)
{
    return ByteReader(bytes).U32(quint64(at)).value_or(0xDEADBEEF);
}

quint16 U16(const QByteArray &bytes, qsizetype at)
{
    return ByteReader(bytes).U16(quint64(at)).value_or(0xDEAD);
}

template <typename T> QByteArray With(QByteArray bytes, qsizetype at, T number)
{
    qToLittleEndian(number, bytes.data() + at);
    return bytes;
}

/// A section of a grown file, found through its header's fields alone.
struct Found
{
    QByteArray name;
    QByteArray header; ///< 40 bytes
    quint32 offset, size;
};

Found SectionAt(const QByteArray &file, int index)
{
    const auto header = [&](int i) { return file.mid(U32(file, E_SHOFF) + qsizetype(i) * 40, 40); };
    const QByteArray own = header(index);
    const QByteArray names = header(U16(file, E_SHSTRNDX));
    return {QByteArray(file.mid(U32(names, 16), U32(names, 20)).mid(U32(own, 0)).constData()), own, U32(own, 16),
            U32(own, 20)};
}

class ElfImageTest : public testing::Test
{
protected:
    ElfImageTest() : env(folder.Path())
    {
        env.trace = [this](QStringView text) { trace += text.toUtf8(); };
    }

    /// Grows the bytes as the packer does: 0 or a code, and `grown` is what became of the copy.
    int Grow(const QByteArray &input, const QByteArray &payload)
    {
        folder.Put("in.axf", input);
        folder.Put("out.axf", input);
        ElfImage elf;
        int code = ReadElf(env, folder.Path("in.axf"), elf);
        if (!code)
            code = AddResSection(elf, payload);
        if (!code)
            code = SetElfLayout(env, elf);
        if (!code)
            code = WriteElf(env, elf, folder.Path("out.axf"));
        grown = folder.Get("out.axf");
        return code;
    }

    int Read(const QByteArray &input)
    {
        folder.Put("in.axf", input);
        ElfImage elf;
        return ReadElf(env, folder.Path("in.axf"), elf);
    }

    TempFolder folder;
    Environment env;
    QByteArray trace;
    QByteArray grown;
};

TEST_F(ElfImageTest, TheFileOnlyGrowsAtItsEndWhateverItsSize)
{
    const QByteArray payload = "payload!";
    for (qsizetype tail = 0; tail < 4; ++tail) {
        SCOPED_TRACE(tail);
        const QByteArray input =
            ArmElf().Segment().Section(".text", 61).Section(".bss", 5, ArmElf::NOBITS).Tail(tail).Bytes();
        ASSERT_EQ(Grow(input, payload), 0) << trace.constData();

        const qsizetype start = (input.size() + 3) / 4 * 4;
        const qsizetype table = start + payload.size();
        const quint32 nameTable = U16(input, E_SHNUM) - 1U;
        const quint32 nameTableSize = U32(input, U32(input, E_SHOFF) + nameTable * 40 + 20);
        QByteArray expected = With(With(input, E_SHOFF, quint32(table)), E_SHNUM, quint16(5));
        expected += QByteArray(start - input.size(), '\0') + payload;
        QByteArray headers = input.mid(U32(input, E_SHOFF), 4 * 40);
        headers = With(headers, nameTable * 40 + 16, quint32(table + 5 * 40));
        headers = With(headers, nameTable * 40 + 20, nameTableSize + 8);
        QByteArray added(40, '\0');
        added = With(With(added, 0, nameTableSize), 4, quint32(1));
        added = With(With(added, 8, quint32(2)), 16, quint32(start));
        expected += headers + With(added, 20, quint32(payload.size()));
        expected += input.mid(U32(input, U32(input, E_SHOFF) + nameTable * 40 + 16), nameTableSize) + ".zp_res" + '\0';
        EXPECT_EQ(grown, expected);
        EXPECT_EQ(trace, "");
    }
}

TEST_F(ElfImageTest, AnEmptyPayloadIsASectionWithoutBytes)
{
    ASSERT_EQ(Grow(ArmElf().Bytes(), {}), 0);
    EXPECT_EQ(SectionAt(grown, 2).name, ".zp_res");
    EXPECT_EQ(SectionAt(grown, 2).size, 0U);
}

TEST_F(ElfImageTest, AFileThatWasGrownBeforeGetsASecondSection)
{
    ASSERT_EQ(Grow(ArmElf().Section(".text", 10).Bytes(), "first"), 0);
    const QByteArray once = grown;
    ASSERT_EQ(Grow(once, "second"), 0);

    ASSERT_EQ(U16(grown, E_SHNUM), 5);
    const Found first = SectionAt(grown, 3);
    const Found second = SectionAt(grown, 4);
    EXPECT_EQ(first.name, ".zp_res");
    EXPECT_EQ(second.name, ".zp_res");
    EXPECT_NE(U32(first.header, 0), U32(second.header, 0));
    EXPECT_EQ(grown.mid(first.offset, first.size), "first");
    EXPECT_EQ(grown.mid(second.offset, second.size), "second");
    EXPECT_EQ(SectionAt(grown, 1).name, ".text");
    EXPECT_EQ(SectionAt(grown, 2).name, ".shstrtab");
}

TEST_F(ElfImageTest, EveryCutIsAnErrorAndNoneACrash)
{
    // The section table stands last, so each cut takes something that is wanted.
    const QByteArray whole = ArmElf().Segment().Section(".text", 16).Section(".bss", 64, ArmElf::NOBITS).Bytes();
    for (qsizetype size = 0; size < whole.size(); ++size) {
        SCOPED_TRACE(size);
        trace.clear();
        const int code = Read(whole.first(size));
        EXPECT_TRUE(size < 52 ? code == -1031 : code == -1036 || code == -1034) << code;
        EXPECT_EQ(trace.count("in.axf"), 1) << trace.constData();
    }
    EXPECT_EQ(Read(whole), 0);
}

TEST_F(ElfImageTest, EveryFailureOfReadingHasItsNumberAndText)
{
    const QByteArray good = ArmElf().Segment().Section(".text", 16).Bytes();
    const qsizetype table = U32(good, E_SHOFF);
    const auto fails = [&](const QByteArray &input, int code, const char *text) {
        trace.clear();
        EXPECT_EQ(Read(input), code) << text;
        EXPECT_EQ(trace, text + folder.Path("in.axf").toUtf8());
    };
    fails(good.first(51), -1031, "[error] read elf head fail: ");
    fails(With(good, E_PHOFF, quint32(good.size() - 31)), -1034, "[error] read program head error: ");
    fails(With(good, E_PHOFF, 0xFFFFFFFFU), -1034, "[error] read program head error: ");
    fails(With(good, E_PHNUM, quint16(0xFFFF)), -1034, "[error] read program head error: ");
    fails(With(good, E_SHOFF, quint32(good.size())), -1036, "[error] read section head error: ");
    fails(With(good, E_SHOFF, 0xFFFFFFFFU), -1036, "[error] read section head error: ");
    fails(With(good, table + 40 + 16, 0xFFFFFFF0U), -1038, "[error] could not read section data: ");
    fails(With(good, table + 40 + 20, 0xFFFFFFFFU), -1038, "[error] could not read section data: ");
    trace.clear();
    ElfImage elf;
    EXPECT_EQ(ReadElf(env, folder.Path("none.axf"), elf), -1030);
    EXPECT_EQ(trace, "[error]Could not open file: " + folder.Path("none.axf").toUtf8());
    EXPECT_EQ(ReadElf(env, folder.Path(), elf), -1030);
}

TEST_F(ElfImageTest, AFileWithoutANameTableCantBeGrown)
{
    const QByteArray good = ArmElf().Section(".text", 16).Bytes();
    const qsizetype names = U32(good, E_SHOFF) + 80;
    for (const QByteArray &input : {With(good, E_SHSTRNDX, quint16(3)), With(good, E_SHSTRNDX, quint16(0xFFFF)),
                                    With(good, E_SHSTRNDX, quint16(0)), With(good, names + 20, quint32(0)),
                                    ArmElf().NameTableType(ArmElf::NOBITS).Bytes(), QByteArray(52, '\0')})
        EXPECT_EQ(Read(input), -1040);
}

TEST_F(ElfImageTest, SizesOfSectionsWithoutBytesArentLookedAt)
{
    const QByteArray input = ArmElf().Section(".bss", 0xFFFFFFFF, ArmElf::NOBITS).Bytes();
    ASSERT_EQ(Grow(input, "x"), 0) << trace.constData();
    EXPECT_EQ(SectionAt(grown, 1).size, 0xFFFFFFFFU);

    const QByteArray empty = ArmElf().Section(".empty", 0).Bytes();
    EXPECT_EQ(Read(With(empty, U32(empty, E_SHOFF) + 40 + 16, 0xFFFFFFFFU)), 0);
}

TEST_F(ElfImageTest, NothingInTheHeaderIsTested)
{
    QByteArray input = ArmElf().Section(".text", 16).Bytes();
    for (qsizetype i = 0; i < 28; ++i)
        input[i] = char(0xA5);
    ASSERT_EQ(Grow(input, "x"), 0);
    EXPECT_EQ(grown.first(28), input.first(28));
    EXPECT_EQ(SectionAt(grown, 3).name, ".zp_res");
}

TEST_F(ElfImageTest, TheInputsHeadersMayStandFartherApartButTheNewOnesTouch)
{
    const QByteArray plain = ArmElf().Section(".text", 16).Bytes();
    ASSERT_EQ(Grow(plain, "payload"), 0);
    const QByteArray headers = grown.mid(U32(grown, E_SHOFF), 160);
    for (const quint16 step : {quint16(41), quint16(64), quint16(1000)}) {
        SCOPED_TRACE(step);
        const QByteArray input = ArmElf().Section(".text", 16).HeaderStep(step).Bytes();
        ASSERT_EQ(Grow(input, "payload"), 0);
        EXPECT_EQ(SectionAt(grown, 1).header, headers.mid(40, 40));
        EXPECT_EQ(SectionAt(grown, 3).name, ".zp_res");
        EXPECT_EQ(U16(grown, E_SHENTSIZE), step);
        EXPECT_EQ(Read(input.chopped(1)), -1036);
    }
    // With a step of 0 all records are the first one, which names no section's bytes here.
    EXPECT_EQ(Read(With(plain, E_SHENTSIZE, quint16(0))), -1040);
}

TEST_F(ElfImageTest, TheLastSectionNumberThat16BitsCanTellIsTaken)
{
    // Names are left out: all sections share the empty one.
    QByteArray input = ArmElf().Section("", 0).HeaderStep(0).Bytes();
    const auto grow = [&](quint16 count) {
        QByteArray bytes = With(With(input, E_SHENTSIZE, quint16(40)), E_SHNUM, count);
        bytes = With(bytes, E_SHOFF, quint32(bytes.size()));
        bytes = With(bytes, E_SHSTRNDX, quint16(1));
        QByteArray table(qsizetype(count) * 40, '\0');
        table = With(With(table, 40 + 4, quint32(3)), 40 + 16, quint32(52));
        return Grow(bytes + With(table, 40 + 20, quint32(1)), "payload");
    };
    ASSERT_EQ(grow(65534), 0) << trace.constData();
    EXPECT_EQ(U16(grown, E_SHNUM), 65535);
    EXPECT_EQ(SectionAt(grown, 65534).name, ".zp_res");
    EXPECT_EQ(grow(65535), -1041);
}

TEST_F(ElfImageTest, AFileThatWouldPass32BitsIsRefused)
{
    folder.Put("in.axf", ArmElf().Bytes());
    for (const quint64 size : {quint64(0xFFFFFFFF), quint64(0xFFFFFFFE) - 8 - 11 - 3 * 40, quint64(5) << 32}) {
        ElfImage elf;
        ASSERT_EQ(ReadElf(env, folder.Path("in.axf"), elf), 0);
        AddResSection(elf, "12345678");
        elf.inputSize = size;
        EXPECT_EQ(SetElfLayout(env, elf), -1041) << size;
    }
    ElfImage elf;
    ASSERT_EQ(ReadElf(env, folder.Path("in.axf"), elf), 0);
    AddResSection(elf, "12345678");
    elf.inputSize = 0xFFFFFFFC - 8 - 3 * 40 - quint64(elf.nameTable.size()) - 4;
    EXPECT_EQ(SetElfLayout(env, elf), 0);
}

TEST_F(ElfImageTest, ACopyOfAnotherSizeIsntGrown)
{
    const QByteArray input = ArmElf().Section(".text", 16).Bytes();
    folder.Put("in.axf", input);
    ElfImage elf;
    ASSERT_EQ(ReadElf(env, folder.Path("in.axf"), elf), 0);
    AddResSection(elf, "payload");
    ASSERT_EQ(SetElfLayout(env, elf), 0);
    folder.Put("out.axf", input + 'x');
    EXPECT_EQ(WriteElf(env, elf, folder.Path("out.axf")), -1042);
    EXPECT_EQ(folder.Get("out.axf"), input + 'x');
    EXPECT_EQ(WriteElf(env, elf, folder.Path("none/out.axf")), ENOENT);
    EXPECT_TRUE(trace.endsWith("[error] could not open file while write data to file: " +
                               folder.Path("none/out.axf").toUtf8()));
}

/// Runs `WriteElf` in a process of its own where no file may pass `limit` bytes; its code's negative, at most 8 bits of
/// it.
int WriteWithin(rlim_t limit, Environment &env, const ElfImage &elf, const QString &path)
{
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit most{limit, limit};
        setrlimit(RLIMIT_FSIZE, &most);
        _exit(-WriteElf(env, elf, path) & 0xFF);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(ElfImageTest, AFullDiskAtAnyByteLeavesTheInputWithBytesBehindIt)
{
    const QByteArray input = ArmElf().Segment().Section(".text", 21).Tail(2).Bytes();
    folder.Put("in.axf", input);
    ElfImage elf;
    ASSERT_EQ(ReadElf(env, folder.Path("in.axf"), elf), 0);
    AddResSection(elf, "payload!");
    ASSERT_EQ(SetElfLayout(env, elf), 0);
    ASSERT_EQ(Grow(input, "payload!"), 0);
    const QByteArray whole = grown;

    for (qsizetype limit = input.size(); limit < whole.size(); ++limit) {
        SCOPED_TRACE(limit);
        folder.Put("out.axf", input);
        ASSERT_EQ(WriteWithin(rlim_t(limit), env, elf, folder.Path("out.axf")), 1029 & 0xFF);
        const QByteArray left = folder.Get("out.axf");
        EXPECT_EQ(left.first(input.size()), input);
        EXPECT_EQ(left.mid(input.size()), whole.mid(input.size(), limit - input.size()));
    }
    folder.Put("out.axf", input);
    EXPECT_EQ(WriteWithin(rlim_t(whole.size()), env, elf, folder.Path("out.axf")), 0);
    EXPECT_EQ(folder.Get("out.axf"), whole);
}

TEST_F(ElfImageTest, NoBytesOfTheTablesCrashIt)
{
    const QByteArray good = ArmElf().Segment().Section(".text", 8).Section(".bss", 9, ArmElf::NOBITS).Bytes();
    int fine = 0;
    for (qsizetype at = 0; at < good.size(); ++at) {
        for (const int value : {0x00, 0x41, 0xFF}) {
            QByteArray bad = good;
            bad[at] = char(value);
            const int code = Grow(bad, "payload");
            fine += code == 0;
            EXPECT_EQ(grown.mid(52, bad.size() - 52), bad.mid(52)) << at;
            EXPECT_TRUE(code == 0 || grown == bad) << at;
        }
    }
    EXPECT_GT(fine, 0);
}

} // namespace
