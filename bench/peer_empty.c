// SPDX-License-Identifier: MIT
/* A peer of the benchmarks: the cost of a C program that does nothing. */

int main(void)
{
    return 0;
}
