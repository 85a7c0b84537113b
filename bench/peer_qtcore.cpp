// SPDX-License-Identifier: MIT
// A peer of the benchmarks: the cost of a program that only loads QtCore.

#include <QString>

int main()
{
    return QString::number(1).size() == 1 ? 0 : 1;
}
