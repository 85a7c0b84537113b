// SPDX-License-Identifier: MIT
#include "Options.h"

#include <QStringList>

#include <map>

const char *const Options::usage =
    "usage: zul_xml_conv.exe -i LAYOUTS -o FOLDER -x CATALOGUE -t TABLES -h HEADER [-p] [-e -E SUBTOOL]\n"
    "Writes each layout of the file LAYOUTS to FOLDER in the device's form, under its ID and \".bin\".\n"
    "A file with the layout ID_D279A4D9_BC6C_420b_9EC7_CE2FA9F8415D asks for the tables of the catalogue's numbers.\n";

bool Options::Parse(const QStringList &arguments)
{
    std::map<QString, QString *> values{{QStringLiteral("-i"), &input},  {QStringLiteral("-o"), &output},
                                        {QStringLiteral("-x"), &xml},    {QStringLiteral("-t"), &table},
                                        {QStringLiteral("-h"), &header}, {QStringLiteral("-E"), &subtool}};
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &option = arguments[i];
        if (option == u"-p" || option == u"-e")
            continue; // ignored: there is one output form and one sub-tool
        const auto value = values.find(option);
        if (value == values.end() || ++i == arguments.size())
            return false;
        *value->second = arguments[i];
        values.erase(value);
    }
    return !input.isEmpty() && !output.isEmpty();
}
