/*
 * Atomic accesses of more than a machine word, and those that change what they read, for one core: nothing comes between
 * while interrupts are off. The board says how that is done, in a header named by BOARD_HEADER or on the command line:
 *
 *   BOARD_INTERRUPTS_OFF()           turns interrupts off; its value, of the type BOARD_INTERRUPTS, is how they were
 *   BOARD_INTERRUPTS_RESTORE(were)   makes them as they were
 *
 * BOARD_INTERRUPTS is unsigned int unless the board defines it.
 */
#include "widths.h"

#include <string.h>

#ifdef BOARD_HEADER
#include BOARD_HEADER
#endif

#if !defined(BOARD_INTERRUPTS_OFF) || !defined(BOARD_INTERRUPTS_RESTORE)
#error "the board has to define BOARD_INTERRUPTS_OFF() and BOARD_INTERRUPTS_RESTORE(were)"
#endif

#ifndef BOARD_INTERRUPTS
#define BOARD_INTERRUPTS unsigned int
#endif

/* What a compiler can't see into, it moves no access to memory across. */
void _atomic_fence_(void)
{
}

#define LOAD(size, bits)                                     \
    s##bits _atomic_load_##size##_(char *place)              \
    {                                                        \
        const BOARD_INTERRUPTS were = BOARD_INTERRUPTS_OFF(); \
        const s##bits value = *(volatile s##bits *)place;    \
        BOARD_INTERRUPTS_RESTORE(were);                      \
        return value;                                        \
    }

#define STORE(size, bits)                                    \
    void _atomic_store_##size##_(char *place, s##bits value) \
    {                                                        \
        const BOARD_INTERRUPTS were = BOARD_INTERRUPTS_OFF(); \
        *(volatile s##bits *)place = value;                  \
        BOARD_INTERRUPTS_RESTORE(were);                      \
    }

/* Gives what was there before. `changed` is made of `old` and `value`. */
#define UPDATE(name, size, bits, changed)                             \
    s##bits _atomic_##name##_##size##_(char *place, s##bits value)    \
    {                                                                 \
        const BOARD_INTERRUPTS were = BOARD_INTERRUPTS_OFF();         \
        volatile s##bits *const object = (volatile s##bits *)place;   \
        const s##bits old = *object;                                  \
        *object = (s##bits)(changed);                                 \
        BOARD_INTERRUPTS_RESTORE(were);                               \
        return old;                                                   \
    }

#define COMPARE(size, bits)                                                          \
    s##bits _atomic_compare_##size##_(char *place, s##bits expected, s##bits wanted) \
    {                                                                                \
        const BOARD_INTERRUPTS were = BOARD_INTERRUPTS_OFF();                        \
        volatile s##bits *const object = (volatile s##bits *)place;                  \
        const s##bits old = *object;                                                 \
        if (old == expected)                                                         \
            *object = wanted;                                                        \
        BOARD_INTERRUPTS_RESTORE(were);                                              \
        return old;                                                                  \
    }

#define ALL(size, bits)                                                       \
    LOAD(size, bits)                                                          \
    STORE(size, bits)                                                         \
    UPDATE(exchange, size, bits, value)                                       \
    UPDATE(add, size, bits, (u##bits)old + (u##bits)value)                    \
    UPDATE(sub, size, bits, (u##bits)old - (u##bits)value)                    \
    UPDATE(and, size, bits, old & value)                                      \
    UPDATE(or, size, bits, old | value)                                       \
    UPDATE(xor, size, bits, old ^ value)                                      \
    UPDATE(nand, size, bits, ~(old & value))                                  \
    UPDATE(max, size, bits, old > value ? old : value)                        \
    UPDATE(min, size, bits, old < value ? old : value)                        \
    UPDATE(umax, size, bits, (u##bits)old > (u##bits)value ? old : value)     \
    UPDATE(umin, size, bits, (u##bits)old < (u##bits)value ? old : value)     \
    COMPARE(size, bits)

ALL(1, 8)
ALL(2, 16)
ALL(4, 32)
#ifdef HAS_64_BITS
ALL(8, 64)
#endif

/* Objects of any size, by the size and addresses. The orders don't matter. */

#ifdef BOARD_SIZE
typedef BOARD_SIZE any_size;
#else
typedef unsigned int any_size; /* as size_t on the targets of the front end */
#endif

void _atomic_load_any_(any_size size, char *place, char *result, int order)
{
    const BOARD_INTERRUPTS were = BOARD_INTERRUPTS_OFF();
    (void)order;
    memcpy(result, place, size);
    BOARD_INTERRUPTS_RESTORE(were);
}

void _atomic_store_any_(any_size size, char *place, char *value, int order)
{
    _atomic_load_any_(size, value, place, order);
}

void _atomic_exchange_any_(any_size size, char *place, char *value, char *result, int order)
{
    const BOARD_INTERRUPTS were = BOARD_INTERRUPTS_OFF();
    (void)order;
    memcpy(result, place, size);
    memcpy(place, value, size);
    BOARD_INTERRUPTS_RESTORE(were);
}

char _atomic_compare_exchange_any_(any_size size, char *place, char *expected, char *wanted, int success, int failure)
{
    const BOARD_INTERRUPTS were = BOARD_INTERRUPTS_OFF();
    const char same = memcmp(place, expected, size) == 0;
    (void)success;
    (void)failure;
    if (same)
        memcpy(place, wanted, size);
    else
        memcpy(expected, place, size);
    BOARD_INTERRUPTS_RESTORE(were);
    return same;
}
