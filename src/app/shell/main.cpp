#include "Boxes.h"
#include "CMorvaniteApp.h"
#include "SingleInstance.h"

#include <QApplication>

#include <csignal>
#include <cstdio>

int main(int argc, char **argv)
{
    constexpr int PATIENCE_MS = 4000;
    std::signal(SIGPIPE, SIG_IGN);
    QString error;
    // Before anything of a window is made: a second start is over in a moment.
    const FirstInstance first = ShowFirstInstance(PATIENCE_MS, error);
    if (first == FirstInstance::Shown)
        return 0;
    if (first == FirstInstance::NoAnswer)
        std::fprintf(stderr, "morvanite: %s\n", qUtf8Printable(error));

    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("morvanite"));
    QApplication::setApplicationVersion(QStringLiteral(MORVANITE_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.morvanite.Morvanite"));
    if (first == FirstInstance::NoAnswer) {
        (void)ShowBox(nullptr, QMessageBox::Critical, error);
        return 1;
    }
    CMorvaniteApp app;
    return app.InitInstance(QApplication::arguments().mid(1)) ? QApplication::exec() : 1;
}
