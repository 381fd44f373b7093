// The C emitter: declarators, expressions, and the sections of the output file but the functions. Everything is
// written straight to the output. Printing changes the model (tags of literal aggregates, rewritten trees), so each
// thing is printed once.
#pragma once

#include "model/model.h"

#include <string_view>

// ---- Declarators (declarators.cpp) ------------------------------------------------------------------------------

// Writes one declarator; a null `name` writes the type alone. Kinds without a C name are reported.
void outdecl(const Name *name, const Type *type);
// Writes a declarator with a word, such as "@inline ", before the name.
void outmarkeddecl(std::string_view word, const Name *name, const Type *type);
// Writes the definition of an aggregate: on lines of its own with a `name`, which is quoted where the definition is
// missing, on one line with null.
void outaggregate(const Type *type, const Name *name);
// The structures section.
void outaggregates();

extern bool drop_param_names;  // parameters are written without their names

// ---- Expressions (expressions.cpp) ------------------------------------------------------------------------------

// Writes an expression, in parentheses if `paren` is set and it is no leaf. Null writes nothing. A tree that prints
// more than ten million nodes is reported as "expression too large", and no further expression is written.
void outexpr(Expr *expr, bool paren);
// Whether `text`, without a sign, is "0.000000e+00".
bool iszerotext(std::string_view text);
// The decimal form of a number given as the sixteen hexadecimal digits of a double.
std::string_view hexfloattext(std::string_view text);

// ---- 64-bit emulation (longlong.cpp) ----------------------------------------------------------------------------

// Gives the 64-bit kinds the name of the struct that stands for them. Call before anything is read.
void uselonglong();
// The C name of the signed or unsigned 64-bit kind.
std::string_view longlongname(bool as_unsigned);
bool is64bit(const Type *type);
// The helper, or the comparison code, of an operator.
std::string_view llname(std::uint8_t op, bool as_unsigned);
// The two halves of a decimal text, high and low, in arithmetic that wraps.
struct Halves {
    std::uint32_t high;
    std::uint32_t low;
};
Halves splitnumber(std::string_view text);

extern bool in_initialiser;  // the initialiser of a variable is being written

// ---- Math folding and dynamic memory (mathfold.cpp) -------------------------------------------------------------

// The value of a call of a math function with a constant argument; empty if the call can't be folded. Valid until the
// next call.
std::string_view foldmath(const Expr *callee, const Expr *args);
// Decides how malloc and free are declared in the output.
void needstdlib();

// ---- Sections (sections.cpp) ------------------------------------------------------------------------------------

void outincludes();
void outaliases();
void outexterns();
void outvariables();

// ---- Usage analysis (usage.cpp) ---------------------------------------------------------------------------------

// Alias renaming and use counts of prototypes.
void countprototypes();
// Which variables are used.
void markreachable();
// Functions named in aggregate constants and selects can't be inline.
void markinitrefs();
