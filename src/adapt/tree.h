// From the graph of blocks to a tree of statements.
//
// The road of one function: makenodes() turns its blocks into nodes. foldconditions() folds regions of branches with
// one entry and two exits into conditions, and the diamonds of ?: into values. buildstatements() turns the instructions
// of each node into statements over trees of expressions: a value is written where it is used only if that is the same
// statement and nothing in between could change it; any other value gets a variable. structure() turns the graph of
// nodes into a tree of statements. printfunctionbody() says each statement in the one form of blocks and labels for
// which quarl prints just that statement.
#pragma once

#include "adapt/ir.h"

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace adapt {

struct Expr;
struct Node;
struct Stmt;
struct Tree;

// ---- Variables of the C function ----

struct Variable {
    std::string name;  // without %; settled by settlelocals()
    Type *type = nullptr;
    Value *slot = nullptr;   // its alloca in the input; null for one that was added
    Value *param = nullptr;  // the parameter whose slot this is: C has one variable for both
    bool escapes = false;    // its address is known to others than loads and stores
    bool stable = false;     // the slot of a parameter that nothing else is stored in
    bool used = false;       // is printed
};

// ---- Expressions (values.cpp) ----

enum class ExprKind : std::uint8_t {
    constant,     // value: a constant, addresses of globals included
    address,      // of a variable
    operation,    // of `op`: what the instruction does with its operands
    post_step,    // operands: the address of what is stepped; `negative` for --
    assign,       // operands: address, value; gives the value
    logical_and,  // operands: terms, from the left
    logical_or,
    choice,  // operands: condition, value if true, value if false
    comma,   // statements, then operands: the value
};

// A place in memory that an expression reads or writes, as far as it is known: a variable, a global, or any object
// whose address has become known to others (null, null).
struct Place {
    const Variable *variable = nullptr;
    const Global *global = nullptr;
};

// What evaluating an expression does and depends on. Lists that grow too long give way to the flags.
struct Effects {
    std::vector<Place> reads;
    std::vector<Place> writes;
    bool calls = false;  // reads and writes whatever others know the address of
    bool is_volatile = false;
    bool reads_any = false;  // every variable, too
    bool writes_any = false;
};

struct Expr {
    ExprKind kind = ExprKind::constant;
    Op op = Op::none;
    Predicate predicate = Predicate::none;
    bool is_volatile = false;
    bool negative = false;
    Type *type = nullptr;
    Value *value = nullptr;  // constant: the constant; operation: the instruction it came from
    Variable *variable = nullptr;
    std::vector<Expr *> operands;  // call: the callee first
    std::vector<Stmt *> statements;
    Effects effects;
    std::uint32_t depth = 1;
    std::uint32_t size = 1;
};

// ---- Statements (structure.cpp) ----

enum class StmtKind : std::uint8_t {
    expression,  // value: a call
    store,       // address, value
    set,         // variable = value
    if_,         // condition, body, other
    while_,      // condition, body
    do_,         // body, condition
    for_,        // condition (null: none), body, step
    switch_,     // value, body; its cases are marked in the body
    case_,       // cases, is_default: a place in the body of a switch
    break_,
    continue_,
    return_,  // value (may be null)
    goto_,    // target
    label,    // target: the node
    unreachable,
};

struct Stmt {
    StmtKind kind = StmtKind::expression;
    bool is_volatile = false;
    bool is_default = false;
    Expr *address = nullptr;
    Expr *value = nullptr;
    Expr *condition = nullptr;
    Variable *variable = nullptr;
    Node *target = nullptr;
    std::vector<Value *> cases;
    std::vector<Stmt *> body;
    std::vector<Stmt *> other;  // else
    std::vector<Stmt *> step;
    const Value *origin = nullptr;  // for messages
};

// ---- The graph (conditions.cpp) ----

// A condition before its instructions have become expressions. `items` are evaluated before it, and only when it is
// its turn.
struct Condition {
    enum class Kind : std::uint8_t { leaf, all, any, choice };
    Kind kind = Kind::leaf;
    bool negated = false;
    Value *value = nullptr;  // leaf
    std::vector<Value *> items;
    std::vector<Condition *> terms;  // all, any: from the right to the left; choice: condition, if true, if false
    bool has_comma = false;          // a term holds statements
    std::uint32_t depth = 1;
};

// A phi that has become a value of its own: a chain of && and || (condition alone), or a choice of two values.
struct Folded {
    Condition *condition = nullptr;
    bool is_choice = false;
    std::vector<Value *> true_items;
    std::vector<Value *> false_items;
    Value *true_value = nullptr;
    Value *false_value = nullptr;
};

enum class Exit : std::uint8_t { jump, branch, switch_, return_, unreachable };

struct Incoming {
    Node *from = nullptr;
    Value *value = nullptr;
};

struct Phi {
    Value *value = nullptr;
    std::vector<Incoming> incoming;
    Variable *variable = nullptr;
};

// How far a loop's header is written: its label, then the header itself within the loop, as the condition or in full.
enum class Opened : std::uint8_t { no, tested, entered };

struct Node {
    std::vector<Value *> items;  // instructions, the exit apart; a folded phi stands where its value is computed
    std::vector<Phi> phis;       // that aren't folded
    Exit exit = Exit::jump;
    Condition *condition = nullptr;  // branch
    Value *value = nullptr;          // switch, return (may be null)
    Value *terminator = nullptr;
    std::vector<Node *> succs;  // branch: true, false; switch: default, then one for each case
    std::vector<Value *> cases;
    std::uint32_t pred_count = 0;  // edges that lead here
    std::vector<Node *> preds;     // one entry for each edge; made by analyse()
    const Block *block = nullptr;  // where the name comes from; null for a node on an edge
    bool removed = false;
    std::uint32_t index = 0;         // in the order of the input
    std::vector<Stmt *> statements;  // made by buildstatements()
    Expr *result = nullptr;          // branch: the condition; switch, return: the value
    std::uint32_t order = 0;         // reverse postorder
    Node *dominator = nullptr;       // immediate
    std::vector<Node *> children;    // in the dominator tree
    Node *loop = nullptr;            // header of the innermost loop around it (for a header: its own)
    Node *outer_loop = nullptr;      // of a header: the header of the loop around it
    Node *outer_link = nullptr;      // scratch of the search for loops
    std::uint32_t enter = 0;         // numbers of a walk over the dominator tree
    std::uint32_t leave = 0;
    bool is_header = false;
    bool is_set_apart = false;  // a loop writes it: what follows the loop, its step, its condition
    Opened opened = Opened::no;
    bool labelled = false;   // a goto leads here
    bool has_label = false;  // there is a place for its label
    bool placed = false;     // is written somewhere
    std::string label;
    std::uint32_t mark = 0;
};

// All that belongs to one function.
struct Tree {
    Function *function = nullptr;
    std::deque<Node> nodes;  // the entry first
    std::deque<Expr> exprs;
    std::deque<Stmt> stmts;
    std::deque<Variable> variables;
    std::deque<Condition> conditions;
    std::deque<Folded> folded;
    std::unordered_map<const Value *, Variable *> slots;   // of allocas
    std::unordered_map<const Value *, Variable *> params;  // of parameters
    std::unordered_map<const Value *, Variable *> held;    // of values that a variable holds
    std::unordered_map<const Value *, Folded *> folded_phis;
    std::vector<const Value *> trial;           // what the last trial put into variables
    std::unordered_set<const Value *> dropped;  // instructions that C doesn't need
    std::vector<Stmt *> body;
    std::uint32_t stamp = 0;  // the last one used for Node::mark
};

// Makes the nodes and the variables of the function.
void makenodes(Tree &tree);
// Folds short-circuit conditions and ?: into the nodes where they begin. After it no folded node is reachable.
void foldconditions(Tree &tree);
// Fills statements and results of all nodes. Phis that are left become variables that the predecessors set.
void buildstatements(Tree &tree);
// Whether the items and then the value make one expression, of which nothing else uses a part: without statements in
// it, or with some that a comma can carry.
enum class Fit : std::uint8_t { no, plain, comma };
Fit fitexpression(Tree &tree, const std::vector<Value *> &items, Value *value);
// The value that the first term of a condition tests, whose instructions stand before the condition.
Value *firstvalue(const Condition *condition);
// The opposite of a condition, by the laws of De Morgan.
Expr *negate(Tree &tree, Expr *condition);
// Order, dominators and loops of the nodes that the entry reaches.
void analyse(Tree &tree, std::vector<Node *> &order);
bool dominates(const Node *a, const Node *b);
// The header of the loop around a loop, or null.
Node *enclosing(const Node *header);
bool isinloop(const Node *node, const Node *header);
// Makes Tree::body.
void structure(Tree &tree);
// Names of variables and labels as C has them, unlike each other and the globals that the function uses.
void settlelocals(Tree &tree);
// Appends the blocks of the body: from the entry label to before the closing brace.
void printfunctionbody(Tree &tree, std::string &out);

Expr *newexpr(Tree &tree, ExprKind kind, Type *type);
Stmt *newstmt(Tree &tree, StmtKind kind);
Node *newnode(Tree &tree, const Block *block);
Variable *newvariable(Tree &tree, std::string_view name, Type *type);

}  // namespace adapt
