// SPDX-License-Identifier: MIT
#include "ElfImage.h"

#include "../device/ElfBuilder.h"
#include "../fixtures/TestModel.h"
#include "ByteReader.h"
#include "OutputFile.h"

#include <QtEndian>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype E_PHOFF = 28;
constexpr qsizetype E_SHOFF = 32;
constexpr qsizetype E_PHNUM = 44;
constexpr qsizetype E_SHENTSIZE = 46;
constexpr qsizetype E_SHNUM = 48;
constexpr qsizetype E_SHSTRNDX = 50;

quint32 U32(const QByteArray &bytes, qsizetype at)
{
    return ByteReader(bytes).U32(quint64(at)).value_or(0xDEADBEEF);
}

template <typename T> QByteArray With(QByteArray bytes, qsizetype at, T number)
{
    qToLittleEndian(number, bytes.data() + at);
    return bytes;
}

QByteArray Bytes(const ElfBuilder &elf)
{
    return QByteArray::fromStdString(elf.Build());
}

/// Returns the expected output: `count` headers at a distance of `step`; header `nameTable` is that of the name table.
QByteArray Grown(const QByteArray &input, const QByteArray &payload, quint16 count, quint16 step, quint16 nameTable)
{
    const qsizetype start = (input.size() + 3) / 4 * 4;
    const qsizetype table = start + payload.size();
    QByteArray headers;
    for (int i = 0; i < count; ++i)
        headers += input.mid(U32(input, E_SHOFF) + i * step, 40);
    const qsizetype place = nameTable * 40;
    const QByteArray names = input.mid(U32(headers, place + 16), U32(headers, place + 20)) + ".zp_res" + '\0';
    headers = With(headers, place + 16, quint32(table + 40 * (count + 1)));
    headers = With(headers, place + 20, quint32(names.size()));
    headers += QByteArray::fromStdString(
        PayloadBuilder::U32({size_t(names.size()) - 8, 1, 2, 0, size_t(start), size_t(payload.size()), 0, 0, 0, 0}));
    return With(With(input, E_SHOFF, quint32(table)), E_SHNUM, quint16(count + 1)) +
           QByteArray(start - input.size(), '\0') + payload + headers + names;
}

struct ElfImageTest : testing::Test, TestProgram
{
    int Read(const QByteArray &input)
    {
        folder.Put("in.axf", input);
        return ReadElf(*env, folder.Path("in.axf"), elf);
    }

    int Prepare(const QByteArray &input, const QByteArray &newPayload)
    {
        payload = newPayload;
        const int code = Read(input);
        return code ? code : AddResSection(elf, quint64(payload.size())) ? -1 : SetElfLayout(*env, elf);
    }

    int Write()
    {
        OutputFile made(*env);
        int code = made.Begin(folder.Path("out.axf").toUtf8(), {});
        if (!code)
            code = WriteElf(*env, elf, made, folder.Path("out.axf").toUtf8(),
                            [&](OutputFile &to) { return to.Write(payload) && to.Flush() ? 0 : int(ElfCode::Write); });
        return code ? code : made.PutInPlace();
    }

    /// Extends the bytes as the packer does. Returns 0 or a code; `grown` is the result.
    int Grow(const QByteArray &input, const QByteArray &newPayload = "payload")
    {
        const int code = Prepare(input, newPayload);
        const int written = code ? code : Write();
        grown = written ? QByteArray() : folder.Get("out.axf");
        return written;
    }

    ElfImage elf;
    QByteArray payload;
    QByteArray grown;
};

} // namespace

TEST_F(ElfImageTest, AppendsToTheFileWithoutCheckingItsHeader)
{
    const ElfBuilder program =
        ElfBuilder(1).Section(".text", "code").Section(".bss", "", ElfBuilder::NoBits, 0xFFFFFFFF);
    for (qsizetype tail = 0; tail < 4; ++tail) {
        const QByteArray input = Bytes(program) + QByteArray(tail, 't');
        ASSERT_EQ(Grow(input), 0);
        EXPECT_EQ(grown, Grown(input, "payload", 4, 40, 3)) << tail;
    }
    const QByteArray once = grown;
    ASSERT_EQ(Grow(once, "second"), 0);
    EXPECT_EQ(grown, Grown(once, "second", 5, 40, 3));
    ASSERT_EQ(Grow(Bytes(ElfBuilder()), {}), 0);
    EXPECT_EQ(grown, Grown(Bytes(ElfBuilder()), {}, 2, 40, 1));

    const QByteArray strange = QByteArray(28, '\xA5') + Bytes(ElfBuilder().Section(".text", "code")).mid(28);
    ASSERT_EQ(Grow(strange), 0);
    EXPECT_EQ(grown, Grown(strange, "payload", 3, 40, 2));
    // The input's headers may have gaps between them, but the new ones don't.
    for (const quint16 step : {quint16(41), quint16(1000)}) {
        const QByteArray wide = Bytes(ElfBuilder(0, step).Section(".text", "code"));
        ASSERT_EQ(Grow(wide), 0);
        EXPECT_EQ(grown, Grown(wide, "payload", 3, step, 2));
        EXPECT_EQ(Read(wide.chopped(1)), -1036);
    }
}

TEST_F(ElfImageTest, ReportsEveryReadFailureWithNumberAndText)
{
    // The section table is last, so each truncation removes a necessary part.
    const QByteArray good = Bytes(ElfBuilder(1).Section(".text", "code").Section(".empty", ""));
    for (qsizetype size = 0; size < good.size(); ++size) {
        const int code = Read(good.first(size));
        EXPECT_TRUE(size < 52 ? code == -1031 : code == -1036 || code == -1034) << size << ' ' << code;
    }
    const qsizetype text = U32(good, E_SHOFF) + 40;
    EXPECT_EQ(Read(With(good, text + 40 + 16, 0xFFFFFFFFU)), 0) << "an empty section has no place";
    const auto fails = [&](int code, const char *line, const QByteArray &input) {
        trace.clear();
        EXPECT_EQ(Read(input), code) << line;
        EXPECT_EQ(trace, line + folder.Path("in.axf").toUtf8());
    };
    fails(-1031, "[error] read elf head fail: ", good.first(51));
    fails(-1034, "[error] read program head error: ", With(good, E_PHOFF, quint32(good.size() - 31)));
    fails(-1034, "[error] read program head error: ", With(good, E_PHOFF, 0xFFFFFFFFU));
    fails(-1034, "[error] read program head error: ", With(good, E_PHNUM, quint16(0xFFFF)));
    fails(-1036, "[error] read section head error: ", With(good, E_SHOFF, quint32(good.size())));
    fails(-1036, "[error] read section head error: ", With(good, E_SHOFF, 0xFFFFFFFFU));
    fails(-1038, "[error] could not read section data: ", With(good, text + 16, 0xFFFFFFF0U));
    fails(-1038, "[error] could not read section data: ", With(good, text + 20, 0xFFFFFFFFU));
    fails(-1038, "[error] could not read section data: ", With(good, text + 2 * 40 + 16, 0xFFFFFFF0U));
    const char *noNames = "[error] no section name table to put the name .zp_res into: ";
    for (const int section : {0, 4, 0xFFFF})
        fails(-1040, noNames, With(good, E_SHSTRNDX, quint16(section)));
    fails(-1040, noNames, With(good, text + 2 * 40 + 20, quint32(0)));
    fails(-1040, noNames, With(good, text + 2 * 40 + 4, ElfBuilder::NoBits));
    fails(-1040, noNames, With(good, E_SHENTSIZE, quint16(0))); // every header is then the first one
    fails(-1040, noNames, QByteArray(52, '\0'));
    trace.clear();
    EXPECT_EQ(ReadElf(*env, folder.Path("none.axf"), elf), -1030);
    EXPECT_EQ(trace, "[error]Could not open file: " + folder.Path("none.axf").toUtf8());
    EXPECT_EQ(ReadElf(*env, folder.Path(), elf), -1030);
}

TEST_F(ElfImageTest, AcceptsTheLargestValuesOfTheFormat)
{
    // A header, one byte of names, and a table of `count` sections, of which the second has the names.
    const auto grow = [&](quint16 count) {
        QByteArray table(count * 40, '\0');
        table = With(With(With(table, 44, quint32(3)), 56, quint32(52)), 60, quint32(1));
        QByteArray head = With(With(QByteArray(53, '\0'), E_SHOFF, quint32(53)), E_SHENTSIZE, quint16(40));
        return Grow(With(With(head, E_SHNUM, count), E_SHSTRNDX, quint16(1)) + table);
    };
    ASSERT_EQ(grow(65534), 0);
    EXPECT_EQ(U32(grown, E_SHNUM) & 0xFFFF, 65535U);
    EXPECT_EQ(grow(65535), -1041);

    ASSERT_EQ(Prepare(Bytes(ElfBuilder()), "12345678"), 0);
    const quint64 behind = 8 + 3 * 40 + quint64(elf.nameTable.size());
    for (const auto &[size, code] : {std::pair(0xFFFFFFFC - behind, 0),
                                     {0xFFFFFFFF - behind + 1, -1041},
                                     {quint64(0xFFFFFFFF), -1041},
                                     {quint64(5) << 32, -1041}}) {
        elf.inputSize = size;
        EXPECT_EQ(SetElfLayout(*env, elf), code) << size;
    }
}

TEST_F(ElfImageTest, RefusesAnInputThatChangesItsSize)
{
    folder.Put("out.axf", "old");
    ASSERT_EQ(Prepare(Bytes(ElfBuilder()), "payload"), 0);
    folder.Put("in.axf", Bytes(ElfBuilder()) + 'x');
    EXPECT_EQ(Write(), -1042);
    EXPECT_EQ(folder.Get("out.axf"), "old");
}

TEST_F(ElfImageTest, AMissingSectionTableIsNoErrorButKeepsTheOldFile)
{
    folder.Put("out.axf", "old");
    const QByteArray input = Bytes(ElfBuilder());
    ASSERT_EQ(Prepare(input, "12345678"), 0);
    // The write beyond the limit fails, and later writes don't.
    struct sigaction action = {}, before;
    action.sa_handler = [](int) {
        const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &none);
    };
    ASSERT_EQ(sigaction(SIGXFSZ, &action, &before), 0);
    const rlimit limit{rlim_t(elf.PayloadOffset() + 8), RLIM_INFINITY};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    EXPECT_EQ(Write(), 0);
    sigaction(SIGXFSZ, &before, nullptr);
    EXPECT_EQ(folder.Get("out.axf"), "old");
    EXPECT_TRUE(trace.contains("[error] write section head error: "));
    EXPECT_EQ(env->FailureCount, 1);
    EXPECT_EQ(folder.Names(), QStringList({u"bin"_s, u"in.axf"_s, u"out.axf"_s}));
}
