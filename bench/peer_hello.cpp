// SPDX-License-Identifier: MIT
// A peer of the benchmarks: the cost of a C++ program that does nothing.

#include <iostream>

int main()
{
    std::cout << "hello, world" << std::endl;
}
