// What the files of the parser share: the cursor with its error, and the readers of types, constants and operands.
//
// The first error of a statement is kept, and the current token becomes the end of the text until the statement is
// left. So every reader simply goes on and returns something harmless, and its caller looks at `failed` where it must
// know.
#pragma once

#include "adapt/ir.h"
#include "adapt/lexer.h"
#include "adapt/words.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace adapt {

// A name of a function's body: a value or a block, defined or only referred to so far.
struct Local {
    Value *value = nullptr;
    Block *block = nullptr;
    bool defined = false;
    std::size_t line = 0;  // of the first reference
};

struct Locals {
    std::unordered_map<std::string_view, Local> named;
    std::unordered_map<std::uint64_t, Local> numbered;
    std::uint64_t next_number = 0;
};

struct Reader {
    Lexer lexer;
    Module *module = nullptr;
    Function *function = nullptr;  // while a body is read
    Locals *locals = nullptr;
    std::size_t line = 0;       // of the current statement
    std::size_t last_line = 0;  // of the token before the current one
    unsigned depth = 0;         // of types and constants in each other
    bool lenient = false;       // types that C lacks are let through, as in a declaration that nobody may use
    std::string foreign;        // the first type that was let through so
    bool failed = false;
    std::string error;
    std::size_t error_line = 0;
};

// ---- The cursor (reader.cpp) ----

void fail(Reader &reader, const std::string &text);
// The current token is not `wanted`.
void failunexpected(Reader &reader, std::string_view wanted);
// Leaves the failed state; the lexer stands where it failed.
void forgiveerror(Reader &reader);
void next(Reader &reader);
// Puts the cursor where it stood, unless there was an error.
void goback(Reader &reader, const Lexer &before);
bool isword(const Reader &reader, std::string_view word);
bool ispunct(const Reader &reader, char c);
bool takeword(Reader &reader, std::string_view word);
bool takepunct(Reader &reader, char c);
void expectword(Reader &reader, std::string_view word);
void expectpunct(Reader &reader, char c);
// Skips attachments: `!dbg !5`, `, !tbaa !7`. Returns the number of !dbg plus one, 0 if there is none.
std::uint32_t readattachments(Reader &reader);
// The location that the text of a statement names, as an instruction keeps it.
std::uint32_t locationin(std::string_view text);
// Skips from the current opening bracket over the closing one that belongs to it.
void skipbrackets(Reader &reader);
// A plain decimal number.
std::uint64_t readnumber(Reader &reader);

// ---- Words (reader.cpp) ----

// Skips words of a table that are dropped, refuses those that it refuses, and stops at any other.
void skipheaderwords(Reader &reader);
void skipfastmath(Reader &reader);
// Attributes of a parameter, argument or result of this type, as far as they go.
Attributes readattributes(Reader &reader, Type *type);
// Attributes of a function: words, groups, strings. Returns the numbers of the groups.
std::vector<std::string_view> skipfunctionattributes(Reader &reader);

// ---- Types (parsetypes.cpp), constants and operands (parseoperands.cpp) ----

Type *readtype(Reader &reader);
// Finds structures that hold themselves or nest too deeply, and those that hold what C lacks.
void checkstructures(Reader &reader);
Value *readconstant(Reader &reader, Type *type);
Value *readtypedconstant(Reader &reader);
// A local or a constant of this type.
Value *readvalue(Reader &reader, Type *type);
Value *readtypedvalue(Reader &reader);
// The type that getelementptr gives for a base and indices; fails if the indices don't fit.
Type *indexedtype(Reader &reader, Type *source, const std::vector<Value *> &operands);
// The member that a list of numbers selects.
Type *membertype(Reader &reader, Type *aggregate, const std::vector<std::uint32_t> &indices);
std::vector<std::uint32_t> readindices(Reader &reader);
// The operation that a word names; none if it names none.
Op findop(std::string_view word);
bool isbinary(Op op);
bool iscast(Op op);
Predicate readpredicate(Reader &reader, Op op);
bool fitscast(Op op, const Type *from, const Type *to);
// Fails unless the operation takes operands of these types.
void checkbinary(Reader &reader, Op op, const Type *type);
void checkcast(Reader &reader, Op op, const Type *from, const Type *to);
// nuw, nsw and exact.
void readflags(Reader &reader, bool &nuw, bool &nsw);

// ---- Locals (parsebody.cpp) ----

// The value of a %name of this type; one that stands for it until it is defined.
Value *findlocal(Reader &reader, Type *type);

}  // namespace adapt
