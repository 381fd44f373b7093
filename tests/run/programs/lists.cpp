// Linked lists and trees: insertion, removal through links, reversal, traversal with and without recursion.
#include "print.h"

struct Node {
    int value;
    Node *next, *left, *right;
};
static Node pool[40];
static int used;
static Node *make(int value)
{
    Node *node = &pool[used++];
    node->value = value;
    return node;
}
static void insert_sorted(Node **link, int value)
{
    while (*link && (*link)->value < value) link = &(*link)->next;
    Node *node = make(value);
    node->next = *link, *link = node;
}
static Node *reverse(Node *list)
{
    Node *done = 0;
    while (list) {
        Node *next = list->next;
        list->next = done, done = list, list = next;
    }
    return done;
}
static int remove_even(Node **link)
{
    int count = 0;
    while (Node *node = *link)
        if (node->value % 2 == 0) *link = node->next, count++;
        else link = &node->next;
    return count;
}
static Node *insert(Node *tree, int value)
{
    if (!tree) return make(value);
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
    for (int i = 0; i < 9; i++) insert_sorted(&list, i * 7 % 10);
    list = reverse(list);
    for (Node *node = list; node; node = node->next) put("list", node->value);
    put("removed", remove_even(&list)), put("first", list->value), put("second", list->next->value);
    for (int i = 0; i < 20; i++) tree = insert(tree, i * 11 % 23 + 1);
    put("depth", walk(tree, show)), put64("sum", sum);
    Node *queue[32], **head = queue, **tail = queue;
    for (*tail++ = tree; head != tail; head++) {
        put("breadth", (*head)->value);
        if ((*head)->left) *tail++ = (*head)->left;
        if ((*head)->right) *tail++ = (*head)->right;
    }
    return tree->value;
}
