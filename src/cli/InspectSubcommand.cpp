// SPDX-License-Identifier: MIT
#include "Inspect.h"
#include "Session.h"
#include "Subcommands.h"

namespace
{

class InspectSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        CLI::App *subcommand = app.add_subcommand("inspect", "Show the contents of a packed file");
        subcommand->add_option("FILE", file, "A packed application, a side file or a DLL-side file")
            ->type_name("")
            ->required();
        subcommand->add_flag("--json", json, JSON_HELP);
        subcommand->add_option("--extract", folder, "Write each entry, item and language to its own file in DIR")
            ->type_name("DIR");
        return subcommand;
    }

    int Run(Session &session) override
    {
        const QString path = QString::fromStdString(file);
        InspectResult result;
        QString wrong = InspectFile(path, result);
        std::vector<QByteArray> written;
        if (wrong.isEmpty() && !folder.empty())
            wrong = ExtractAll(session.env, result, QString::fromStdString(folder), written);
        if (!wrong.isEmpty()) {
            Complain(path + QStringLiteral(": ") + wrong);
            return EXIT_FAILED;
        }
        if (json)
            session.report.WriteBytes(InspectJson(session.env, result));
        else if (folder.empty())
            session.report.WriteBytes(InspectText(session.env, result));
        else
            for (const QByteArray &name : written)
                session.report.WriteBytes(QByteArray::fromStdString(folder) + '/' + name + '\n');
        return EXIT_FINE;
    }

private:
    std::string file;
    std::string folder;
    bool json = false;
};

} // namespace

std::unique_ptr<ISubcommand> MakeInspectSubcommand()
{
    return std::make_unique<InspectSubcommand>();
}
