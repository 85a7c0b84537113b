// SPDX-License-Identifier: MIT
// A peer of the benchmarks: a main window with a tool bar and a tree, and nothing else. Ends once it is painted.

#include <QApplication>
#include <QMainWindow>
#include <QToolBar>
#include <QTreeWidget>

#include "until_painted.h"

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.addToolBar(QStringLiteral("Tools"))->addAction(QStringLiteral("Open"));
    QTreeWidget tree;
    new QTreeWidgetItem(&tree, {QStringLiteral("item")});
    window.setCentralWidget(&tree);
    window.resize(1000, 700);
    window.show();
    return RunUntilPainted(tree);
}
