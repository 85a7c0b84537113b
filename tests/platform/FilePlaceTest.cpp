// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "Paths.h"

#include "TempFolder.h"

using namespace Qt::StringLiterals;

/// A project's folder with links in it, and files outside of it.
struct LinksOfProject : testing::Test
{
    LinksOfProject()
    {
        for (const char *name : {"app/demo/res/list", "app/demo/own/b", "app/inc/a.h", "user/profile"})
            folder.Put(name, "old");
        for (const auto &[to, name] : {std::pair("../../../user/profile", "app/demo/res/out"),
                                       {"../own/b", "app/demo/res/within"},
                                       {"../../user", "app/demo/outside"},
                                       {"own", "app/demo/inside"},
                                       {"../../user/new", "app/demo/dangling"},
                                       {"../../user/profile", "app/inc/out.h"},
                                       {"inc", "app/linked_inc"},
                                       {"demo", "app/other_name"},
                                       {"..", "app/demo/up"}})
            EXPECT_EQ(symlink(to, folder.Path(name).toUtf8().constData()), 0);
    }

    /// Saves one file of the project. Returns 0 if the text is at `place` then.
    int Save(Environment &env, const SavedProject &project, const QString &path, const char *place) const
    {
        QDir::setCurrent(project.folder);
        FileTransaction files(env, project);
        const int error = env.ReplaceFile(path, "new");
        EXPECT_EQ(files.Commit(), std::nullopt);
        if (error == 0 && *place) {
            EXPECT_EQ(folder.Get(place), "new") << qPrintable(path);
            folder.Put(place, "old");
        }
        return error;
    }

    TempFolder folder;
};

TEST_F(LinksOfProject, AreFollowedInsideTheProjectOnly)
{
    Environment env(folder.Path());
    QStringList said;
    env.explain = [&](const QString &text) { said.append(text); };
    const QString app = folder.Path("app");
    // The project's own name, and the name of a link to its folder.
    for (const QString &name : {u"demo"_s, u"other_name"_s}) {
        const SavedProject project{app + u'/' + name, {}, {}, false};
        for (const auto &[path, place] : std::initializer_list<std::pair<QString, const char *>>{
                 {u"res\\list"_s, "app/demo/res/list"},
                 {u".\\res\\within"_s, "app/demo/own/b"},
                 {app + u"/demo/inside/b"_s, "app/demo/own/b"},
                 {app + u"/other_name/res/list"_s, "app/demo/res/list"},
                 // Paths that the settings lead outside without a link, or through a link of the user.
                 {u"..\\inc\\a.h"_s, "app/inc/a.h"},
                 {u"..\\linked_inc\\a.h"_s, "app/inc/a.h"}})
            EXPECT_EQ(Save(env, project, path, place), 0) << qPrintable(path);
        EXPECT_EQ(said, QStringList());
        for (const QString &path :
             {u"res\\out"_s, u"outside\\made"_s, u"dangling"_s, u"up\\inc\\a.h"_s, app + u"/other_name/res/out"_s,
              u"..\\linked_inc\\out.h"_s, u"..\\demo\\outside\\profile"_s}) {
            EXPECT_EQ(Save(env, project, path, ""), ELOOP) << qPrintable(path);
            ASSERT_EQ(said.size(), 1) << qPrintable(path);
            EXPECT_TRUE(said.first().contains(CanonicalPath(ResolvePath(path, project.folder))) &&
                        said.first().contains(QDir(app).canonicalPath().chopped(3)))
                << qPrintable(said.first());
            said.clear();
        }
        EXPECT_EQ(folder.Names("user"), QStringList{u"profile"_s});
        EXPECT_EQ(folder.Get("user/profile"), "old");
        EXPECT_EQ(Save(env, {project.folder, {}, {}, true}, u"res\\out"_s, "user/profile"), 0) << "the user allows it";
    }
    EXPECT_EQ(env.FailureCount, 14);
}
