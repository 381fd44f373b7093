/* What the front end has functions of its own for and C has no operator: the names are those that the output calls. */
#include "widths.h"

#define COUNT(bits, type)                              \
    type llvm_ctpop_i##bits(type given)                \
    {                                                  \
        u##bits rest = (u##bits)given;                 \
        u8 count = 0;                                  \
        for (; rest != 0; ++count)                     \
            rest = (u##bits)(rest & (u##bits)(rest - 1)); \
        return (type)count;                            \
    }

/* All bits of 0 are counted, whatever the second argument allows. */
#define LEADING(bits, type)                                    \
    type llvm_ctlz_i##bits(type given, char unused)            \
    {                                                          \
        u##bits rest = (u##bits)given;                         \
        u8 count = bits;                                       \
        (void)unused;                                          \
        for (; rest != 0; --count)                             \
            rest = (u##bits)(rest >> 1);                       \
        return (type)count;                                    \
    }

#define TRAILING(bits, type)                                   \
    type llvm_cttz_i##bits(type given, char unused)            \
    {                                                          \
        u##bits rest = (u##bits)given;                         \
        u8 count = bits;                                       \
        (void)unused;                                          \
        for (; rest != 0; --count)                             \
            rest = (u##bits)(rest << 1);                       \
        return (type)count;                                    \
    }

#define REVERSE(bits, type)                                                  \
    type llvm_bitreverse_i##bits(type given)                                 \
    {                                                                        \
        u##bits rest = (u##bits)given;                                       \
        u##bits result = 0;                                                  \
        u8 count;                                                            \
        for (count = 0; count < bits; ++count) {                             \
            result = (u##bits)((u##bits)(result << 1) | (u##bits)(rest & 1)); \
            rest = (u##bits)(rest >> 1);                                     \
        }                                                                    \
        return (type)result;                                                 \
    }

#define SWAP(bits, type)                                                        \
    type llvm_bswap_i##bits(type given)                                         \
    {                                                                           \
        u##bits rest = (u##bits)given;                                          \
        u##bits result = 0;                                                     \
        u8 count;                                                               \
        for (count = 0; count < bits; count = (u8)(count + 8)) {                \
            result = (u##bits)((u##bits)(result << 8) | (u##bits)(rest & 0xFF)); \
            rest = (u##bits)(rest >> 8);                                        \
        }                                                                       \
        return (type)result;                                                    \
    }

#define ALL(bits, type) COUNT(bits, type) LEADING(bits, type) TRAILING(bits, type) REVERSE(bits, type)

ALL(8, s8)
ALL(16, s16)
ALL(32, s32)
SWAP(16, s16)
SWAP(32, s32)

#ifdef HAS_64_BITS
ALL(64, s64)
SWAP(64, s64)

char _mul_overflows_u64_(s64 left, s64 right)
{
    return right != 0 && (u64)left > ~(u64)0 / (u64)right;
}

/* By absolute values: the negative range has one number more. */
char _mul_overflows_s64_(s64 left, s64 right)
{
    const u64 a = left < 0 ? 0 - (u64)left : (u64)left;
    const u64 b = right < 0 ? 0 - (u64)right : (u64)right;
    const u64 most = ((u64)1 << 63) - ((left < 0) == (right < 0) ? 1 : 0);
    return b != 0 && a > most / b;
}
#endif

/* Powers with whole exponents. */
double llvm_powi_f64_i32(double base, s32 exponent)
{
    u32 rest = exponent < 0 ? 0 - (u32)exponent : (u32)exponent;
    double result = 1;
    for (; rest != 0; rest >>= 1) {
        if (rest & 1)
            result *= base;
        base *= base;
    }
    return exponent < 0 ? 1 / result : result;
}

float llvm_powi_f32_i32(float base, s32 exponent)
{
    return (float)llvm_powi_f64_i32(base, exponent);
}

double llvm_powi_f64_i16(double base, s16 exponent)
{
    return llvm_powi_f64_i32(base, exponent);
}

float llvm_powi_f32_i16(float base, s16 exponent)
{
    return (float)llvm_powi_f64_i32(base, exponent);
}
