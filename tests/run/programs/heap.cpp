// A heap of its own behind operator new and delete: first fit, with neighbours joined again.
#include "print.h"

struct Block {
    Block *next;
    unsigned size;
    bool used;
};
static long long arena[64];
static Block *const first = (Block *)arena;
static const unsigned head = sizeof(Block);

static void start() { first->next = 0, first->size = sizeof(arena) - head, first->used = false; }
static int at(const void *place) { return (int)((const char *)place - (const char *)arena); }
void *operator new(__SIZE_TYPE__ size)
{
    size = (size + 7) & ~7u;
    for (Block *b = first; b; b = b->next) {
        if (b->used || b->size < size) continue;
        if (b->size >= size + head + 8) {
            Block *rest = (Block *)((char *)(b + 1) + size);
            rest->next = b->next, rest->size = b->size - size - head, rest->used = false;
            b->next = rest, b->size = size;
        }
        b->used = true;
        put("new", at(b + 1));
        return b + 1;
    }
    put("full", (int)size);
    return 0;
}
void operator delete(void *object) noexcept
{
    if (!object) return;
    ((Block *)object - 1)->used = false;
    put("delete", at(object));
    for (Block *b = first; b; b = b->next)
        while (!b->used && b->next && !b->next->used) b->size += head + b->next->size, b->next = b->next->next;
}
void *operator new[](__SIZE_TYPE__ size) { return operator new(size); }
void operator delete[](void *object) noexcept { operator delete(object); }

struct Item {
    Item *next;
    long long value;
    Item(Item *n, int v) : next(n), value(v) {}
    ~Item() { put("item", (int)value); }
};

int main()
{
    start();
    Item *list = 0;
    for (int i = 0; i < 4; i++) list = new Item(list, i * i);
    Item *gone = list->next->next;
    list->next->next = gone->next;
    delete gone;
    char *text = new char[20];
    for (int i = 0; i < 20; i++) text[i] = 'a' + i;
    Item *array = (Item *)operator new(300);
    put("array", array != 0), put("text", text[19]);
    delete[] text;
    while (list) {
        Item *next = list->next;
        delete list;
        list = next;
    }
    delete array;
    for (Block *b = first; b; b = b->next) put("block", (int)b->size);
}
