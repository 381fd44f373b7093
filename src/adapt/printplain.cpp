// Prints a function as IR text to read: values and blocks with their names, those without one with numbers.
#include "adapt/ir.h"

#include <array>
#include <cinttypes>
#include <cstdio>
#include <unordered_map>

namespace adapt {

namespace {

struct PlainPrinter {
    std::string &out;
    std::unordered_map<const void *, std::string> names;  // of values and blocks
};

// ---- Names ----

std::string namedas(std::string_view name)
{
    const bool plain = name.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789._$-") ==
                       std::string_view::npos;
    const bool digits = name.find_first_not_of("0123456789") == std::string_view::npos;
    if (plain && !digits) {
        return std::string(name);
    }
    std::string out = "\"";
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < ' ' || byte > '~' || c == '"' || c == '\\') {
            std::array<char, 4> hex = {};
            std::snprintf(hex.data(), hex.size(), "\\%02X", static_cast<unsigned>(byte));
            out += hex.data();
        } else {
            out += c;
        }
    }
    return out + "\"";
}

// Two records of one name, as passes may make them, are told apart by a number.
void namerecord(PlainPrinter &printer, std::unordered_map<std::string, unsigned> &taken, const void *record,
                std::string_view name, std::size_t &number)
{
    if (name.empty()) {
        printer.names[record] = std::to_string(number++);
        return;
    }
    const unsigned before = taken[std::string(name)]++;
    printer.names[record] =
        namedas(before == 0 ? std::string(name) : std::string(name) + "." + std::to_string(before) + "x");
}

void nameall(PlainPrinter &printer, const Function &function)
{
    std::unordered_map<std::string, unsigned> taken;
    std::size_t number = 0;
    for (const Value *param : function.params) {
        namerecord(printer, taken, param, param->name, number);
    }
    for (const Block *block : function.blocks) {
        namerecord(printer, taken, block, block->name, number);
        for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
            if (inst->type->kind != TypeKind::void_type) {
                namerecord(printer, taken, inst, inst->name, number);
            }
        }
    }
}

// ---- Operands ----

std::string valuetext(const PlainPrinter &printer, const Value *value);

std::string typedtext(const PlainPrinter &printer, const Value *value)
{
    return typetext(value->type) + " " + valuetext(printer, value);
}

std::string typedlist(const PlainPrinter &printer, const Value *user, std::size_t first)
{
    std::string out;
    for (std::size_t i = first; i < user->operand_count; ++i) {
        out += i == first ? "" : ", ";
        out += typedtext(printer, operand(user, i));
    }
    return out;
}

std::string bitstext(std::uint64_t bits)
{
    std::array<char, 24> text = {};
    std::snprintf(text.data(), text.size(), "0x%016" PRIX64, bits);
    return text.data();
}

std::string aggregatetext(const PlainPrinter &printer, const Value *value)
{
    const Type *type = value->type;
    const bool packed = type->named != nullptr ? type->named->packed : type->packed;
    const std::string inside = typedlist(printer, value, 0);
    if (type->kind == TypeKind::array) {
        return "[" + inside + "]";
    }
    return packed ? "<{ " + inside + " }>" : "{ " + inside + " }";
}

std::string indextext(const Value *value)
{
    std::string out;
    for (const std::uint32_t index : value->indices) {
        out += ", " + std::to_string(index);
    }
    return out;
}

std::string expressiontext(const PlainPrinter &printer, const Value *value)
{
    std::string out(opname(value->op));
    out += value->nuw ? " nuw" : "";
    out += value->nsw ? " nsw" : "";
    if (value->predicate != Predicate::none) {
        out += " " + std::string(predicatename(value->predicate));
    }
    out += " (";
    if (value->op == Op::getelementptr) {
        out += typetext(value->element) + ", ";
    }
    out += typedlist(printer, value, 0);
    if (value->op >= Op::trunc && value->op <= Op::addrspacecast) {
        out += " to " + typetext(value->type);
    }
    return out + indextext(value) + ")";
}

std::string assemblertext(const Value *value)
{
    return std::string("asm ") + (value->number != 0 ? "sideeffect " : "") + "\"" + std::string(value->text) +
           "\", \"" + std::string(value->constraints) + "\"";
}

std::string quotedbytes(std::string_view bytes)
{
    std::string out = "c\"";
    for (const char c : bytes) {
        std::array<char, 4> hex = {};
        std::snprintf(hex.data(), hex.size(), "\\%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
        out += c >= ' ' && c <= '~' && c != '"' && c != '\\' ? std::string(1, c) : std::string(hex.data());
    }
    return out + "\"";
}

std::string valuetext(const PlainPrinter &printer, const Value *value)
{
    switch (value->kind) {
    case ValueKind::integer:
        return isinteger(value->type, 1) ? (value->number != 0 ? "true" : "false") : std::to_string(signedvalue(value));
    case ValueKind::floating:
        return bitstext(value->number);
    case ValueKind::null:
        return "null";
    case ValueKind::undef:
        return "undef";
    case ValueKind::zero:
        return "zeroinitializer";
    case ValueKind::aggregate:
        return aggregatetext(printer, value);
    case ValueKind::string:
        return quotedbytes(value->text);
    case ValueKind::global:
        return "@" + namedas(value->global->name);
    case ValueKind::expression:
        return expressiontext(printer, value);
    case ValueKind::assembler:
        return assemblertext(value);
    case ValueKind::metadata:
        return "!{}";
    default:
        break;
    }
    const auto found = printer.names.find(value);
    return found == printer.names.end() ? "%?" : "%" + found->second;
}

std::string blocktext(const PlainPrinter &printer, const Block *block)
{
    const auto found = printer.names.find(block);
    return found == printer.names.end() ? "%?" : "%" + found->second;
}

// ---- Instructions ----

std::string attributestext(const Attributes &attributes)
{
    std::string out;
    out += attributes.zeroext ? " zeroext" : "";
    out += attributes.signext ? " signext" : "";
    out += attributes.inreg ? " inreg" : "";
    out += attributes.byval != nullptr ? " byval(" + typetext(attributes.byval) + ")" : "";
    out += attributes.sret != nullptr ? " sret(" + typetext(attributes.sret) + ")" : "";
    return out;
}

std::string calltext(const PlainPrinter &printer, const Value *inst)
{
    std::string out = inst->attributes.empty() ? "" : attributestext(inst->attributes[0]);
    const Type *type = inst->element;
    out += " " + typetext(type->variadic ? type : inst->type) + " " + valuetext(printer, operand(inst, 0)) + "(";
    for (std::size_t i = 1; i < inst->operand_count; ++i) {
        out += i == 1 ? "" : ", ";
        out += typetext(operand(inst, i)->type);
        out += inst->attributes.empty() ? "" : attributestext(inst->attributes[i]);
        out += " " + valuetext(printer, operand(inst, i));
    }
    out += ")";
    if (inst->op == Op::invoke) {
        out += " to label " + blocktext(printer, inst->targets[0]) + " unwind label " +
               blocktext(printer, inst->targets[1]);
    }
    return out;
}

std::string phitext(const PlainPrinter &printer, const Value *inst)
{
    std::string out = " " + typetext(inst->type);
    for (std::size_t i = 0; i < inst->operand_count; ++i) {
        out += i == 0 ? " [ " : ", [ ";
        out += valuetext(printer, operand(inst, i)) + ", " + blocktext(printer, inst->targets[i]) + " ]";
    }
    return out;
}

std::string switchtext(const PlainPrinter &printer, const Value *inst)
{
    std::string out =
        " " + typedtext(printer, operand(inst, 0)) + ", label " + blocktext(printer, inst->targets[0]) + " [\n";
    for (std::size_t i = 1; i < inst->operand_count; ++i) {
        out += "    " + typedtext(printer, operand(inst, i)) + ", label " + blocktext(printer, inst->targets[i]) + "\n";
    }
    return out + "  ]";
}

std::string brtext(const PlainPrinter &printer, const Value *inst)
{
    std::string out = inst->operand_count == 0 ? "" : " " + typedtext(printer, operand(inst, 0)) + ",";
    for (std::size_t i = 0; i < inst->targets.size(); ++i) {
        out += i == 0 ? " label " : ", label ";
        out += blocktext(printer, inst->targets[i]);
    }
    return out;
}

std::string landingpadtext(const PlainPrinter &printer, const Value *inst)
{
    std::string out = " " + typetext(inst->type) + (inst->number != 0 ? " cleanup" : "");
    for (std::size_t i = 0; i < inst->operand_count; ++i) {
        out += inst->indices[i] == 0 ? " catch " : " filter ";
        out += typedtext(printer, operand(inst, i));
    }
    return out;
}

// What comes after the alignment-free part of an access.
std::string aligntext(const Value *inst)
{
    std::string out;
    if (inst->op == Op::cmpxchg) {
        out += " seq_cst seq_cst";
    } else if (inst->is_atomic) {
        out += inst->op == Op::load ? " acquire" : inst->op == Op::store ? " release" : " seq_cst";
    }
    return out + (inst->number != 0 ? ", align " + std::to_string(inst->number) : "");
}

std::string othertext(const PlainPrinter &printer, const Value *inst)
{
    const std::string typed = typedlist(printer, inst, 0);
    switch (inst->op) {
    case Op::ret:
        return inst->operand_count == 0 ? " void" : " " + typed;
    case Op::br:
        return brtext(printer, inst);
    case Op::switch_:
        return switchtext(printer, inst);
    case Op::call:
    case Op::invoke:
        return calltext(printer, inst);
    case Op::phi:
        return phitext(printer, inst);
    case Op::landingpad:
        return landingpadtext(printer, inst);
    case Op::alloca_:
        return " " + typetext(inst->element) + (typed.empty() ? "" : ", " + typed) + aligntext(inst);
    case Op::load:
        return " " + typetext(inst->type) + ", " + typed + aligntext(inst);
    case Op::store:
    case Op::cmpxchg:
        return " " + typed + aligntext(inst);
    case Op::atomicrmw:
        return " " + std::string(inst->text) + " " + typed + aligntext(inst);
    case Op::fence:
        return " seq_cst";
    case Op::getelementptr:
        return " " + typetext(inst->element) + ", " + typed;
    case Op::icmp:
    case Op::fcmp:
        return " " + std::string(predicatename(inst->predicate)) + " " + typedtext(printer, operand(inst, 0)) + ", " +
               valuetext(printer, operand(inst, 1));
    case Op::va_arg:
        return " " + typed + ", " + typetext(inst->type);
    default:
        break;
    }
    if (inst->op >= Op::add && inst->op <= Op::frem) {
        return " " + typedtext(printer, operand(inst, 0)) + ", " + valuetext(printer, operand(inst, 1));
    }
    if (inst->op >= Op::trunc && inst->op <= Op::addrspacecast) {
        return " " + typed + " to " + typetext(inst->type);
    }
    return (typed.empty() ? "" : " " + typed) + indextext(inst);
}

void printinstruction(PlainPrinter &printer, const Value *inst)
{
    std::string &out = printer.out;
    out += "  ";
    if (inst->type->kind != TypeKind::void_type) {
        out += valuetext(printer, inst) + " = ";
    }
    out += opname(inst->op);
    const bool access = inst->op == Op::load || inst->op == Op::store;
    out += access && inst->is_atomic ? " atomic" : "";
    out += inst->is_volatile ? " volatile" : "";
    out += inst->nuw ? " nuw" : "";
    out += inst->nsw ? " nsw" : "";
    out += othertext(printer, inst) + "\n";
}

}  // namespace

void printfunction(const Function &function, std::string &out)
{
    PlainPrinter printer = {out, {}};
    nameall(printer, function);
    const Global &global = *function.global;
    out += "define" + (global.attributes.empty() ? "" : attributestext(global.attributes[0])) + " " +
           typetext(global.type->sub) + " @" + namedas(global.name) + "(";
    for (std::size_t i = 0; i < function.params.size(); ++i) {
        const Value *param = function.params[i];
        out += (i == 0 ? "" : ", ") + typetext(param->type);
        out += i + 1 < global.attributes.size() ? attributestext(global.attributes[i + 1]) : "";
        out += " " + valuetext(printer, param);
    }
    out += global.type->variadic ? (function.params.empty() ? "...) {\n" : ", ...) {\n") : ") {\n";
    for (const Block *block : function.blocks) {
        out += printer.names[block] + ":\n";
        for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
            printinstruction(printer, inst);
        }
    }
    out += "}\n";
}

}  // namespace adapt
