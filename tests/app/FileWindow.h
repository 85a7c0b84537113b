// SPDX-License-Identifier: MIT
#pragma once

#include "CFileView.h"
#include "CellEditor.h"
#include "ChoiceBox.h"
#include "FileGrid.h"
#include "TestWindow.h"

#include <QFileDialog>
#include <QImage>
#include <QPushButton>

/// A window with a project of files, opened at its folder Files.
struct FileWindow : TestWindow
{
    explicit FileWindow(const QByteArray &resources = RESOURCES)
        : TestWindow("[Resource Type]\nCount=3\nType_0=Normal\nType_1=Push\nType_2=Other\n")
    {
        MakeProject("demo", resources);
        for (const char *name : {"a.wav", "b2.avi", "b10.txt"})
            folder.Put(QByteArray("demo/res/") + name, "x");
        Open(KIND_FILES);
    }

    void Open(quint32 kind)
    {
        Start({Project()});
        Frame().resize(1000, 600);
        Go(kind);
    }
    void Go(quint32 kind) const
    {
        Child().Selected().SelectFolder(Document().root.FindFolder(kind, 2));
        Settle();
        Grid().setFocus();
    }

    [[nodiscard]] CFileView &View() const { return Find<CFileView>(Child()); }
    [[nodiscard]] FileGrid &Grid() const { return View().Grid(); }
    [[nodiscard]] FileList &List() const { return View().List(); }
    [[nodiscard]] CellEditor &Editor() const { return Find<CellEditor>(Grid()); }
    [[nodiscard]] ChoiceBox &TypeBox() const { return Find<ChoiceBox>(Grid()); }
    [[nodiscard]] QPushButton &Button() const { return Find<QPushButton>(*Grid().viewport()); }
    void Click(int row, int col) const { ClickCell(Grid(), row, col); }
    void DoubleClick(int row, int col) const { TestWindow::DoubleClick(*Grid().viewport(), PlaceOf(Grid(), row, col)); }

    /// Returns what the list shows: the cells of a row with "|" between them.
    [[nodiscard]] QStringList Rows() const
    {
        QStringList rows;
        for (int row = 0; row < Grid().model()->rowCount(); ++row) {
            QStringList cells;
            for (int col = 0; col < 3; ++col)
                cells << Grid().model()->index(row, col).data().toString();
            rows << cells.join(u'|');
        }
        return rows;
    }

    void Drop(const QList<QUrl> &urls) const { DropOn(*Grid().viewport(), urls); }
    void Drop(const QStringList &paths) const { DropOn(*Grid().viewport(), UrlsOf(paths)); }
    /// Answers the next file dialog with these paths.
    void Choose(const QStringList &paths)
    {
        QTimer::singleShot(0, &Frame(), [paths] {
            auto *const dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            for (const QString &path : paths)
                dialog->selectFile(path);
            if (paths.isEmpty())
                return dialog->reject();
            static_cast<QDialog *>(dialog)->accept();
        });
    }

    static inline const QByteArray RESOURCES =
        "<APP><FILE id=\"ID_B10\" type=\"Normal\">.\\res\\b10.txt</FILE>"
        "<FILE id=\"ID_B2\" type=\"Push\">.\\res\\b2.avi</FILE><FILE id=\"ID_A\" type=\"Normal\">.\\res\\a.wav</FILE>"
        "<FILE id=\"ID_GONE\" type=\"Normal\">.\\res\\gone.png</FILE></APP>";
};
