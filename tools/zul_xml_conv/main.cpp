// SPDX-License-Identifier: MIT
#include "Conversion.h"
#include "Environment.h"
#include "SignalCleanup.h"

#include <csignal>
#include <cstdio>
#include <sys/resource.h>

namespace
{

/// The time limit for hostile files, since the packer waits without a limit.
constexpr rlim_t MOST_SECONDS = 120;

void Print(const QString &line)
{
    QString oneLine = line;
    for (QChar &c : oneLine) {
        if (c < u' ')
            c = u'?';
    }
    std::fprintf(stderr, "zul_xml_conv.exe: %s\n", oneLine.toUtf8().constData());
}

} // namespace

int main(int argc, char **argv)
{
    const rlimit seconds{MOST_SECONDS, MOST_SECONDS};
    setrlimit(RLIMIT_CPU, &seconds);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN); // a file that grows beyond the limit is an error like any other
    SignalCleanup::Install();      // the packer may be terminated
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromUtf8(argv[i]));
    Options options;
    if (!options.Parse(arguments)) {
        std::fputs(Options::usage, stderr);
        return 2;
    }
    Environment env;
    // The packer passes the project of these layouts, which use its code page.
    if (const QByteArray project = qgetenv("MORVANITE_PROJECT_DIR"); !project.isEmpty())
        (void)env.UseProjectSettings(QString::fromUtf8(project));
    Conversion conversion(env, options);
    const bool isDone = conversion.Run();
    for (const QString &line : conversion.messages)
        Print(line);
    return isDone ? 0 : 1;
}
