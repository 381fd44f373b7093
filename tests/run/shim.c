/* What the programs print with. Built for the host, and once more with the 64-bit structure for output under -ll. */
#include <stdio.h>
#include <stdlib.h>

#ifdef LL
#include "lldefs.h"
static long long number(_lglg_ value) { return (long long)((unsigned long long)value.high << 32 | value.low); }
#else
typedef long long _lglg_;
#define number(value) value
#endif

void put(const char *what, int value) { printf("%s %d\n", what, value); }
void put64(const char *what, _lglg_ value) { printf("%s %lld\n", what, number(value)); }
void putd(const char *what, double value) { printf("%s %.9g\n", what, value); }

/* What C++ programs need of their library. Those with a heap of their own bring the first two along. */
__attribute__((weak)) void *_Znwj(unsigned size) { return malloc(size); }
__attribute__((weak)) void _ZdlPv(void *object) { free(object); }
void __cxa_pure_virtual(void) { abort(); }
void llvm_trap(void) { abort(); }
__attribute__((weak)) void *_Znaj(unsigned size) { return malloc(size); }
__attribute__((weak)) void _ZdaPv(void *object) { free(object); }
