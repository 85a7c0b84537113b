// A peer of the benchmarks: what a C++ program costs that does nothing.

#include <iostream>

int main()
{
    std::cout << "hello, world" << std::endl;
}
