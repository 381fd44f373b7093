// Lists and trees on a heap of its own behind operator new and delete: first fit, with neighbours joined again.
#include "print.h"

struct Block {
    Block *next;
    unsigned size;
    bool used;
};
static long long arena[64];
static Block *const first = (Block *)arena;
static const unsigned head = sizeof(Block);

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
        put("new", at(b + 1)), b->used = true;
        return b + 1;
    }
    put("full", (int)size);
    return 0;
}
void operator delete(void *object) noexcept
{
    put("delete", at(object)), ((Block *)object - 1)->used = false;
    for (Block *b = first; b; b = b->next)
        while (!b->used && b->next && !b->next->used) b->size += head + b->next->size, b->next = b->next->next;
}
void *operator new[](__SIZE_TYPE__ size) { return operator new(size); }
void operator delete[](void *object) noexcept { operator delete(object); }

struct Node {
    int value;
    Node *left, *right, *next = 0;
    Node(int v, Node *n = 0) : value(v), left(0), right(0), next(n) {}
    ~Node() { put("node", value); }
};
static void insert_sorted(Node **link, int value)
{
    while (*link && (*link)->value < value) link = &(*link)->next;
    *link = new Node(value, *link);
}
static Node *insert(Node *tree, int value)
{
    if (!tree) return new Node(value);
    if (value < tree->value) tree->left = insert(tree->left, value);
    else if (value > tree->value) tree->right = insert(tree->right, value);
    return tree;
}
static int walk(const Node *tree, void (*visit)(const Node *))
{
    if (!tree) return 0;
    int left = walk(tree->left, visit);
    visit(tree);
    int right = walk(tree->right, visit);
    return 1 + (left > right ? left : right);
}
static long long sum;
static void show(const Node *node) { put("node", node->value), sum += node->value; }
static Node *list, *tree;

int main()
{
    first->size = sizeof(arena) - head;
    for (int i = 0; i < 7; i++) insert_sorted(&list, i * 7 % 10);
    for (Node *node = list; node; node = node->next) put("list", node->value);
    for (int i = 0; i < 9; i++) tree = insert(tree, i * 11 % 13 + 1);
    char *text = new char[20];
    text[19] = 'a', put("text", text[19]), put("depth", walk(tree, show)), put64("sum", sum);
    put("none", operator new(300) == 0), delete[] text;
    while (list) {
        Node *next = list->next;
        delete list;
        list = next;
    }
    for (Block *b = first; b; b = b->next) put("block", (int)b->size);
    return tree->value;
}
