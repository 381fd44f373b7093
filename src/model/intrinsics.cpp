// The memory intrinsics and the table of math functions.

#include "model/model.h"

#include "frontend/frontend.h"

// ---- Memory intrinsics ------------------------------------------------------------------------------------------

const char *memoryheader(const Name *name)
{
    for (const std::string_view prefix : {intrinsics::memory_copy, intrinsics::memory_set, intrinsics::memory_move})
        if (namebegins(name, prefix))
            return "string.h";
    return nullptr;
}

Name *memoryname(const Name *name)
{
    if (namebegins(name, intrinsics::memory_copy))
        return intern("memcpy");
    return intern(namebegins(name, intrinsics::memory_set) ? "memset" : "memmove");
}

namespace {

constexpr int memory_parameters = 3;  // of the C functions; the rest is alignment and volatility

// The length of a memory function is an unsigned int unless it is narrower.
void narrowlength(Type *type)
{
    if (type && type->kind > kind::uint16)
        type->kind = kind::uint16;
}

}  // namespace

void rewritedeclare(Symbol *symbol)
{
    symbol->name = memoryname(symbol->name);
    Symbol *parameter = symbol->type->params;
    for (int i = 1; i < memory_parameters && parameter; ++i)
        parameter = parameter->next;
    if (!parameter)
        return;
    parameter->next = nullptr;
    narrowlength(parameter->type);
}

void rewritecall(Expr *call)
{
    call->left->value = memoryname(call->left->value);
    Expr *cell = call->right;
    for (int i = 1; i < memory_parameters && cell; ++i)
        cell = cell->right;
    if (!cell)
        return;
    cell->right = nullptr;
    if (cell->left && cell->left->type && cell->left->type->kind > kind::uint16) {
        narrowlength(cell->left->type);
        retyped(cell->left->type);
    }
}

// ---- Math functions ---------------------------------------------------------------------------------------------

namespace {

MathFunction math_functions[] = {
    {"sqrt", Math::square_root, false},  {"sin", Math::sine, false},        {"cos", Math::cosine, false},
    {"tan", Math::tangent, false},       {"exp", Math::exponential, false}, {"log", Math::logarithm, false},
    {"log10", Math::logarithm10, false},
};

}  // namespace

MathFunction *findmath(std::string_view name)
{
    for (MathFunction &row : math_functions)
        if (row.name == name)
            return &row;
    return nullptr;
}

void markmath(const Name *name)
{
    if (MathFunction *row = findmath(nametext(name)))
        row->declared = true;
}
