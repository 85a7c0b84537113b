// SPDX-License-Identifier: MIT
#include "Boxes.h"
#include "CMorvaniteApp.h"
#include "LazyPictures.h"
#include "ProgramStyle.h"
#include "SingleInstance.h"
#include "TypedText.h"
#include "UiIcons.h"

#include <QApplication>

#include <csignal>
#include <cstdio>
#include <optional>

namespace
{

constexpr char USAGE[] = "usage: morvanite [PROJECT.vcproj...]\n"
                         "       morvanite --help | --version\n";

/// Handles arguments that need no window. Returns the exit status if `argument` is such an argument.
std::optional<int> AnswerWithoutWindow(const char *argument)
{
    if (qstrcmp(argument, "--version") == 0)
        return std::puts("morvanite " MORVANITE_VERSION) < 0;
    if (qstrcmp(argument, "--help") == 0 || qstrcmp(argument, "-h") == 0)
        return std::fputs(USAGE, stdout) < 0;
    return std::nullopt;
}

} // namespace

int main(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        if (const std::optional<int> status = AnswerWithoutWindow(argv[i]))
            return *status;
        if (const std::string why = WhyNotUsable(argv[i]); !why.empty()) {
            std::fprintf(stderr, "morvanite: %s\n", why.c_str());
            return 2;
        }
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN); // a file that exceeds the size limit is an ordinary error
    QString error;
    // Done before any part of a window is made, so that a second start ends quickly.
    const FirstInstance first = ShowFirstInstance(PATIENCE_MS, error);
    if (first == FirstInstance::Shown)
        return 0;
    if (first == FirstInstance::NoAnswer)
        std::fprintf(stderr, "morvanite: %s\n", qUtf8Printable(error));

    QApplication application(argc, argv);
    QApplication::setStyle(new ProgramStyle);
    QApplication::setApplicationName(QStringLiteral("morvanite"));
    QApplication::setApplicationVersion(QStringLiteral(MORVANITE_VERSION));
    QApplication::setWindowIcon(MakeIcon(UiIcon::Application));
    QApplication::setDesktopFileName(QStringLiteral("org.morvanite.Morvanite"));
    if (first == FirstInstance::NoAnswer) {
        (void)ShowBox(nullptr, QMessageBox::Critical, error);
        return 1;
    }
    QStringList arguments = QApplication::arguments().mid(1);
    arguments.removeOne(QStringLiteral("--"));
    for (const QString &argument : arguments) {
        if (argument.startsWith(u'-')) {
            std::fprintf(stderr, "morvanite: unknown option %s\n%s", qUtf8Printable(argument), USAGE);
            return 2;
        }
    }
    CMorvaniteApp app(CountAlphaOfPicture);
    const std::optional<int> ended = app.InitInstance(arguments);
    return ended ? *ended : QApplication::exec();
}
