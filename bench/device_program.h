/* SPDX-License-Identifier: MIT */
/* A program for an emulated processor that looks texts up, without a library. device_lookups.py compiles it, and counts
 * the instructions between two marks. */
#ifndef DEVICE_PROGRAM_H
#define DEVICE_PROGRAM_H

#include <stdint.h>

extern const uint8_t data_begin[], data_end[]; /* the bytes in which the texts are looked up */

struct key
{
    uint32_t number;
    const char *name;
};
static const struct key keys[] = {
#include "keys.h"
};
#define KEYS (sizeof keys / sizeof *keys)

/* The barrier keeps the compiler from merging the two functions and from moving loads and stores beyond them. */
static __attribute__((noinline)) void mark_begin(void)
{
    __asm__ volatile("@ begin" ::: "memory");
}

static __attribute__((noinline)) void mark_end(void)
{
    __asm__ volatile("@ end" ::: "memory");
}

static __attribute__((noreturn)) void leave(int status)
{
    register int number __asm__("r7") = 1; /* exit */
    register int result __asm__("r0") = status;
    for (;;)
        __asm__ volatile("svc 0" : : "r"(number), "r"(result) : "memory");
}

#endif
