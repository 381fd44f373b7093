/*
 * Integers of fixed widths for the other files here, in C of 1989: for the small target, whose int has 16 bits and
 * whose long has 32, and for hosts.
 */
#ifndef WIDTHS_H
#define WIDTHS_H

#include <limits.h>

typedef unsigned char u8;
typedef signed char s8;
typedef unsigned short u16;
typedef short s16;
#if UINT_MAX >= 0xFFFFFFFF
typedef unsigned int u32;
typedef int s32;
#else
typedef unsigned long u32;
typedef long s32;
#endif

/* Not all compilers for small targets have 64 bits; they leave out what needs them. */
#if defined(LLONG_MAX) || defined(__LONG_LONG_MAX__) || defined(__SIZEOF_LONG_LONG__)
#define HAS_64_BITS 1
typedef unsigned long long u64;
typedef long long s64;
#endif

#endif
