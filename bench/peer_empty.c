/* A peer of the benchmarks: what a C program costs that does nothing. */

int main(void)
{
    return 0;
}
