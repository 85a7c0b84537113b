// SPDX-License-Identifier: MIT
// The list of files: each operation is compared with the least work that it can consist of.
#include "BenchModel.h"
#include "FileIcons.h"
#include "FileListModel.h"
#include "NameOrder.h"
#include "grid_views.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace
{

constexpr int LISTED = 100'000;
constexpr int IMPORTED = 10'000;

/// A project with an empty folder of files, and a list that shows it.
struct FilesWorld : BenchWorld
{
    FilesWorld()
    {
        model.root.AddFolder(model.CreateFolder(KIND_FILES, -1));
        for (const FolderKind kind : {KIND_AUDIO, KIND_VIDEO, KIND_BINARY})
            Files().AddFolder(model.CreateFolder(kind, -1));
        shown.SetList(&list);
    }
    [[nodiscard]] CResFolder &Files() const { return *model.root.subfolders.front(); }
    void AddUnchecked(const QByteArray &path, int number)
    {
        auto res = model.CreateFileRes("ID_FILE_" + QByteArray::number(number), ANY_RESOLUTION);
        res->path = path;
        Files().subfolders[2]->AddResource(std::move(res));
    }

    FileListModel shown;
    FileList list{model, shown};
};

void Touch(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
}

/// The same texts in a vector.
class PlainFiles : public QAbstractTableModel
{
public:
    explicit PlainFiles(const FileList &list)
    {
        for (int row = 0; row < list.Files(); ++row) {
            for (int col = 0; col < FileList::COLUMN_COUNT; ++col)
                texts.push_back(list.CellText(row, col));
        }
        Show(NameOrder().Sorted(
            list.Files(), [&](int row) { return Text(row, 0); }, 1));
    }
    [[nodiscard]] const QString &Text(int row, int col) const { return texts[size_t(row) * 3 + size_t(col)]; }
    void Show(std::vector<int> inOrder)
    {
        beginResetModel();
        order = std::move(inOrder);
        endResetModel();
    }
    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(order.size()); }
    int columnCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : 3; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? Text(order[size_t(index.row())], index.column()) : QVariant();
    }

private:
    std::vector<QString> texts;
    std::vector<int> order;
};

/// Shows a folder of 100,000 files, sorts it by ID and paints it with its icons; all files exist. "ratio" compares with
/// sorting the IDs and a plain view of texts in a vector; at most 1.3 is required, 1.1 is the aim.
void OpenFiles(benchmark::State &state)
{
    NeedApplication();
    const QTemporaryDir folder;
    FilesWorld world;
    for (int n = 0; n < LISTED; ++n) {
        const QByteArray name = "file" + QByteArray::number(n) + (n % 3 == 0 ? ".png" : n % 3 == 1 ? ".wav" : ".bin");
        Touch(folder.filePath(QString::fromLatin1(name)));
        world.AddUnchecked(".\\" + name, n);
    }
    FileIcons icons(folder.path());
    world.shown.pictureOf = [&](int row) -> QVariant {
        return world.list.At(row) ? icons.Icon(icons.ImageOf(world.list.CellText(row, FileList::PATH_COLUMN)))
                                  : icons.Icon(FileIcons::NEW_ROW);
    };
    world.list.Fill(&world.Files(), 1);
    PlainFiles plain(world.list);
    double ours = 0;
    double bare = 0;
    for (auto _ : state) {
        world.list.LetGo();
        Time(ours, [&] {
            OurView view(world.shown);
            icons.Refresh();
            world.list.Fill(&world.Files(), 1);
            Paint(view);
        });
        Time(bare, [&] {
            StockView view(plain);
            plain.Show(NameOrder().Sorted(
                LISTED, [&](int row) { return plain.Text(row, 0); }, 1));
            Paint(view);
        });
    }
    state.counters["ratio"] = ours / bare;
    state.counters["ours_ms"] = ours * 1000 / double(state.iterations());
}
BENCHMARK(OpenFiles)->Unit(benchmark::kMillisecond);

/// Imports 10,000 files with the same title; "ratio" compares with as many files with different titles; at most 3 is
/// required.
void ImportOneTitle(benchmark::State &state)
{
    NeedApplication();
    const QTemporaryDir folder;
    QStringList same;
    QStringList different;
    for (int n = 0; n < IMPORTED; ++n) {
        same << folder.filePath(QStringLiteral("icon.%1").arg(n));
        different << folder.filePath(QStringLiteral("icon%1.x").arg(n));
        Touch(same.back());
        Touch(different.back());
    }
    const auto import = [&](const QStringList &paths, double &sum) {
        FilesWorld world;
        world.list.Fill(&world.Files(), 1);
        OurView view(world.shown);
        Time(sum, [&] {
            if (world.list.AddFiles(paths).added != IMPORTED)
                std::abort();
            Paint(view);
        });
    };
    double one = 0;
    double many = 0;
    for (auto _ : state) {
        import(same, one);
        import(different, many);
    }
    state.counters["ratio"] = one / many;
    state.counters["ours_ms"] = one * 1000 / double(state.iterations());
}
BENCHMARK(ImportOneTitle)->Unit(benchmark::kMillisecond);

/// Selects every second row of 100,000, deletes these rows and paints the list; "ratio" compares with deleting as many
/// resources that no list shows.
void DeleteHalfOfFiles(benchmark::State &state)
{
    NeedApplication();
    double ours = 0;
    double bare = 0;
    for (auto _ : state) {
        FilesWorld world;
        FilesWorld alone;
        for (int n = 0; n < LISTED; ++n) {
            world.AddUnchecked("x.bin", n);
            alone.AddUnchecked("x.bin", n);
        }
        world.list.Fill(&world.Files(), 1);
        OurView view(world.shown);
        std::vector<int> half;
        for (int row = 0; row < LISTED; row += 2)
            half.push_back(row);
        view.Select(half);
        Paint(view);
        Time(ours, [&] {
            world.list.Remove(view.SelectedRows());
            Paint(view);
        });
        Time(bare, [&] {
            CResFolder &binary = *alone.Files().subfolders[2];
            for (CBaseRes *res = binary.resources.First(); res;) {
                CBaseRes *const going = res;
                res = res->NextInFolder() ? res->NextInFolder()->NextInFolder() : nullptr;
                (void)binary.DeleteResource(going);
            }
        });
    }
    state.counters["ratio"] = ours / bare;
    state.counters["ours_ms"] = ours * 1000 / double(state.iterations());
}
BENCHMARK(DeleteHalfOfFiles)->Unit(benchmark::kMillisecond);

} // namespace
