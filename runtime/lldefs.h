/*
 * Integers of 64 bits for the output of quarl -ll: a structure of two halves, and a function for each operator.
 *
 * The output passes operands by their address, also those without a name, as in _lladd_(&_llneg_(&a), &(_lglg_){0,1}),
 * and it writes both _llsets_(x) and _llsets_{x}. C++ (from C++11) takes all of that: operator& gives the address of a
 * value that lives until the end of its full expression. C (from C11) takes everything but the braces after _llsets_
 * and _llsetu_, which mean nothing in C; there each result is made an object of its own.
 *
 * Nothing here is undefined: arithmetic wraps, a shift by 64 or more or by a negative count shifts all bits out, a
 * division by zero gives all ones and leaves the dividend as the remainder.
 *
 * This header serves hosts that have 64-bit integers themselves: it is there to try the output out.
 */
#ifndef LLDEFS_H
#define LLDEFS_H

#include <stdint.h>

typedef struct _lglg_ {
    uint32_t high;
    uint32_t low;
#ifdef __cplusplus
    _lglg_ *operator&()
    {
        return this;
    }
    const _lglg_ *operator&() const
    {
        return this;
    }
    volatile _lglg_ *operator&() volatile
    {
        return this;
    }

    /* To and from volatile objects. As a template it leaves the plain assignment to the compiler. */
    template <typename Other>
    void operator=(const volatile Other &other) volatile
    {
        high = other.high;
        low = other.low;
    }
#endif
} _lglg_;

typedef const volatile _lglg_ *_ll_operand_;

static inline uint64_t _ll_bits_(_ll_operand_ a)
{
    return (uint64_t)a->high << 32 | a->low;
}

static inline _lglg_ _ll_value_(uint64_t bits)
{
    _lglg_ value = {(uint32_t)(bits >> 32), (uint32_t)bits};
    return value;
}

/* All ones for a negative number, else 0. Exclusive or with it and subtraction of it make the absolute value. */
static inline uint64_t _ll_sign_(_ll_operand_ a)
{
    return a->high >> 31 ? ~(uint64_t)0 : 0;
}

static inline uint64_t _ll_absolute_(_ll_operand_ a)
{
    return (_ll_bits_(a) ^ _ll_sign_(a)) - _ll_sign_(a);
}

/* ---- Arithmetic ---- */

static inline _lglg_ _lladd_(_ll_operand_ a, _ll_operand_ b)
{
    return _ll_value_(_ll_bits_(a) + _ll_bits_(b));
}

static inline _lglg_ _llsub_(_ll_operand_ a, _ll_operand_ b)
{
    return _ll_value_(_ll_bits_(a) - _ll_bits_(b));
}

static inline _lglg_ _llmul_(_ll_operand_ a, _ll_operand_ b)
{
    return _ll_value_(_ll_bits_(a) * _ll_bits_(b));
}

static inline _lglg_ _lludv_(_ll_operand_ a, _ll_operand_ b)
{
    return _ll_value_(_ll_bits_(b) ? _ll_bits_(a) / _ll_bits_(b) : ~(uint64_t)0);
}

static inline _lglg_ _llumd_(_ll_operand_ a, _ll_operand_ b)
{
    return _ll_value_(_ll_bits_(b) ? _ll_bits_(a) % _ll_bits_(b) : _ll_bits_(a));
}

/* By absolute values, so that the smallest number divided by -1 wraps as the others do. */
static inline _lglg_ _lldiv_(_ll_operand_ a, _ll_operand_ b)
{
    const uint64_t sign = _ll_sign_(a) ^ _ll_sign_(b);
    return _ll_value_(_ll_bits_(b) ? (_ll_absolute_(a) / _ll_absolute_(b) ^ sign) - sign : ~(uint64_t)0);
}

static inline _lglg_ _llmod_(_ll_operand_ a, _ll_operand_ b)
{
    const uint64_t sign = _ll_sign_(a);
    return _ll_value_(_ll_bits_(b) ? (_ll_absolute_(a) % _ll_absolute_(b) ^ sign) - sign : _ll_bits_(a));
}

static inline _lglg_ _llneg_(_ll_operand_ a)
{
    return _ll_value_(0 - _ll_bits_(a));
}

/* The value is that before the step. */
static inline _lglg_ _ll_step_(volatile _lglg_ *a, uint64_t step)
{
    const uint64_t before = _ll_bits_(a);
    a->high = (uint32_t)((before + step) >> 32);
    a->low = (uint32_t)(before + step);
    return _ll_value_(before);
}

static inline _lglg_ _llinc_(volatile _lglg_ *a)
{
    return _ll_step_(a, 1);
}

static inline _lglg_ _lldec_(volatile _lglg_ *a)
{
    return _ll_step_(a, ~(uint64_t)0);
}

/* ---- Bits ---- */

static inline _lglg_ _lland_(_ll_operand_ a, _ll_operand_ b)
{
    return _ll_value_(_ll_bits_(a) & _ll_bits_(b));
}

static inline _lglg_ _llor_(_ll_operand_ a, _ll_operand_ b)
{
    return _ll_value_(_ll_bits_(a) | _ll_bits_(b));
}

static inline _lglg_ _llxor_(_ll_operand_ a, _ll_operand_ b)
{
    return _ll_value_(_ll_bits_(a) ^ _ll_bits_(b));
}

static inline _lglg_ _llcom_(_ll_operand_ a)
{
    return _ll_value_(~_ll_bits_(a));
}

static inline _lglg_ _lllsh_(_ll_operand_ a, int count)
{
    return _ll_value_(count >= 0 && count < 64 ? _ll_bits_(a) << count : 0);
}

static inline _lglg_ _llrshu_(_ll_operand_ a, int count)
{
    return _ll_value_(count >= 0 && count < 64 ? _ll_bits_(a) >> count : 0);
}

static inline _lglg_ _llrshs_(_ll_operand_ a, int count)
{
    const uint64_t sign = _ll_sign_(a);
    return _ll_value_(count >= 0 && count < 64 ? (_ll_bits_(a) ^ sign) >> count ^ sign : sign);
}

/* ---- Comparison: 0 to 5 are == != > <= < >= of signed numbers, and 8 more of unsigned ones ---- */

static inline int _llcmp_(int code, _ll_operand_ a, _ll_operand_ b)
{
    const uint64_t top = code & 8 ? 0 : (uint64_t)1 << 63; /* turned over, signed numbers order as unsigned ones do */
    const uint64_t left = _ll_bits_(a) ^ top;
    const uint64_t right = _ll_bits_(b) ^ top;
    const int pair = code & 6;
    const int truth = pair == 0 ? left == right : pair == 2 ? left > right : left < right;
    return code & 1 ? !truth : truth;
}

/* ---- From other types: zero-extended or sign-extended from the width of what is given ---- */

static inline uint64_t _ll_zeros_(uint64_t bits, unsigned size)
{
    return size < 8 ? bits & (((uint64_t)1 << 8 * size) - 1) : bits;
}

static inline uint64_t _ll_signs_(uint64_t bits, unsigned size)
{
    const uint64_t top = (uint64_t)1 << (8 * (size < 8 ? size : 8) - 1);
    return (_ll_zeros_(bits, size) ^ top) - top;
}

/* A floating number, towards zero. One that is out of range becomes the nearest end of it, unsigned above and signed
   below, and what isn't a number becomes 0. */
static inline uint64_t _ll_truncated_(double x)
{
    if (x >= 18446744073709551616.0) {
        return ~(uint64_t)0;
    }
    if (x <= -9223372036854775808.0) {
        return (uint64_t)1 << 63;
    }
    return x >= 0 ? (uint64_t)x : x < 0 ? (uint64_t)(int64_t)x : 0;
}

#ifdef __cplusplus

template <bool Signed>
struct _ll_set_ : _lglg_ {
    template <typename T>
    explicit _ll_set_(T x)
        : _lglg_(_ll_value_(Signed ? _ll_signs_(static_cast<uint64_t>(x), sizeof(x))
                                   : _ll_zeros_(static_cast<uint64_t>(x), sizeof(x))))
    {}
    template <typename T>
    explicit _ll_set_(T *x) : _lglg_(_ll_value_(reinterpret_cast<uintptr_t>(x)))
    {}
    explicit _ll_set_(float x) : _lglg_(_ll_value_(_ll_truncated_(static_cast<double>(x)))) {}
    explicit _ll_set_(double x) : _lglg_(_ll_value_(_ll_truncated_(x))) {}
};

typedef _ll_set_<false> _llsetu_;
typedef _ll_set_<true> _llsets_;

#else

/* The conversions by type: of each integer type one that extends with zeros and one that extends the sign. */
#define _LL_FROM_(name, type)                                                                                          \
    static inline _lglg_ _llsetu_##name##_(type x)                                                                     \
    {                                                                                                                  \
        return _ll_value_(_ll_zeros_((uint64_t)x, (unsigned)sizeof(x)));                                               \
    }                                                                                                                  \
    static inline _lglg_ _llsets_##name##_(type x)                                                                     \
    {                                                                                                                  \
        return _ll_value_(_ll_signs_((uint64_t)x, (unsigned)sizeof(x)));                                               \
    }

_LL_FROM_(bool, _Bool)
_LL_FROM_(char, char)
_LL_FROM_(schar, signed char)
_LL_FROM_(uchar, unsigned char)
_LL_FROM_(short, short)
_LL_FROM_(ushort, unsigned short)
_LL_FROM_(int, int)
_LL_FROM_(uint, unsigned)
_LL_FROM_(long, long)
_LL_FROM_(ulong, unsigned long)
_LL_FROM_(llong, long long)
_LL_FROM_(ullong, unsigned long long)

static inline _lglg_ _ll_floating_(double x)
{
    return _ll_value_(_ll_truncated_(x));
}

static inline _lglg_ _ll_pointer_(const volatile void *x)
{
    return _ll_value_((uintptr_t)x);
}

/* clang-format off */
#define _LL_SET_(set, ...) \
    _Generic((__VA_ARGS__), \
        _Bool: set##bool_, \
        char: set##char_, signed char: set##schar_, unsigned char: set##uchar_, \
        short: set##short_, unsigned short: set##ushort_, \
        int: set##int_, unsigned: set##uint_, \
        long: set##long_, unsigned long: set##ulong_, \
        long long: set##llong_, unsigned long long: set##ullong_, \
        float: _ll_floating_, double: _ll_floating_, \
        default: _ll_pointer_)(__VA_ARGS__)
/* clang-format on */

/* A result as an object, so that it has an address: the one element of an array. The commas of
   an argument such as (_lglg_){0,1} are what all of these take any number of arguments for. */
#define _LL_OBJECT_(...) (*(_lglg_[1]){__VA_ARGS__})

#define _lladd_(...) _LL_OBJECT_(_lladd_(__VA_ARGS__))
#define _llsub_(...) _LL_OBJECT_(_llsub_(__VA_ARGS__))
#define _llmul_(...) _LL_OBJECT_(_llmul_(__VA_ARGS__))
#define _lldiv_(...) _LL_OBJECT_(_lldiv_(__VA_ARGS__))
#define _lludv_(...) _LL_OBJECT_(_lludv_(__VA_ARGS__))
#define _llmod_(...) _LL_OBJECT_(_llmod_(__VA_ARGS__))
#define _llumd_(...) _LL_OBJECT_(_llumd_(__VA_ARGS__))
#define _lland_(...) _LL_OBJECT_(_lland_(__VA_ARGS__))
#define _llor_(...) _LL_OBJECT_(_llor_(__VA_ARGS__))
#define _llxor_(...) _LL_OBJECT_(_llxor_(__VA_ARGS__))
#define _lllsh_(...) _LL_OBJECT_(_lllsh_(__VA_ARGS__))
#define _llrshu_(...) _LL_OBJECT_(_llrshu_(__VA_ARGS__))
#define _llrshs_(...) _LL_OBJECT_(_llrshs_(__VA_ARGS__))
#define _llneg_(...) _LL_OBJECT_(_llneg_(__VA_ARGS__))
#define _llcom_(...) _LL_OBJECT_(_llcom_(__VA_ARGS__))
#define _llinc_(...) _LL_OBJECT_(_llinc_(__VA_ARGS__))
#define _lldec_(...) _LL_OBJECT_(_lldec_(__VA_ARGS__))
#define _llsetu_(...) _LL_OBJECT_(_LL_SET_(_llsetu_, __VA_ARGS__))
#define _llsets_(...) _LL_OBJECT_(_LL_SET_(_llsets_, __VA_ARGS__))

#endif

#endif
