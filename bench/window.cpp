// SPDX-License-Identifier: MIT
// The program with its window, for a benchmark. It starts, opens the project on the command line if there is one, and
// ends once the tree, or without a project the output pane, is painted.
#include "CInfoPane.h"
#include "CMorvaniteApp.h"
#include "SingleInstance.h"

#include "until_painted.h"

int main(int argc, char **argv)
{
    QString error;
    (void)ShowFirstInstance(1000, error);
    QApplication application(argc, argv);
    CMorvaniteApp app;
    if (const std::optional<int> ended = app.InitInstance(QApplication::arguments().mid(1)))
        return *ended;
    CChildFrame *const child = app.Frame().ActiveChild();
    return child ? RunUntilPainted(child->Tree()) : RunUntilPainted(app.Frame().Bars().Output());
}
