// The chief header of quarl-adapt: the model of a module of LLVM IR, and the few functions that change it.
//
// A module's lines outside of functions are read at once. A function's body is read when its turn comes, is taken
// through the passes, printed and freed. Values and blocks are records: their names in the input are only a proposal
// for the names that are written. Types are interned, so equal types are the same record. All records live in arenas:
// those of the module as long as the run, those of a function until it is printed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace adapt {

struct Block;
struct Function;
struct Global;
struct Module;
struct StructType;
struct Value;

// ---- Types (types.cpp) ----

enum class TypeKind : std::uint8_t {
    void_type,
    integer,  // bits
    float_type,
    double_type,
    pointer,    // sub; null for an opaque pointer
    array,      // count, sub
    structure,  // named: members are those of `named`; literal: members, packed
    function,   // sub is the result, members are the parameters, variadic
    label,
    metadata,
    other,  // a type that C has nothing for (vectors, half, x86_fp80, token): refused where it is met
};

struct Type {
    TypeKind kind = TypeKind::void_type;
    bool packed = false;
    bool variadic = false;
    std::uint32_t bits = 0;
    std::uint64_t count = 0;
    std::uint32_t height = 1;  // how deep it nests; a named structure counts as one
    Type *sub = nullptr;
    std::vector<Type *> members;
    StructType *named = nullptr;       // null for a literal structure
    StructType *written_as = nullptr;  // of a literal structure: the one with a name in its place, once it is printed
    Type *pointer_to = nullptr;        // the pointer to this type, once it was asked for
    mutable std::size_t size = 0;      // in memory, once it was asked for; align is 0 before
    mutable std::size_t align = 0;
};

// A member of a structure as it is written.
struct WrittenMember {
    Type *type = nullptr;
    std::size_t offset = 0;
    std::vector<std::uint32_t> path;  // the member of the input, from the outermost structure in; empty: filling bytes
    bool bytes = false;               // they stand for a member that C would put elsewhere
    std::string name;                 // in the source, where debug metadata tells it
};

// One `%name = type ...` line.
struct StructType {
    std::string name;      // as in the input, without % and quotes: struct.a, class.b::c, union.d
    std::string written;   // the name to print, without %; settled by settletypes()
    Type *type = nullptr;  // its record: kind structure, `named` is this
    std::vector<Type *> members;
    bool packed = false;
    bool opaque = true;    // no body so far
    std::string foreign;   // what C lacks in it, for the refusal where it is met; mostly empty
    std::size_t line = 0;  // in the input
    // As it is written, settled by settletypes(). C lays these out as LLVM does the members.
    std::vector<WrittenMember> written_members;
    bool relaid = false;      // they aren't just the members
    bool has_bytes = false;   // some are bytes in the place of a member
    std::size_t c_align = 0;  // in C; 0: not settled yet
    bool is_held = false;     // another structure or an array holds it by value
    std::uint8_t mark = 0;    // scratch of one walk
};

// ---- Values ----

enum class ValueKind : std::uint8_t {
    integer,     // `number`: the bits, zero-extended to 64
    floating,    // `number`: the bits of a double, also for float
    null,        // a null pointer
    undef,       // undef and poison
    zero,        // zeroinitializer of an aggregate
    aggregate,   // operands: the elements of a constant array or structure
    string,      // `text`: the bytes of a c"..." array, decoded
    global,      // `global`; its type is a pointer
    expression,  // a computed constant: `op` and operands as for an instruction
    parameter,   // of the current function; `number` is its place
    instruction,
    assembler,  // callee of an inline assembler call; `text`: the template, `constraints`
    metadata,   // operand of a debug intrinsic; nothing of it is kept
};

// clang-format off
enum class Op : std::uint8_t {
    none,
    // Terminators.
    ret, br, switch_, unreachable, invoke, resume,
    // Memory.
    alloca_, load, store, getelementptr, cmpxchg, atomicrmw, fence,
    // Arithmetic.
    add, sub, mul, udiv, sdiv, urem, srem, shl, lshr, ashr, and_, or_, xor_,
    fadd, fsub, fmul, fdiv, frem, fneg,
    // Conversions.
    trunc, zext, sext, fptrunc, fpext, fptosi, fptoui, sitofp, uitofp, ptrtoint, inttoptr, bitcast, addrspacecast,
    // Others.
    icmp, fcmp, phi, select, call, extractvalue, insertvalue, landingpad, freeze, va_arg,
};
// clang-format on

// clang-format off
enum class Predicate : std::uint8_t {
    none,
    eq, ne, ugt, uge, ult, ule, sgt, sge, slt, sle,
    false_, oeq, ogt, oge, olt, ole, one, ord, ueq, ugt_f, uge_f, ult_f, ule_f, une, uno, true_,
};
// clang-format on

// One operand of a user, linked into the list of uses of its value.
struct Use {
    Value *value = nullptr;
    Value *user = nullptr;
    Use *next = nullptr;   // of the same value
    Use **link = nullptr;  // what points to this use
};

// What the attributes of a parameter, an argument or a result say to C.
struct Attributes {
    bool zeroext = false;
    bool signext = false;
    bool inreg = false;
    Type *byval = nullptr;  // the callee gets a copy of the pointee
    Type *sret = nullptr;   // the result is written through this pointer
};

struct Value {
    ValueKind kind = ValueKind::instruction;
    Op op = Op::none;
    Predicate predicate = Predicate::none;
    bool is_volatile = false;
    bool is_atomic = false;
    bool nsw = false;
    bool nuw = false;
    bool removed = false;      // taken out of its block
    Type *type = nullptr;      // of the result; void if there is none
    Type *element = nullptr;   // alloca: what is allocated; getelementptr: source element type; call and invoke:
                               // the function type; load: the loaded type
    std::string_view name;     // of a local, without %; empty if it is a number
    std::uint64_t number = 0;  // alloca, load, store: the alignment, 0 if it is the type's; landingpad: 1 if it is a
                               // cleanup; an assembler callee: 1 if it has side effects
    std::string_view text;     // atomicrmw: the operation
    std::string_view constraints;
    Global *global = nullptr;
    Use *operands = nullptr;  // call and invoke: the callee first, then the arguments
    std::uint32_t operand_count = 0;
    Use *uses = nullptr;           // of instructions and parameters; constants keep none
    std::vector<Block *> targets;  // br: true, false; switch: default, then one for each case operand; phi: the block
                                   // of each operand; invoke: normal, unwind
    std::vector<std::uint32_t> indices;  // extractvalue, insertvalue; landingpad: for each clause 0 catch, 1 filter
    std::vector<Attributes> attributes;  // call, invoke: one for the result, then one for each argument; or empty
    Value *prev = nullptr;               // in the block
    Value *next = nullptr;
    Block *block = nullptr;
    std::uint32_t location = 0;  // number of the !dbg attachment plus one; 0 if there is none
    std::uint32_t line = 0;      // in the input
    std::uint32_t mark = 0;      // scratch of one pass
    void *note = nullptr;        // scratch of one pass
};

struct Block {
    std::string_view name;  // without %; empty if it is a number
    Function *function = nullptr;
    Value *first = nullptr;
    Value *last = nullptr;       // the terminator
    std::vector<Block *> preds;  // one entry for each edge; made by findpreds()
    std::uint32_t index = 0;     // place in Function::blocks; made by numberblocks()
    std::uint32_t mark = 0;
    void *note = nullptr;
};

struct Arena {
    std::deque<Value> values;
    std::deque<Block> blocks;
    std::deque<std::vector<Use>> uses;
    std::deque<std::string> texts;
};

struct Function {
    Global *global = nullptr;
    Module *module = nullptr;
    std::vector<Value *> params;
    std::vector<Block *> blocks;  // the entry block first; the order of the input
    Arena arena;
};

// ---- Globals ----

// clang-format off
enum class Linkage : std::uint8_t {
    external, internal, private_, weak, weak_odr, linkonce, linkonce_odr, common, appending, extern_weak,
    available_externally,
};
// clang-format on

enum class GlobalKind : std::uint8_t { variable, function, alias };

struct Global {
    GlobalKind kind = GlobalKind::variable;
    Linkage linkage = Linkage::external;
    bool declared_only = false;  // external variable, declare
    bool is_constant = false;
    bool hidden = false;
    bool thread_local_ = false;
    bool dropped = false;          // is not printed: an intrinsic that a pass replaced
    std::string name;              // as in the input, without @ and quotes
    std::string written;           // the name to print; settled by settlenames()
    Type *type = nullptr;          // of the variable, the function type
    Value *value = nullptr;        // its address, kind global
    Value *initialiser = nullptr;  // variable; alias: the aliasee
    std::string_view section;
    std::vector<std::string_view> param_names;  // of a definition; empty for a number
    std::vector<Attributes> attributes;         // result, then parameters
    std::string_view body;                      // of a definition: the text from after the { to the closing brace
    std::size_t body_line = 0;                  // of the {
    std::size_t line = 0;                       // of the header in the input
    std::uint32_t location = 0;                 // !dbg of the definition plus one
    std::uint64_t align = 0;
    std::vector<Global *> calls;  // functions that a definition calls or names; filled while it is adapted
    Global *accessor = nullptr;   // variable: the function that gives its address to other functions
    bool in_circle = false;       // inline function that is called by one that it calls
    bool in_tail = false;         // variable: defined in the C that is added to quarl's
    std::uint32_t mark = 0;
};

// ---- The module ----

// Something wrong, with its place.
struct Message {
    std::string file;  // the C++ file, or the input where there is no debug metadata
    std::size_t line = 0;
    std::size_t column = 0;
    std::string function;  // demangled where possible; may be empty
    std::string text;
    bool warning = false;
};

// What the target's data layout says, in bytes.
struct DataLayout {
    std::size_t pointer_size = 8;
    std::size_t pointer_align = 8;
    std::size_t integer_align[5] = {1, 1, 2, 4, 4};  // i1, i8, i16, i32, i64; 4 is LLVM's own default for i64
    std::size_t float_align = 4;
    std::size_t double_align = 8;
    bool big_endian = false;
    bool native32 = false;  // integers of 32 bits are native: the front end computes in 32 bits at least
};

// Lets maps by name be searched with any kind of text.
struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

template <typename Record>
using NameMap = std::unordered_map<std::string, Record *, TextHash, std::equal_to<>>;

struct Module {
    std::string_view text;    // the input, which outlives the module
    std::string file;         // its name, for messages
    bool keep_debug = false;  // metadata is printed
    bool emulate64 = false;   // quarl runs with -ll: integers of 64 bits are structures in C
    std::string source_filename;
    DataLayout layout;
    std::deque<Type> types;
    std::deque<StructType> structs;
    std::size_t unnamed_structs = 0;  // that have got a name
    std::deque<Global> globals;       // in the order of the input
    NameMap<Global> global_by_name;
    NameMap<StructType> struct_by_name;
    Type *plain_types[11] = {};    // by kind; those that are of one kind alone
    Type *integer_types[65] = {};  // by bits
    std::unordered_multimap<std::size_t, Type *> type_by_hash;
    std::unordered_multimap<std::size_t, Value *> constant_by_hash;  // of one number or none
    std::vector<std::string_view>
        metadata;  // `!5 = ...` lines by number: the text after the =; empty where there is none
    std::vector<std::string_view> metadata_lines;  // all metadata lines as they stand, in order
    Arena arena;
    std::vector<Message> messages;
    std::size_t errors = 0;
};

// Types, all interned.
Type *voidtype(Module &module);
Type *inttype(Module &module, std::uint32_t bits);
Type *floattype(Module &module);
Type *doubletype(Module &module);
Type *othertype(Module &module, TypeKind kind);  // label, metadata, other
Type *pointerto(Module &module, Type *type);     // null gives the opaque pointer
Type *arrayof(Module &module, Type *element, std::uint64_t count);
Type *functiontype(Module &module, Type *result, const std::vector<Type *> &params, bool variadic);
Type *literalstruct(Module &module, const std::vector<Type *> &members, bool packed);
// The named structure; makes a record without a body if there is none.
StructType *structnamed(Module &module, std::string_view name);
// The members of a structure type, named or literal.
const std::vector<Type *> &membersof(const Type *type);

bool isinteger(const Type *type, std::uint32_t bits);
bool isfloating(const Type *type);
bool isaggregate(const Type *type);      // array or structure
std::string typetext(const Type *type);  // as IR, with written names

// Size in memory, alignment and the offset of a member as LLVM lays them out, in bytes.
std::size_t sizeoftype(const Module &module, const Type *type);
std::size_t alignof_type(const Module &module, const Type *type);
std::size_t offsetof_member(const Module &module, const Type *type, std::size_t member);

// ---- Constants: owned by the module, never by a function ----

Value *intconst(Module &module, Type *type, std::uint64_t number);
Value *floatconst(Module &module, Type *type, double number);
Value *nullconst(Module &module, Type *type);
Value *undefconst(Module &module, Type *type);
Value *zeroconst(Module &module, Type *type);  // 0, 0.0, null or zeroinitializer, by the type
// A computed constant; operands are constants.
Value *exprconst(Module &module, Op op, Type *type, const std::vector<Value *> &operands);
// A constant array or structure; the bytes of a constant array of i8.
Value *aggregateconst(Module &module, Type *type, const std::vector<Value *> &elements);
Value *stringconst(Module &module, Type *type, std::string_view bytes);
bool isconstant(const Value *value);           // of any kind, addresses of globals included
std::int64_t signedvalue(const Value *value);  // of an integer constant, sign-extended from its width

// ---- Instructions ----

// A new instruction outside of any block, with its operands.
Value *newinst(Function &function, Op op, Type *type, const std::vector<Value *> &operands);
void insertbefore(Value *inst, Value *place);
void append(Value *inst, Block *block);
// Takes an instruction out of its block and drops its operands. It must have no uses left.
void remove(Value *inst);
Value *operand(const Value *user, std::size_t place);
void setoperand(Value *user, std::size_t place, Value *value);
// Takes one operand (and for phi its block, for switch its target) out of the list.
void removeoperand(Value *user, std::size_t place);
void addoperand(Function &function, Value *user, Value *value);
void replaceuses(Value *value, Value *with);
bool hasuses(const Value *value);
bool hasoneuse(const Value *value);
std::size_t countuses(const Value *value);

bool isterminator(Op op);
std::string_view opname(Op op);  // as IR writes it
std::string_view predicatename(Predicate predicate);
Predicate inversepredicate(Predicate predicate);  // of the opposite comparison, NaN included

// ---- Blocks and edges ----

Block *newblock(Function &function, std::string_view name);  // at the end of the function's list
void findpreds(Function &function);                          // fills Block::preds of all blocks
void numberblocks(Function &function);                       // fills Block::index
// Takes out the blocks that the entry block doesn't reach, and their pairs in phis. Leaves preds and indices true.
void removeunreachable(Function &function);
// Keeps a text as long as the function.
std::string_view keeptext(Function &function, std::string text);

// ---- Messages (messages.cpp) ----

// Notes an error at the C++ place of `inst`, or of the function, or at the line of the input.
void refuse(Function &function, const Value *inst, const std::string &text);
void refuse(Module &module, const Global *global, const std::string &text);
void refuseline(Module &module, std::size_t line, const std::string &text);
void warn(Function &function, const Value *inst, const std::string &text);
void warn(Module &module, const Global *global, const std::string &text);
// Writes all messages to standard error, in the order of files and lines, each once.
void showmessages(Module &module);

// ---- parse.cpp ----

// Reads the module's lines; functions' bodies are kept as text. Every word that has no meaning here is refused.
void parsemodule(Module &module);
// Reads a body. Returns false after an error in it (reported).
bool parsebody(Function &function);

// ---- verify.cpp ----

// What is wrong with a function.
struct Fault {
    const Value *inst = nullptr;
    std::string text;  // empty: nothing is
};

// Looks for blocks without an end, phis that don't fit their preds, and values that don't dominate their uses. Makes
// preds and indices.
Fault findfault(Function &function);
// Checks uses, types, terminators, preds of phis and dominance of definitions; reports the first fault to standard
// error after `when`, and ends the process with status 3. For debug builds and tests.
void verify(Function &function, const char *when);

// ---- printplain.cpp ----

// Appends a function as IR text, with the names that it has, for --print-after.
void printfunction(const Function &function, std::string &out);

// ---- printmodule.cpp: lines outside of functions ----

// Appends everything up to the functions: head, types, variables, aliases. After the functions were adapted, which may
// name further types.
void printmodulehead(Module &module, std::string &out);
// The header line of a definition, with its {, and the line of a declaration. After findcircles().
void printheader(Module &module, const Global &global, const Function &function, std::string &out);
void printdeclaration(Module &module, const Global &global, std::string &out);
// The names of members, if the module keeps its debug metadata.
void printmetadata(Module &module, std::string &out);
// C that has to follow quarl's: the variables whose line would be too long. After printmodulehead().
void printtail(Module &module, std::string &out);
// C that fails to compile where a structure has another size or offset than the input says. For tests; after
// printmodulehead().
void printlayoutchecks(const Module &module, std::string &out);
// A constant as quarl reads it in an initialiser or as an operand, without its type.
std::string constanttext(const Value *constant);

}  // namespace adapt
