/* The results of the 64-bit helpers. Each row has an expression as the output holds it, and the halves of its value. */
#include <lldefs.h>
#include <math.h>
#include <stdio.h>

#define N(high, low) ((_lglg_){high, low})

static int failed;

static void compare(int line, _lglg_ value, uint32_t high, uint32_t low)
{
    if (value.high == high && value.low == low)
        return;
    printf("line %d: %08lx %08lx\n", line, (unsigned long)value.high, (unsigned long)value.low);
    failed = 1;
}

#define ROW(high, low, ...) compare(__LINE__, __VA_ARGS__, high, low)

static void integers(void)
{
    const unsigned char byte = 200;
    const signed char negative = -56; /* the same bits */
    const short two_bytes = -2;
    ROW(0xFFFFFFFF, 0xFFFFFFC8, _llsets_(byte));
    ROW(0, 0xC8, _llsetu_(byte));
    ROW(0xFFFFFFFF, 0xFFFFFFC8, _llsets_(negative));
    ROW(0, 0xC8, _llsetu_(negative));
    ROW(0xFFFFFFFF, 0xFFFFFFFE, _llsets_(two_bytes));
    ROW(0, 0xFFFE, _llsetu_(two_bytes));
    ROW(0xFFFFFFFF, 0x80000000, _llsets_(0x80000000U));
    ROW(0, 0x80000000, _llsetu_(-2147483647 - 1));
    ROW(0x80000000, 1, _llsets_(0x8000000000000001ULL));
    ROW(0xFFFFFFFF, 0xFFFFFFFF, _llsetu_(-1LL));
    ROW(0, 1, _llsets_(byte == 200));
    ROW(0, 7, _llsets_((int)N(5, 7).low));
    ROW(0xFFFFFFFF, 0xFFFFFFFD, _llsets_((int)_llsets_(-3).low));
}

static void floating(void)
{
    const float three = 3e9F;
    ROW(0, 0xB2D05E00, _llsets_(three));
    ROW(0, 0xB2D05E00, _llsetu_(three));
    ROW(0, 1, _llsets_(1.75F));
    ROW(0xFFFFFFFF, 0xFFFFFFFF, _llsets_(-1.75));
    ROW(0xFFFFFFFF, 0xFFFFFFFF, _llsetu_(-1.75F));
    ROW(0x80000000, 0, _llsets_(9223372036854775808.0));
    ROW(0xA688906B, 0xD8B00000, _llsets_(12e18));
    ROW(0xFFFFFFFF, 0xFFFFFFFF, _llsets_(18446744073709551616.0));
    ROW(0xFFFFFFFF, 0xFFFFFFFF, _llsets_(1e30F));
    ROW(0x80000000, 0, _llsets_(-9223372036854775808.0));
    ROW(0x80000000, 0, _llsets_(-INFINITY));
    ROW(0, 0, _llsets_(NAN));
}

static void pointers(void)
{
    static char array[3];
    const uint64_t address = (uintptr_t)&array[0];
    ROW((uint32_t)(address >> 32), (uint32_t)address, _llsets_(array));
    ROW((uint32_t)(address >> 32), (uint32_t)address, _llsetu_(&array[0]));
}

static void operators(void)
{
    _lglg_ a = {0xFFFFFFFF, 0xFFFFFFF9}; /* -7 */
    _lglg_ least = {0x80000000, 0};
    _lglg_ zero = {0, 0};
    ROW(0, 3, _lladd_(&a, &N(0, 10)));
    ROW(1, 0, _lladd_(&N(0, 0xFFFFFFFF), &N(0, 1)));
    ROW(0xFFFFFFFF, 0xFFFFFFEF, _llsub_(&a, &N(0, 10)));
    ROW(0xFFFFFFFF, 0xFFFFFFEB, _llmul_(&a, &N(0, 3)));
    ROW(0xFFFFFFFF, 0xFFFFFFFD, _lldiv_(&a, &N(0, 2)));
    ROW(0xFFFFFFFF, 0xFFFFFFFF, _llmod_(&a, &N(0, 2)));
    ROW(0x7FFFFFFF, 0xFFFFFFFC, _lludv_(&a, &N(0, 2)));
    ROW(0, 9, _llumd_(&a, &N(0, 16)));
    ROW(0x80000000, 0, _lldiv_(&least, &N(0xFFFFFFFF, 0xFFFFFFFF)));
    ROW(0, 0, _llmod_(&least, &N(0xFFFFFFFF, 0xFFFFFFFF)));
    ROW(0xFFFFFFFF, 0xFFFFFFFF, _lludv_(&a, &zero));
    ROW(0xFFFFFFFF, 0xFFFFFFF9, _llmod_(&a, &zero));
    ROW(0, 0xFFFFFFF8, _lland_(&a, &N(0, 0xFFFFFFFC)));
    ROW(0xFFFFFFFF, 0xFFFFFFFF, _llor_(&a, &N(0, 6)));
    ROW(0, 6, _llxor_(&a, &N(0xFFFFFFFF, 0xFFFFFFFF)));
    ROW(0, 6, _llcom_(&a));
    ROW(0, 7, _llneg_(&a));
    ROW(0xFFFFFFF9, 0, _lllsh_(&a, 32));
    ROW(0, 0, _lllsh_(&a, 64));
    ROW(0xFFFFFFFF, 0xFFFFFFFE, _llrshs_(&a, 2));
    ROW(0xFFFFFFFF, 0xFFFFFFFF, _llrshs_(&a, 64));
    ROW(0x3FFFFFFF, 0xFFFFFFFE, _llrshu_(&a, 2));
    ROW(0xFFFFFFFF, 0xFFFFFFF9, _llinc_(&a));
    ROW(0xFFFFFFFF, 0xFFFFFFFA, _lldec_(&a));
    ROW(0xFFFFFFFF, 0xFFFFFFF9, a);
    ROW(0, 17, _llsub_(&N(0, 10), &_llsets_(-7)));
}

/* The codes in the order == != > <= < >=, a bit each, then the unsigned ones. */
static void comparisons(void)
{
    const _lglg_ minus = {0xFFFFFFFF, 0xFFFFFFF9};
    const _lglg_ plus = {0, 3};
    const int codes[] = {0, 1, 2, 3, 4, 5, 10, 11, 12, 13};
    unsigned less = 0;
    unsigned same = 0;
    int i;
    for (i = 0; i < 10; i++) {
        less |= (unsigned)_llcmp_(codes[i], &minus, &plus) << i;
        same |= (unsigned)_llcmp_(codes[i], &plus, &plus) << i;
    }
    ROW(0, 0x25A, _llsetu_(less));
    ROW(0, 0x2A9, _llsetu_(same));
}

int main(void)
{
    integers();
    floating();
    pointers();
    operators();
    comparisons();
#ifdef __cplusplus
    ROW(0, 2, _llsets_{2.5F});
    ROW(0, 0xFE, _llsetu_{(signed char)-2});
#endif
    return failed;
}
