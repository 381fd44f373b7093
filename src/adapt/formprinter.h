// What the two files that print a function's body share: expressions.cpp and forms.cpp.
#pragma once

#include "adapt/tree.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace adapt {

// What the C text of an integer operand is worth. C computes in int at least, so the value of an expression of i8, say,
// may have more bits than eight; what quarl prints as `int` or `char` need not have the sign that an IR operation takes
// its operand with.
struct Operand {
    std::string text;            // as IR writes it, without the type
    bool is_signed = true;       // the C value is that of the bits taken as signed
    bool is_unsigned = false;    // the C value is that of the bits taken as unsigned
    bool type_unsigned = false;  // the type in C is an unsigned one, of `bits`
    std::uint32_t bits = 0;      // of the type in C, after promotion
    bool is_flag = false;        // 0 or 1: the comparison itself
    bool is_assigned = false;    // the value of an assignment
};

// A conditional branch that was printed.
struct Edge {
    std::string block;
    std::string yes;
    std::string no;
};

struct BodyPrinter {
    Tree &tree;
    Module &module;
    std::string &out;
    std::uint32_t int_bits;        // of C's int
    std::uint32_t next_value = 0;  // names of values: numbers
    std::uint32_t next_step = 0;
    std::uint32_t next_construct = 0;
    bool no_chains = false;        // a chain must be said by ?:, within the expression
    bool is_open = false;          // a block is open
    std::string current = {};      // its label
    std::string continued = {};    // the end of the while loop that the last branch continued
    std::vector<Edge> edges = {};  // of the statement that is printed
    bool returned = false;         // the last block ends in a return
};

// Prints what computes the expression; the operand is good for one use.
Operand printexpr(BodyPrinter &printer, const Expr *expr);
// As printexpr(), never the bare name of a variable or parameter, which quarl would take for the stored value.
Operand printstored(BodyPrinter &printer, const Expr *expr, Type *type);
// The address of what is stored to.
std::string printtarget(BodyPrinter &printer, const Expr *address, const Type *type);
// A value for switch: its constants are to be written as signed or unsigned.
Operand printselector(BodyPrinter &printer, const Expr *expr);
std::string slotname(const Variable *variable);
// A new name for a value, with the %.
std::string newvalue(BodyPrinter &printer);
void printline(BodyPrinter &printer, const std::string &text);

// ---- forms.cpp ----

// A chain of && and || as a value: its blocks are printed, the operand is the phi of the last one.
Operand printchain(BodyPrinter &printer, const Expr *expr);
void printstatement(BodyPrinter &printer, const Stmt *stmt);

}  // namespace adapt
