// SPDX-License-Identifier: MIT
#include "ReadAhead.h"
#include "TempFolder.h"

#include <gtest/gtest.h>

TEST(ReadAhead, ReadsFilesThatAreNewOrChangedAndLeavesTheOthersToThePack)
{
    const TempFolder folder;
    QDir::setCurrent(folder.Path());
    std::vector<QByteArray> hosts;
    const auto content = [&](size_t i) { return hosts[i].repeated(int(1 + i % 7)); };
    for (int i = 0; i < 1000; ++i) {
        hosts.push_back(QByteArray::number(i));
        folder.Put(hosts.back().constData(), content(size_t(i)));
    }
    const size_t EMPTY = 10, LARGE = 11, MISSING = 12, PIPE = 13, FOLDER = 14, CHANGED = 500;
    folder.Put(hosts[EMPTY].constData(), "");
    folder.Put(hosts[LARGE].constData(), QByteArray(2000, 'x'));
    for (const size_t i : {MISSING, PIPE, FOLDER})
        ASSERT_EQ(unlink(hosts[i].constData()), 0);
    folder.MakeFolder(hosts[FOLDER].constData());
    ASSERT_EQ(mkfifo(hosts[PIPE].constData(), 0666), 0);
    hosts.push_back(hosts[0]);

    Room room(1 << 20);
    std::deque<PieceMemory> memory;
    KeptFiles kept;
    ReadAhead first(hosts, kept, 1000, room, memory);
    EXPECT_EQ(first.Take("none"), nullptr);
    for (size_t i = 0; i < 1000; ++i) {
        const KeptFile *const file = first.Take(hosts[i]);
        ASSERT_EQ(file != nullptr, i < LARGE || i > FOLDER) << i;
        if (!file)
            continue;
        ASSERT_EQ(file->content, i == EMPTY ? QByteArray() : content(i)) << i;
        kept.insert(hosts[i], *file);
    }
    EXPECT_EQ(first.Take(hosts[0]), nullptr) << "once, though it is listed twice";

    folder.Put(hosts[CHANGED].constData(), "other");
    ReadAhead second(hosts, kept, 1000, room, memory);
    for (size_t i = 0; i < 1000; ++i) {
        const KeptFile *const file = second.Take(hosts[i]);
        ASSERT_EQ(file != nullptr, i < LARGE || i > FOLDER) << i;
        if (i == CHANGED) {
            EXPECT_EQ(file->content, "other");
        } else if (file) {
            EXPECT_EQ(file->content.data(), kept[hosts[i]].content.data()) << i << " needn't be read again";
        }
    }
}

TEST(ReadAhead, StopsEarlyAndKeepsWithinItsRoom)
{
    const TempFolder folder;
    QDir::setCurrent(folder.Path());
    std::vector<QByteArray> hosts;
    for (int i = 0; i < 300; ++i) {
        hosts.push_back(QByteArray::number(i));
        folder.Put(hosts.back().constData(), QByteArray(100, 'x'));
    }
    std::deque<PieceMemory> memory;
    Room room(10'050);
    {
        ReadAhead ahead(hosts, {}, 1000, room, memory);
        int read = 0;
        for (const QByteArray &host : hosts)
            read += ahead.Take(host) != nullptr;
        EXPECT_GT(read, 50);
        EXPECT_LE(read, 100);
        EXPECT_TRUE(room.Take(quint64(10'050 - 100 * read))) << "only files that were read have room";
        EXPECT_FALSE(room.Take(1));
    }
    Room other(1 << 20);
    (void)ReadAhead(hosts, {}, 1000, other, memory);
}
