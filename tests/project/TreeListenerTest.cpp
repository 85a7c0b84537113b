// SPDX-License-Identifier: MIT
// Tests that the holders of nodes are notified before the nodes are destroyed. A missing notification shows under
// AddressSanitizer, and otherwise by held nodes that are no longer in the tree.

#include "TestProject.h"

#include <random>
#include <set>

namespace
{

using Nodes = std::set<const CResNode *>;

void Collect(const CResFolder &folder, Nodes &nodes)
{
    nodes.insert(&folder);
    for (const CBaseRes *res : folder.resources)
        nodes.insert(res);
    for (const auto &subfolder : folder.subfolders)
        Collect(*subfolder, nodes);
}

/// Holds every node of a tree except those that it was told to release.
struct Holder : ITreeListener
{
    explicit Holder(CResModel &heldModel) : ITreeListener(heldModel), model(heldModel) {}

    void HoldAll()
    {
        held.clear();
        Collect(model.root, held);
    }
    void TreeGoes(const CResFolder &folder) override
    {
        Nodes going;
        Collect(folder, going);
        for (const CResNode *node : going)
            held.erase(node);
    }
    /// Reads from each held node. Returns false if one of them is no longer in the tree.
    [[nodiscard]] bool Read() const
    {
        Nodes present;
        Collect(model.root, present);
        bool isThere = true;
        for (const CResNode *node : held) {
            isThere &= present.count(node) == 1;
            if (const auto *res = dynamic_cast<const CBaseRes *>(node))
                isThere &= !res->Id()->name.isEmpty();
        }
        return isThere;
    }

    CResModel &model;
    Nodes held;
};

class RandomEdits
{
public:
    explicit RandomEdits(TestProject &edited) : project(edited)
    {
        Write();
        doc = project.Open();
    }

    void Reload(const char *file)
    {
        Write();
        if (Below(10) == 0)
            project.folder.Put(file, "<no end");
        try {
            doc->OnWatchedFileChanged(project.monitor.HandleOf(project.folder.Path(file)));
        } catch (const ArchiveException &) { // the remaining nodes are held nevertheless
        }
    }

    void Step()
    {
        switch (Below(8)) {
        case 0:
            return Reload("demo/res/demo.res.xml");
        case 1:
            return Reload("demo/res/ref_list_demo.txt");
        case 2:
            return Reload("demo/res/screens.xml");
        case 3:
            if (CResFolder *folder = Any(0))
                doc->ClearByKind(*folder);
            return;
        case 4:
            if (CResFolder *folder = Any(KIND_LAYOUT)) {
                EXPECT_TRUE(doc->DeleteFolder(*folder));
            }
            return;
        case 5:
            if (CResFolder *folder = Any(KIND_LANGUAGE)) {
                EXPECT_TRUE(doc->DeleteFolder(*folder));
            }
            return;
        default:
            (void)doc->CreateLayoutRes(int(Below(3)));
        }
    }

    CResDoc *doc = nullptr;

private:
    size_t Below(size_t count) { return std::uniform_int_distribution<size_t>(0, count - 1)(random); }

    /// Returns a random folder of a kind, or of any kind if it is 0; null if there is none.
    CResFolder *Any(quint32 kind)
    {
        Nodes nodes;
        Collect(doc->root, nodes);
        std::vector<const CResFolder *> folders;
        for (const CResNode *node : nodes) {
            const auto *folder = dynamic_cast<const CResFolder *>(node);
            if (folder && (kind == 0 || folder->kind == kind))
                folders.push_back(folder);
        }
        return folders.empty() ? nullptr : const_cast<CResFolder *>(folders[Below(folders.size())]);
    }

    /// Replaces the files by other well-formed ones.
    void Write()
    {
        const QByteArray number = QByteArray::number(qulonglong(Below(5)));
        project.folder.Put(
            "demo/res/demo.res.xml",
            "<APP><FILE id=\"ID_A" + number +
                "\" type=\"Normal\">a.mp3</FILE>"
                "<STRING>res\\ref_list_demo.txt</STRING><RESOLUTION width=\"240\" height=\"320\" class=\"layout\">"
                "<LAYOUT>res\\screens.xml</LAYOUT></RESOLUTION></APP>");
        project.folder.Put("demo/res/ref_list_demo.txt",
                           TestProject::StringTable({"ID_HELLO", "ID_S" + number, "ID_T" + number}));
        project.folder.Put("demo/res/screens.xml", "<TarvoXML><Layout id=\"ID_MAIN\"><Label name=\"a\"/></Layout>"
                                                   "<Layout id=\"ID_L" +
                                                       number + "\"/></TarvoXML>");
    }

    TestProject &project;
    std::mt19937 random{14};
};

} // namespace

TEST(TreeListener, IsNotifiedBeforeItsNodesAreDestroyed)
{
    TestProject project("<APP/>", "[Layout]\nfolders=1\n");
    RandomEdits edits(project);
    ASSERT_NE(edits.doc, nullptr);
    Holder holder(*edits.doc);
    size_t most = 0;
    std::set<quint32> kinds; // the kinds of folders whose resources were held
    for (int step = 0; step < 600; ++step) {
        holder.HoldAll();
        most = std::max(most, holder.held.size());
        for (const CResNode *node : holder.held) {
            if (const auto *folder = dynamic_cast<const CResFolder *>(node); folder && !folder->resources.IsEmpty())
                kinds.insert(folder->kind);
        }
        edits.Step();
        ASSERT_TRUE(holder.Read()) << "step " << step;
    }
    EXPECT_GT(most, 20U);
    EXPECT_EQ(kinds, (std::set<quint32>{KIND_AUDIO, KIND_LANGUAGE, KIND_LAYOUT}));
    holder.HoldAll();
    project.documents.CloseAll();
    EXPECT_TRUE(holder.held.empty()) << "and before the document ends, which it may outlive";
}
