// SPDX-License-Identifier: MIT
#include "IdleDocuments.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using std::chrono::milliseconds;

namespace
{

struct EmptyDocument : CDocument
{
    void Serialize(bool) override {}
    bool OnSaveDocument(const QString &) override { return true; }
    void ReportSaveLoadException(const QString &, const ArchiveException &, bool) override {}
};

struct Server
{
    explicit Server(std::chrono::minutes limit) : idle(documents, limit) {}

    void Use(const QString &path, IdleDocuments::Time now)
    {
        (void)documents.OpenDocumentFile(path);
        idle.Used(path, now);
    }

    CDocManager documents{[] { return std::make_unique<EmptyDocument>(); }};
    IdleDocuments idle;
};

constexpr IdleDocuments::Time START{1h};

} // namespace

TEST(IdleDocuments, CloseAfterTheIdleTimeUnlessModified)
{
    Server server(30min);
    EXPECT_EQ(server.idle.NextLook(START), std::nullopt);
    server.Use(u"/a"_s, START);
    server.Use(u"/b"_s, START + 10min);
    server.Use(u"/c"_s, START + 10min);
    server.idle.Used(u"/nobody"_s, START + 11min);
    server.documents.FindDocument(u"/c"_s)->SetModifiedFlag(true);
    EXPECT_EQ(server.idle.NextLook(START + 11min), milliseconds(19min));
    EXPECT_EQ(server.idle.CloseUnused(START + 30min - 1ms), 0);
    EXPECT_EQ(server.idle.NextLook(START + 30min - 1us), milliseconds(1)) << "it isn't closed early";
    server.Use(u"/a"_s, START + 29min);
    EXPECT_EQ(server.idle.CloseUnused(START + 40min), 1);
    EXPECT_EQ(server.documents.FindDocument(u"/b"_s), nullptr);
    EXPECT_EQ(server.idle.CloseUnused(START + 9h), 1);
    EXPECT_EQ(server.documents.FindDocument(u"/a"_s), nullptr);
    EXPECT_EQ(server.idle.NextLook(START + 9h), std::nullopt) << "no busy waiting for a save";
    server.documents.FindDocument(u"/c"_s)->SetModifiedFlag(false);
    EXPECT_EQ(server.idle.NextLook(START + 9h), milliseconds(0));
    EXPECT_EQ(server.idle.CloseUnused(START + 9h), 1);

    server.Use(u"/a"_s, START + 10h);
    EXPECT_EQ(server.idle.CloseUnused(START + 10h), 0) << "a document at the address of an old one is new";

    Server endless(0min);
    endless.Use(u"/a"_s, START);
    EXPECT_EQ(endless.idle.NextLook(START + 99h), std::nullopt);
    EXPECT_EQ(endless.idle.CloseUnused(START + 99h), 0);
}
