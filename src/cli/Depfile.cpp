// SPDX-License-Identifier: MIT
#include "Depfile.h"

#include "HostFiles.h"

#include <algorithm>
#include <cstring>

namespace
{

/// Appends a name in a form that both make and Ninja read. A backslash is literal, except before an escaped character.
void AppendEscaped(QByteArray &text, const QByteArray &name)
{
    qsizetype backslashes = 0;
    for (const char c : name) {
        if (c == ' ' || c == '#' || c == ':')
            text.append(backslashes + 1, '\\');
        else if (c == '$')
            text += '$';
        text += c;
        backslashes = c == '\\' ? backslashes + 1 : 0;
    }
}

/// Returns false for names with characters that end the list of a rule in make; make even runs the text after ";".
bool CanBeWritten(const QByteArray &name)
{
    return !name.endsWith('\\') &&
           std::none_of(name.begin(), name.end(), [](char c) { return std::strchr(";|\t\r\n", c) != nullptr; });
}

} // namespace

QString WriteDepfile(const QString &path, const QByteArray &target, std::vector<QByteArray> inputs)
{
    std::sort(inputs.begin(), inputs.end());
    inputs.erase(std::unique(inputs.begin(), inputs.end()), inputs.end());
    QByteArray text;
    AppendEscaped(text, target);
    text += ':';
    for (const QByteArray &input : inputs) {
        text += " \\\n  ";
        AppendEscaped(text, input);
    }
    inputs.push_back(target);
    const auto bad = std::find_if_not(inputs.begin(), inputs.end(), CanBeWritten);
    if (bad != inputs.end())
        return QStringLiteral("%1 was not written: it would have to name the file %2, and a dependency file can't "
                              "contain a name with a semicolon, a vertical bar, a tab or a line break, or with a "
                              "backslash at its end; rename that file")
            .arg(path, QString::fromUtf8(*bad));
    const int error = WriteFileAtomically(path, text + '\n', IfDevice::WriteThrough);
    return error == 0 ? QString()
                      : QStringLiteral("cannot write %1: %2").arg(path, QString::fromLocal8Bit(strerror(error)));
}
