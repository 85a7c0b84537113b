// SPDX-License-Identifier: MIT
#include "Explanations.h"
#include "Session.h"
#include "Subcommands.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

class ExplainSubcommand : public Subcommand<ExplainArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        if (code.empty()) {
            session.report.WriteBytes(ListOfAll().toUtf8());
            return EXIT_FINE;
        }
        const std::vector<Explanation> found = ExplanationsOf(QString::fromStdString(code));
        for (const Explanation &one : found)
            session.report.WriteBytes(one.Text().toUtf8());
        if (!found.empty())
            return EXIT_FINE;
        Complain(u"explain: there is no code or rule \"%1\"; \"morvanite-cli explain\" lists all"_s.arg(
            QString::fromStdString(code)));
        return EXIT_WRONG_USE;
    }

private:
    static QString ListOfAll()
    {
        const std::vector<Explanation> all = AllExplanations();
        qsizetype width = 0;
        for (const Explanation &one : all)
            width = std::max(width, one.code.size());
        QString lines;
        for (const Explanation &one : all)
            lines += one.code.leftJustified(width) + u"  "_s + one.when + u'\n';
        return lines;
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(ExplainArguments &&arguments)
{
    return std::make_unique<ExplainSubcommand>(std::move(arguments));
}
