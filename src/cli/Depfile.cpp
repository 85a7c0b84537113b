#include "Depfile.h"

#include "HostFiles.h"

#include <algorithm>

namespace
{

QByteArray Escaped(const QByteArray &path)
{
    QByteArray result;
    for (const char c : path) {
        if (c == ' ' || c == '#' || c == '\\')
            result += '\\';
        else if (c == '$')
            result += '$';
        result += c;
    }
    return result;
}

} // namespace

int WriteDepfile(const QString &path, const QByteArray &target, std::vector<QByteArray> inputs)
{
    std::sort(inputs.begin(), inputs.end());
    inputs.erase(std::unique(inputs.begin(), inputs.end()), inputs.end());
    QByteArray text = Escaped(target) + ':';
    for (const QByteArray &input : inputs)
        text += " \\\n  " + Escaped(input);
    return WriteFileAtomically(path, text + '\n', IfDevice::WriteThrough);
}
