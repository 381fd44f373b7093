// The program model: records, named codes, interned names, the global lists, and the folding of temporaries.
// The reader fills the model, the output stages walk it. Records are never freed: they come from pools and live until
// the process ends, and so does everything that a record points to.
#pragma once

#include "base/base.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

struct Block;
struct Expr;
struct Inst;
struct LocalName;
struct Meta;
struct Name;
struct Symbol;
struct Type;

// ---- Options ----------------------------------------------------------------------------------------------------
// Whole-number flags, 0 unless the command line sets them.

inline int no_header;    // -h: declarations in place of string.h and stdlib.h
inline int no_inline;    // -i: no inline ordering, no @inline
inline int long_long;    // -ll: 64-bit integers become a struct type and helper calls
inline int no_math;      // -mc: calls of math functions are not folded
inline int keep_unused;  // -u: unused variables and declarations are written

// ---- Codes ------------------------------------------------------------------------------------------------------
// One numbering serves all records: below 128 the token codes of a C scanner, which are also the operators of
// expressions, from 128 on the keywords of C in alphabetical order. One number can mean different things in different
// records, so the names are grouped by record.

// Token codes of the scanner.
namespace token {
inline constexpr std::uint16_t comma = 1;
inline constexpr std::uint16_t colon = 2;
inline constexpr std::uint16_t string = 4;
inline constexpr std::uint16_t at = 5;
inline constexpr std::uint16_t ellipsis = 7;
inline constexpr std::uint16_t arrow = 8;
inline constexpr std::uint16_t question = 9;
inline constexpr std::uint16_t left_paren = 10;
inline constexpr std::uint16_t right_paren = 11;
inline constexpr std::uint16_t left_bracket = 12;
inline constexpr std::uint16_t right_bracket = 13;
inline constexpr std::uint16_t increment = 14;
inline constexpr std::uint16_t decrement = 15;
inline constexpr std::uint16_t left_brace = 16;
inline constexpr std::uint16_t right_brace = 17;
inline constexpr std::uint16_t identifier = 18;
inline constexpr std::uint16_t number = 19;
inline constexpr std::uint16_t hash = 20;
inline constexpr std::uint16_t double_hash = 21;
inline constexpr std::uint16_t end_of_line = 23;
inline constexpr std::uint16_t other = 24;
inline constexpr std::uint16_t bang = 61;
inline constexpr std::uint16_t tilde = 62;
inline constexpr std::uint16_t slash = 68;
inline constexpr std::uint16_t percent = 69;
inline constexpr std::uint16_t shift_left = 70;
inline constexpr std::uint16_t shift_right = 71;
inline constexpr std::uint16_t caret = 73;
inline constexpr std::uint16_t bar = 74;
inline constexpr std::uint16_t less = 75;
inline constexpr std::uint16_t greater_equal = 76;
inline constexpr std::uint16_t greater = 77;
inline constexpr std::uint16_t less_equal = 78;
inline constexpr std::uint16_t equal = 79;
inline constexpr std::uint16_t not_equal = 80;
inline constexpr std::uint16_t add_assign = 81;
inline constexpr std::uint16_t sub_assign = 82;
inline constexpr std::uint16_t mul_assign = 83;
inline constexpr std::uint16_t div_assign = 84;
inline constexpr std::uint16_t rem_assign = 85;
inline constexpr std::uint16_t shift_left_assign = 86;
inline constexpr std::uint16_t shift_right_assign = 87;
inline constexpr std::uint16_t and_assign = 88;
inline constexpr std::uint16_t xor_assign = 89;
inline constexpr std::uint16_t or_assign = 90;
inline constexpr std::uint16_t and_and = 91;
inline constexpr std::uint16_t or_or = 92;
inline constexpr std::uint16_t assign = 95;
inline constexpr std::uint16_t plus = 97;
inline constexpr std::uint16_t minus = 98;
inline constexpr std::uint16_t star = 99;
inline constexpr std::uint16_t ampersand = 104;
inline constexpr std::uint16_t dollar = 252;
}  // namespace token

// Type::kind. Bit 0 of every integer kind but the bool means unsigned; the kinds are ordered by size.
namespace kind {
inline constexpr std::uint8_t boolean = 0x01;
inline constexpr std::uint8_t ellipsis = 0x07;
inline constexpr std::uint8_t signed_char = 0x10;
inline constexpr std::uint8_t plain_char = 0x11;  // i8; counts as unsigned
inline constexpr std::uint8_t short_int = 0x20;
inline constexpr std::uint8_t unsigned_short = 0x21;
inline constexpr std::uint8_t int16 = 0x30;  // the target's int
inline constexpr std::uint8_t uint16 = 0x31;
inline constexpr std::uint8_t int32 = 0x40;  // the target's long
inline constexpr std::uint8_t uint32 = 0x41;
inline constexpr std::uint8_t int24 = 0x43;
inline constexpr std::uint8_t int64 = 0x48;
inline constexpr std::uint8_t uint64 = 0x49;
inline constexpr std::uint8_t float32 = 0x58;
inline constexpr std::uint8_t float64 = 0x5C;
inline constexpr std::uint8_t last_scalar = 0x5C;
inline constexpr std::uint8_t structure = 0x60;
inline constexpr std::uint8_t union_ = 0x64;
inline constexpr std::uint8_t void_ = 0x70;  // also an aggregate that is named and not yet defined
inline constexpr std::uint8_t pointer = 0x80;
inline constexpr std::uint8_t array = 0x84;
inline constexpr std::uint8_t function = 0x88;
}  // namespace kind

// Expr::op.
namespace op {
inline constexpr std::uint8_t leaf = 0;
inline constexpr std::uint8_t comma = 1;        // comma expression, and a cell of a call's argument list
inline constexpr std::uint8_t phi = 2;          // left: value of the first pair, right: of the last
inline constexpr std::uint8_t field = 6;        // right->symbol is the member
inline constexpr std::uint8_t conditional = 9;  // left ? middle : right
inline constexpr std::uint8_t index = 12;
inline constexpr std::uint8_t increment = 14;    // postfix
inline constexpr std::uint8_t decrement = 15;    // postfix
inline constexpr std::uint8_t open_brace = 16;   // marker of an initialiser list
inline constexpr std::uint8_t close_brace = 17;  // marker of an initialiser list
inline constexpr std::uint8_t cast = 26;
inline constexpr std::uint8_t call = 27;         // right: first argument cell
inline constexpr std::uint8_t dereference = 35;  // under an alloca: a dynamic array, left is the element count
inline constexpr std::uint8_t address = 40;
inline constexpr std::uint8_t logical_not = 61;
inline constexpr std::uint8_t divide = 68;
inline constexpr std::uint8_t remainder = 69;
inline constexpr std::uint8_t shift_left = 70;
inline constexpr std::uint8_t shift_right = 71;
inline constexpr std::uint8_t bit_xor = 73;
inline constexpr std::uint8_t bit_or = 74;
inline constexpr std::uint8_t less = 75;
inline constexpr std::uint8_t greater_equal = 76;
inline constexpr std::uint8_t greater = 77;
inline constexpr std::uint8_t less_equal = 78;
inline constexpr std::uint8_t equal = 79;
inline constexpr std::uint8_t not_equal = 80;
inline constexpr std::uint8_t logical_and = 91;
inline constexpr std::uint8_t logical_or = 92;
inline constexpr std::uint8_t assign = 95;
inline constexpr std::uint8_t add = 97;
inline constexpr std::uint8_t subtract = 98;
inline constexpr std::uint8_t multiply = 99;
inline constexpr std::uint8_t bit_and = 104;
inline constexpr std::uint8_t zero_element = 133;  // marker of an initialiser list
inline constexpr std::uint8_t branch_pair = 143;   // true_label and false_label of a conditional branch
}  // namespace op

// Expr::leaf, meaningful where op is 0.
namespace leaf {
inline constexpr std::uint8_t none = 0;  // wrapper of a getelementptr being read, without an effect
inline constexpr std::uint8_t string = 4;
inline constexpr std::uint8_t name = 18;
inline constexpr std::uint8_t number = 19;
inline constexpr std::uint8_t local = 69;  // a %name that is not yet resolved
inline constexpr std::uint8_t aggregate = 251;
}  // namespace leaf

// Inst::op.
namespace inst {
inline constexpr std::uint8_t value = 0;
inline constexpr std::uint8_t phi = 2;
inline constexpr std::uint8_t loop_close = 3;   // closing branch of a `for` built from a phi
inline constexpr std::uint8_t cond_branch = 9;  // first target begins "cond."
inline constexpr std::uint8_t absorbed = 14;    // a store that is part of an expression: prints nothing
inline constexpr std::uint8_t statement = 95;
inline constexpr std::uint8_t local = 128;    // alloca, or the declaration of a temporary
inline constexpr std::uint8_t nothing = 129;  // landingpad, resume, unreachable
inline constexpr std::uint8_t case_label = 130;
inline constexpr std::uint8_t chain_branch = 133;  // a target begins "land." or "lor."
inline constexpr std::uint8_t do_branch = 135;
inline constexpr std::uint8_t other_branch = 137;
inline constexpr std::uint8_t for_branch = 141;
inline constexpr std::uint8_t jump = 142;  // unconditional branch
inline constexpr std::uint8_t if_branch = 143;
inline constexpr std::uint8_t ret = 147;
inline constexpr std::uint8_t switch_ = 153;
inline constexpr std::uint8_t while_branch = 159;
}  // namespace inst

// Inst::used.
namespace used {
inline constexpr std::uint8_t no = 0;
inline constexpr std::uint8_t folded = 1;     // the tree is part of a use
inline constexpr std::uint8_t temporary = 2;  // the value lives in a variable of its own
}  // namespace used

// Symbol::storage, Symbol::qual, Type::qual, Block::mark.
namespace storage {
inline constexpr std::uint8_t none = 0;
inline constexpr std::uint8_t extern_ = 139;
inline constexpr std::uint8_t static_ = 151;
inline constexpr std::uint8_t hidden = 157;  // a function whose body is not written
}  // namespace storage
namespace qual {
inline constexpr std::uint8_t const_ = 132;
inline constexpr std::uint8_t volatile_ = 158;
}  // namespace qual
namespace mark {
inline constexpr std::uint8_t exception = 129;  // a block of exception handling
}  // namespace mark

// Symbol::flags. The low bits are ORed together from the attribute words of the input.
namespace flag {
inline constexpr std::uint32_t accepted = 0x1;  // a word without effect
inline constexpr std::uint32_t weak = 0x2;
inline constexpr std::uint32_t align = 0x4;  // the word takes one token with it
inline constexpr std::uint32_t alias = 0x8;
inline constexpr std::uint32_t hidden = 0x10;
inline constexpr std::uint32_t global = 0x20;
inline constexpr std::uint32_t zeroext = 0x40;
inline constexpr std::uint32_t signext = 0x80;
inline constexpr std::uint32_t private_ = 0x100;
inline constexpr std::uint32_t internal = 0x200;
inline constexpr std::uint32_t external = 0x400;
inline constexpr std::uint32_t constant = 0x800;
inline constexpr std::uint32_t volatile_ = 0x1000;
inline constexpr std::uint32_t appending = 0x2000;  // a section table
inline constexpr std::uint32_t extern_weak = 0x4000;
inline constexpr std::uint32_t linkonce_odr = 0x8000;      // an inline candidate
inline constexpr std::uint32_t dereferenceable = 0x10000;  // the word takes three tokens with it
inline constexpr std::uint32_t forward_ref = 0x10000000;   // the initialiser names a global not yet known
inline constexpr std::uint32_t unused = 0x20000000;        // not written unless everything is kept
inline constexpr std::uint32_t addressed = 0x40000000;     // a function that an initialiser refers to
}  // namespace flag

// ---- Records ----------------------------------------------------------------------------------------------------

// A link from one record to another. Records are many and their links are most of what they hold, so a link is the
// place of a record in its pool, half as long as a pointer; it reads and is assigned like one.
template <class Record>
struct Ref {
    std::uint32_t place;  // 0 for null

    operator Record *() const { return get(); }
    Record *get() const { return place ? operator->() : nullptr; }
    Record *operator->() const { return reinterpret_cast<Record *>(pool::start + place * pool::unit); }
    Ref &operator=(Record *record)
    {
        place = record ? placeof(record) : 0;
        return *this;
    }

private:
    static std::uint32_t placeof(const Record *record)
    {
        const auto offset = static_cast<std::size_t>(reinterpret_cast<const char *>(record) - pool::start);
        return static_cast<std::uint32_t>(offset / pool::unit);
    }
};

// A unique byte string. Two names are the same text exactly if they are the same record, so names are compared as
// pointers. The record also carries the entry points of all look-ups by name.
struct Name {
    const char *text;       // NUL-terminated
    std::uint32_t length;   // of the text
    Ref<Symbol> variable;   // first entry of this name in `variables`
    Ref<Symbol> prototype;  // first entry in `prototypes`
    Ref<Symbol> function;   // first entry in `functions`
    Ref<Symbol> aggregate;  // first entry in `aggregates`
    Ref<Symbol> forward;    // entry in `forward_aggregates`
    LocalName *local;       // what the name stands for in the current function, valid for local_epoch
    std::uint32_t local_epoch;
    std::uint32_t call_epoch;  // the function whose `current_calls` has the name
    bool unresolved;           // in `unresolved`
    bool initref;              // in `initrefs`
};

// One node of a type expression. Nodes are not shared, except the one node of each named aggregate. The reader changes
// the kind of a scalar in place, which affects all expressions that refer to the node.
struct Type {
    Ref<Type> sub;  // pointee, element type or return type
    std::uint8_t kind;
    std::uint8_t qual;  // pointer: qual::volatile_ for a pointer to volatile, else 0
    bool compared;      // part of an aggregate whose shape was asked for
    union {
        std::uint32_t count;  // array: number of elements, 0 for unknown
        Ref<Name> tag;        // struct or union: null for a literal type until it is named
        Ref<Symbol> params;   // function: first parameter
    };
    union {
        Ref<Symbol> members;  // struct or union: first member
        Ref<Block> blocks;    // defined function: first block
    };
};

// A named thing: variable, function, prototype, alias, parameter, member, aggregate, or an entry in a list of names.
struct Symbol {
    Ref<Symbol> next;
    union {
        Ref<Symbol> prev;     // aggregates and functions: the entry before it
        std::uint32_t place;  // variable: in `variables`, from 0, during the reachability analysis
    };
    union {
        Ref<Expr> value;    // variable: first initialiser node, null for none
        Ref<Symbol> calls;  // function: first entry of the names it calls
    };
    union {
        Ref<Type> type;
        Ref<Name> aliasee;  // alias: the name that it stands for
    };
    Ref<Name> name;  // null for an unnamed parameter of a declaration
    std::uint32_t flags;
    std::uint8_t storage;
    std::uint8_t qual;
    std::uint8_t uses;  // references; wraps
};

// One node of an expression tree. Trees are shared and changed in place.
struct Expr {
    Ref<Expr> next;  // initialiser lists, elements of aggregate constants, cases of a switch
    Ref<Type> type;  // may be null
    union {
        Ref<Expr> left;
        Ref<Symbol> symbol;    // name leaf: the variable, null if unknown; index of a field: the member
        Ref<Name> true_label;  // branch pair
    };
    union {
        Ref<Name> value;   // text of a leaf; assignment: the stored local
        Ref<Expr> middle;  // conditional: the true value
        Ref<Expr> list;    // aggregate constant: the first element
    };
    union {
        Ref<Expr> right;
        Ref<Name> false_label;  // branch pair
    };
    Ref<Name> label;  // phi pair: the incoming block; case: the target
    std::uint8_t leaf;
    std::uint8_t op;
    bool slot : 1;         // local leaf: was written with ".addr" within a block
    bool counted : 1;      // initialiser reference: its use was counted in the target
    bool false_taken : 1;  // branch pair prepared for a phi: the label was taken over from another block
    bool true_taken : 1;
    bool cyclic : 1;  // phi: its value would contain itself
};

// A basic block.
struct Block {
    Ref<Block> next;
    Ref<Inst> first;         // null while empty
    Ref<Inst> last;          // while the block is empty, the last Inst of the block before
    Ref<Name> label;         // null once its condition was merged into another block's
    std::uint32_t position;  // in the function, set when the body is written
    std::uint8_t mark;
    bool removed;  // unlinked from the function
};

// An instruction or statement.
struct Inst {
    Ref<Inst> next;  // null at a block's end
    Ref<Inst> prev;  // the Inst before it in the function, across blocks
    Ref<Block> block;
    Ref<Name> name;  // value: the temporary, local: the variable, jump: the target label; else null
    union {
        Ref<Expr> targets;  // conditional branch, or a jump prepared for a phi: the branch pair
        Ref<Expr> cases;    // switch: the first case
    };
    Ref<Expr> expr;       // the tree; may be null
    std::uint32_t order;  // grows along the prev chain from the first Inst on
    std::uint8_t op;
    std::uint8_t used;
};

// One line of metadata.
struct Meta {
    Ref<Meta> next;
    const char *text;  // the rest of the line after its second `!`
    std::uint32_t id;
};

// A list that is appended to.
template <class Record>
struct List {
    Record *head;
    Record *tail;
};

// ---- Records and names (names.cpp) ------------------------------------------------------------------------------

// New records, all other fields cleared. The caller fills them; they are never released.
Type *newtype(std::uint8_t kind, Type *sub);
Symbol *newsym(Name *name, Type *type);
Expr *newexpr(std::uint8_t op, Type *type);
Block *newblock();
Inst *newinst();
Meta *newmeta();

// Frees an expression that was just made and that nothing refers to: the address-of that a load or store strips, the
// leaf of an operand that was replaced by its definition. If it is not the newest record any more, it stays.
void dropexpr(const Expr *expr);
// The same for a type.
void droptype(const Type *type);

// A number leaf of the type int with the given text.
Expr *newnumber(std::string_view text);

// The unique record of `text`; makes it if there is none.
Name *intern(std::string_view text);

// A name that is different from all others, whatever its text: no input can refer to it.
Name *privatename(std::string_view text);

// Views of names; a null name has the empty text.
inline std::string_view nametext(const Name *name)
{
    return name ? std::string_view(name->text, name->length) : std::string_view();
}
inline bool namebegins(const Name *name, std::string_view prefix)
{
    return name && nametext(name).starts_with(prefix);
}
// Whether it is the name of an unnamed value, a number.
inline bool isnumbered(const Name *name)
{
    return name && isdigit(name->text[0]);
}

// ---- Lists (lists.cpp) ------------------------------------------------------------------------------------------

extern List<Symbol> variables;
extern List<Symbol> functions;
extern List<Symbol> prototypes;
extern List<Symbol> aliases;
extern List<Symbol> aggregates;     // in output order
extern Symbol *forward_aggregates;  // named and not yet placed, newest first
extern List<Meta> metas;
extern List<Symbol> current_calls;      // names called by the function being read
extern std::vector<Name *> unresolved;  // globals referred to before any prototype
extern std::vector<Name *> initrefs;    // globals referred to from aggregate constants and selects
extern std::vector<const char *> includes;

extern bool unknown_global_ref;  // a global was read that is not in `variables`
extern std::uint32_t need_flags;
namespace need {
inline constexpr std::uint32_t dynamic_array = 1;  // a dynamic alloca was read
inline constexpr std::uint32_t frees = 2;          // a stack restore was written: the frees are due
inline constexpr std::uint32_t declarations = 4;   // malloc and free must be declared by hand
}  // namespace need

void add_variable(Symbol *symbol);
Symbol *find_variable(const Name *name);  // the first of that name, or null
void add_prototype(Symbol *symbol);
// Appends to `functions`, and a prototype of the same name and type to `prototypes` unless one is there.
void add_function(Symbol *symbol);
void add_alias(Symbol *symbol);
void add_meta(Meta *meta);

// A reference to a global that is no known variable: counted in its prototype, or else kept in `unresolved`.
void note_unresolved(Name *name);
// A call in the function being read; memory intrinsics enter under their plain names.
void note_call(Name *name);
// Returns `current_calls` and empties it.
Symbol *takecalls();
void add_include(const char *header);
// Enters the global at the end of an address chain into `initrefs`. A null expression is ignored.
void note_initref(const Expr *expr);
// The name leaf at the end of a chain of address-of, casts, additions and indexes, or null.
Expr *addressedleaf(Expr *expr);

// Appends `element` after `tail`, or as the head.
template <class Record>
void append(List<Record> &list, Record *element)
{
    if (list.head)
        list.tail->next = element;
    else
        list.head = element;
    list.tail = element;
}

// Links `symbol` in before `before`, and unlinks it, in a list whose symbols have their `prev` set.
void insertsymbol(List<Symbol> &list, Symbol *symbol, Symbol *before);
void removesymbol(List<Symbol> &list, Symbol *symbol);

// ---- Shapes of types (shapes.cpp) -------------------------------------------------------------------------------

// Whether both are the same scalar.
bool samescalar(const Type *a, const Type *b);
// Enters a literal aggregate that was given its tag; finds the newest entry of the shape of `type`, or null.
void addanon(const Type *type);
const Type *findanon(const Type *type);
// To be called after the kind of a type was changed while the output is written.
void retyped(const Type *type);

// ---- Intrinsics and math functions (intrinsics.cpp) -------------------------------------------------------------

// "string.h" if the name is one of the memory intrinsics llvm.memcpy., llvm.memset., llvm.memmove., else null.
const char *memoryheader(const Name *name);
// The plain C name of a memory intrinsic.
Name *memoryname(const Name *name);
// Rewrites the declaration and the call of a memory intrinsic to the plain function of three parameters.
void rewritedeclare(Symbol *symbol);
void rewritecall(Expr *call);

enum class Math : std::uint8_t { square_root, sine, cosine, tangent, exponential, logarithm, logarithm10 };
struct MathFunction {
    std::string_view name;
    Math function;
    bool declared;  // a `declare` with a float result was read
};
// The row of a math function, or null.
MathFunction *findmath(std::string_view name);
// Marks a math function as declared; any other name is ignored.
void markmath(const Name *name);

// ---- Expression tests (lists.cpp) -------------------------------------------------------------------------------

inline bool isleaf(const Expr *expr, std::uint8_t code)
{
    return expr && expr->op == op::leaf && expr->leaf == code;
}
inline bool isop(const Expr *expr, std::uint8_t code)
{
    return expr && expr->op == code;
}
inline bool iskind(const Type *type, std::uint8_t code)
{
    return type && type->kind == code;
}
inline bool isaggregate(const Type *type)
{
    return iskind(type, kind::structure) || iskind(type, kind::union_);
}
inline bool iscomparison(std::uint8_t code)
{
    return code >= op::less && code <= op::not_equal;
}
// The opposite of a comparison: < and >=, > and <=, == and !=.
inline std::uint8_t opposite(std::uint8_t comparison)
{
    return static_cast<std::uint8_t>(((comparison - 1U) ^ 1U) + 1U);
}
// The type of an expression, and the pointee, element or result of a type; null for null.
inline Type *exprtype(const Expr *expr)
{
    if (!expr)
        return nullptr;
    return expr->type;
}
inline Type *subtype(const Type *type)
{
    if (!type)
        return nullptr;
    return type->sub;
}
// The member at `place`, from 0, of an aggregate; null if there are fewer.
inline Symbol *memberat(const Type *aggregate, std::uint32_t place)
{
    Symbol *member = aggregate->members;
    for (; place > 0 && member; --place)
        member = member->next;
    return member;
}
// Whether a type counts as unsigned: bit 0 of its kind. A null type does not.
inline bool isunsigned(const Type *type)
{
    return type && (type->kind & 1U) != 0;
}
// Whether the assignment of `b` to `a` has no effect. Any leaf into a variable named ".addr..." has none.
bool sameoperand(const Expr *a, const Expr *b);

// ---- Locals and temporaries (locals.cpp, temporaries.cpp) --------------------------------------------------------

// A list with room for one entry in place, which is enough for most names. A list keeps its
// memory when it is cleared, so clearing and filling it again costs none.
template <class Record>
struct ShortList {
    union {
        Record *single;
        Record **many;
    };
    std::uint32_t count;
    std::uint32_t capacity;  // of `many`; 0 while the entry is in place

    Record *const *begin() const { return capacity ? many : &single; }
    Record *const *end() const { return begin() + count; }
    void clear() { count = 0; }
    // Inserts `record` before the entry at `place`, counted from 0 and at most `count`.
    void insert(std::size_t place, Record *record)
    {
        if (count == std::max(capacity, 1U))
            grow();
        Record **entries = capacity ? many : &single;
        std::copy_backward(entries + place, entries + count, entries + count + 1);
        entries[place] = record;
        ++count;
    }
    void append(Record *record) { insert(count, record); }
    // Takes out those entries from `first` to before `last`, counted from 0, for which `test` holds.
    template <class Test>
    void erase(std::size_t first, std::size_t last, Test test)
    {
        Record **entries = capacity ? many : &single;
        Record **kept = std::remove_if(entries + first, entries + last, test);
        kept = std::copy(entries + last, entries + count, kept);
        count = static_cast<std::uint32_t>(kept - entries);
    }

private:
    void grow()
    {
        const std::uint32_t larger = count * 4;
        auto **entries = static_cast<Record **>(poolalloc(larger * sizeof(Record *)));
        std::copy(begin(), end(), entries);
        many = entries;
        capacity = larger;
    }
};

// What one name stands for in the current function; each list in the order of the Insts or Blocks.
struct LocalName {
    ShortList<Inst> named;    // values, phis and locals of this name
    ShortList<Inst> stores;   // statements that store the local of this name
    ShortList<Inst> slots;    // locals of this name with ".addr" appended
    ShortList<Block> blocks;  // blocks with this label, while a body is written
};

// Starts the index of a function, empty; the index of the function before is gone.
void beginlocals();
// The entry of `name` in the current index; makes it if there is none, where findlocal() returns null.
LocalName &localname(Name *name);
LocalName *findlocal(const Name *name);
// Enters an Inst that was appended to the chain, and sets its order.
void notelocal(Inst *instruction);
// Removes the jump that was noted last: it was unlinked.
void dropjump();
// Enters all Insts of the chain that ends at `last` into the current index, which must have none.
void indexchain(Inst *last);

// Replaces a local operand by the tree that defines it. `operand` is the leaf of a %name, the search starts at the
// last Inst of `block`. Anything but an unresolved local is returned as it is.
Expr *substitute(Expr *operand, Block *block);

// The names "_unused%d_" and "_temp%s_".
Name *unusedname(std::uint32_t number);
Name *tempname(const Name *name);
