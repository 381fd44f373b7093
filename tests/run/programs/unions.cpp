// Unions, bit fields of every width and sign, and how they share their bytes.
#include "print.h"

union Word {
    unsigned bits;
    float number;
    unsigned char bytes[4];
    struct {
        short low, high;
    } halves;
};
struct Flags {
    unsigned ready : 1, mode : 3, count : 7;
    int level : 5, step : 16;
    unsigned char kind : 4, rest : 4;
    bool last : 1;
};
struct Variant {
    enum { whole, real, text } kind;
    union {
        int number;
        double value;
        const char *name;
    };
};

static int show(const Variant &v)
{
    switch (v.kind) {
    case Variant::whole: return v.number;
    case Variant::real: return (int)(v.value * 10);
    case Variant::text: return v.name[1];
    }
    return -1;
}

int main()
{
    Word w;
    for (float f = -1.5f; f < 3; f += 1.25f) {
        w.number = f;
        put64("bits", w.bits), put("low", w.halves.low), put("high", w.halves.high);
        w.bytes[3] ^= 0x80;
        putd("negated", w.number);
    }
    Flags f = {};
    for (int i = -20; i < 20; i += 3) {
        f.ready = i, f.mode = i, f.count += i, f.level = i, f.step = i * 3000, f.kind = i, f.rest = ~i, f.last = i & 2;
        put("ready", f.ready), put("mode", f.mode), put("count", f.count), put("level", f.level), put("step", f.step);
        put("kind", f.kind), put("rest", f.rest), put("last", f.last);
        put("sum", f.mode + f.level * f.kind), put("test", f.ready && f.last ? f.level : f.mode);
    }
    Variant all[3];
    all[0].kind = Variant::whole, all[1].kind = Variant::real, all[2].kind = Variant::text;
    all[0].number = -5, all[1].value = 2.5, all[2].name = "xyz";
    for (const Variant &v : all) put("variant", show(v));
}
