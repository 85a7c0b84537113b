#include "CommandRecord.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

PackCommandRecord FullRecord()
{
    return {
        u"/home/x/demo.vcproj"_s, u"/home/x/app.axf"_s, u"/home/x/app.out"_s, u"240x320"_s, u"axf"_s, -2, 0x01020304};
}

TEST(CommandRecord, FieldsStandAtTheirOffsets)
{
    QString error;
    const QByteArray bytes = BuildRecord(FullRecord(), error).value();
    ASSERT_EQ(bytes.size(), 1696);
    EXPECT_EQ(bytes.mid(0, 4), QByteArray("/\0h\0", 4));
    EXPECT_EQ(bytes.mid(520 + 20, 8), QByteArray("p\0.\0a\0x\0", 8));
    EXPECT_EQ(bytes.mid(1040 + 28, 4), QByteArray("t\0\0\0", 4));
    EXPECT_EQ(bytes.mid(1560, 4), QByteArray("2\0004\0", 4));
    EXPECT_EQ(bytes.mid(1624, 8), QByteArray("a\0x\0f\0\0\0", 8));
    EXPECT_EQ(bytes.mid(1688), QByteArray("\xfe\xff\xff\xff\x04\x03\x02\x01", 8));
}

TEST(CommandRecord, WhatIsBuiltIsWhatIsReadAndBytesBehindItAreNotLookedAt)
{
    QString error;
    const QByteArray bytes = BuildRecord(FullRecord(), error).value() + QByteArray(5000, 'x');
    const auto read = ParsePackCommandRecord(bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->projectPath, FullRecord().projectPath);
    EXPECT_EQ(read->inputFile, FullRecord().inputFile);
    EXPECT_EQ(read->outputFile, FullRecord().outputFile);
    EXPECT_EQ(read->resolution, FullRecord().resolution);
    EXPECT_EQ(read->targetKind, FullRecord().targetKind);
    EXPECT_EQ(read->imageConvert, -2);
    EXPECT_EQ(read->version, 0x01020304);
    EXPECT_EQ(ParseCommandRecord(bytes)->projectPath, FullRecord().projectPath);
}

TEST(CommandRecord, OneByteTooFewIsNoRecord)
{
    EXPECT_FALSE(ParseCommandRecord(QByteArray(519, '\0')));
    EXPECT_TRUE(ParseCommandRecord(QByteArray(520, '\0')));
    EXPECT_FALSE(ParsePackCommandRecord(QByteArray(1695, '\0')));
    EXPECT_TRUE(ParsePackCommandRecord(QByteArray(1696, '\0')));
}

TEST(CommandRecord, TextWithoutTerminatorEndsWithItsField)
{
    const auto read = ParsePackCommandRecord(QByteArray(1696, 'a'));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->projectPath, QString(260, QChar(0x6161)));
    EXPECT_EQ(read->outputFile.size(), 260);
    EXPECT_EQ(read->resolution.size(), 32);
    EXPECT_EQ(read->targetKind.size(), 32);
}

TEST(CommandRecord, TextThatDoesNotFitIsRefusedByName)
{
    QString error;
    EXPECT_TRUE(BuildRecord(CommandRecord{QString(259, u'a')}, error));
    EXPECT_FALSE(BuildRecord(CommandRecord{QString(260, u'a')}, error));
    EXPECT_TRUE(error.startsWith(u"the project path has 260 characters, and a command has room for 259: aaa"_s))
        << qPrintable(error);

    PackCommandRecord record = FullRecord();
    record.targetKind = QString(32, u'a');
    EXPECT_FALSE(BuildRecord(record, error));
    EXPECT_TRUE(error.startsWith(u"the target kind has 32 characters, and a command has room for 31"_s));
    EXPECT_FALSE(BuildRecord(CommandRecord{u"a"_s + QChar(u'\0') + u"b"_s}, error));
    EXPECT_EQ(error, u"the project path holds a null character"_s);
}

} // namespace
