// Objects that live as long as the program: in the order of their priorities and of their definitions, and back.
#include "print.h"

namespace {
struct Tracer {
    const char *name;
    long long order;
    static int next;
    Tracer(const char *n) : name(n), order(++next) { put(name, (int)order); }
    ~Tracer() { put(name, -(int)order); }
};
int Tracer::next;
}  // namespace
static int twice(int n) { return 2 * n; }
extern int later;
static int earlier = twice(later);
static Tracer plain("plain");
__attribute__((init_priority(300))) Tracer second("priority 300");
__attribute__((init_priority(200))) Tracer first("priority 200");
int later = twice(21);
static Tracer last("last");
static const Tracer &reference = last;
static int *const pointer = &later;
__attribute__((constructor(150))) static void before() { put("constructor", Tracer::next); }
__attribute__((destructor)) static void behind() { put("destructor", Tracer::next); }
static Tracer &local()
{
    static Tracer tracer("local");
    return tracer;
}

int main()
{
    put("main", earlier + later + *pointer);
    put(local().name, (int)local().order), put(reference.name, (int)reference.order);
    Tracer here("here");
    return twice(Tracer::next);
}
