// SPDX-License-Identifier: MIT
#include "IdNumbers.h"

namespace
{

/// Removes the next word from a line and returns it.
QByteArrayView TakeWord(QByteArrayView &line)
{
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    qsizetype begin = 0;
    while (begin < line.size() && isBlank(line[begin]))
        ++begin;
    qsizetype end = begin;
    while (end < line.size() && !isBlank(line[end]))
        ++end;
    const QByteArrayView word = line.sliced(begin, end - begin);
    line = line.sliced(end);
    return word;
}

} // namespace

void IdNumbers::Read(QByteArrayView header)
{
    int number = 0; // of the line
    for (qsizetype end = 0; !header.isEmpty(); header = header.sliced(end)) {
        ++number;
        const qsizetype lineEnd = header.indexOf('\n');
        end = lineEnd < 0 ? header.size() : lineEnd + 1;
        QByteArrayView line = header.first(lineEnd < 0 ? end : lineEnd);
        if (line.endsWith('\r'))
            line.chop(1);
        if (TakeWord(line) != "#define")
            continue;
        const QByteArrayView name = TakeWord(line);
        bool isNumber = false;
        const quint32 value = TakeWord(line).toUInt(&isNumber, 10);
        if (!isNumber || !TakeWord(line).isEmpty() || numbers.contains(name.toByteArray()))
            continue;
        Add(name.toByteArray(), value);
        entries.back().line = number;
    }
}

void IdNumbers::Add(const NarrowText &name, quint32 number)
{
    if (numbers.contains(name))
        return;
    numbers.insert(name, number);
    entries.push_back({name, number, 0});
}

std::optional<quint32> IdNumbers::Find(const NarrowText &name) const
{
    const auto found = numbers.constFind(name);
    return found == numbers.constEnd() ? std::nullopt : std::optional(*found);
}
