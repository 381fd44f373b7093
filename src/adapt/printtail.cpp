// Variables whose line would be too long for quarl, as C. quarl has a declaration of each without an initialiser, which
// C takes as one that is to be completed later in the file:
//
//     static const int table[4000];
//     ...
//     static const int table[4000] = {
//         1, 2, 3, ...
#include "adapt/passes/passes.h"
#include "adapt/printer.h"

namespace adapt {

namespace {

constexpr std::size_t row_length = 100;

// ---- Types ----

std::string basename(const Type *type)
{
    switch (type->kind) {
    case TypeKind::integer:
        switch (type->bits) {
        case 16:
            return "int";
        case 32:
            return "long";
        case 64:
            return "long long";
        default:
            return "char";
        }
    case TypeKind::float_type:
        return "float";
    case TypeKind::double_type:
        return "double";
    case TypeKind::structure: {
        const StructType &structure = *structof(type);
        return (structure.written.starts_with("union.") ? "union " : "struct ") + std::string(tagof(structure));
    }
    default:
        return "void";
    }
}

// The declaration of a name, or of none. Types were checked for depth when they were read.
std::string declared(const Type *type, std::string name)
{
    for (; type->sub != nullptr; type = type->sub) {
        if (type->kind == TypeKind::pointer) {
            const bool grouped = type->sub->kind == TypeKind::array || type->sub->kind == TypeKind::function;
            name = grouped ? "(*" + name + ")" : "*" + name;
        } else if (type->kind == TypeKind::array) {
            name += "[" + std::to_string(type->count) + "]";
        } else {
            std::string params;
            for (const Type *param : type->members) {
                params += (params.empty() ? "" : ", ") + declared(param, "");
            }
            if (type->variadic) {
                params += params.empty() ? "" : ", ...";
            } else if (params.empty()) {
                params = "void";
            }
            name += "(" + params + ")";
        }
    }
    return basename(type) + (name.empty() ? "" : " ") + name;
}

std::string headof(const Global &global)
{
    const bool local = global.linkage == Linkage::internal || global.linkage == Linkage::private_ ||
                       (global.linkage == Linkage::linkonce_odr && global.is_constant) ||
                       (global.linkage == Linkage::linkonce && global.is_constant);
    const std::string words = global.declared_only ? "extern " : local ? "static " : "";
    return words + (global.is_constant ? "const " : "") + declared(global.type, writtenname(global));
}

// ---- Values ----

// The address as a person would write it; empty if types have to be changed for it.
std::string plainaddress(const Module &module, const Type *type, const Address &address)
{
    const Type *pointee = type->kind == TypeKind::pointer ? type->sub : nullptr;
    const Type *target = address.global->type;
    const std::string &name = writtenname(*address.global);
    if (pointee == target && address.offset == 0) {
        return (target->kind == TypeKind::function ? "" : "&") + name;
    }
    if (target->kind != TypeKind::array || target->sub != pointee || address.offset < 0) {
        return "";
    }
    const std::size_t size = sizeoftype(module, pointee);
    const auto offset = static_cast<std::size_t>(address.offset);
    if (size == 0 || offset % size != 0) {
        return "";
    }
    return offset == 0 ? name : "&" + name + "[" + std::to_string(offset / size) + "]";
}

std::string addresstext(const Module &module, const Type *type, const Value *value)
{
    Address address;
    findaddress(module, value, address);
    const std::string cast = "(" + declared(type, "") + ")";
    if (address.global == nullptr) {
        return (type->kind == TypeKind::pointer ? cast : "") + std::to_string(address.offset);
    }
    if (std::string plain = plainaddress(module, type, address); !plain.empty()) {
        return plain;
    }
    const std::string &name = writtenname(*address.global);
    if (address.global->kind == GlobalKind::function && address.offset == 0) {
        return cast + name;
    }
    const std::string bytes = "(char *)&" + name;
    return cast + "(" + bytes + (address.offset == 0 ? "" : " + " + std::to_string(address.offset)) + ")";
}

std::string scalartext(const Module &module, const InitItem &item)
{
    switch (item.value->kind) {
    case ValueKind::undef:
    case ValueKind::zero:
    case ValueKind::null:
        return "0";
    case ValueKind::floating:
        return floattext(item.value);
    case ValueKind::integer: {
        const bool narrow = item.type->bits <= 8;  // char has no sign in C
        return narrow ? std::to_string(item.value->number) : std::to_string(signedvalue(item.value));
    }
    default:
        return addresstext(module, item.type, item.value);
    }
}

// A string of C, in pieces of a row.
std::string stringtext(std::string_view bytes)
{
    while (!bytes.empty() && bytes.back() == '\0') {
        bytes.remove_suffix(1);
    }
    std::string out = "\"";
    std::size_t row = 0;
    for (const char c : bytes) {
        if (c == '"' || c == '\\' || c == '?' || c < 32 || c > 126) {
            const auto byte = static_cast<unsigned char>(c);
            out += {'\\', static_cast<char>('0' + (byte >> 6)), static_cast<char>('0' + (byte >> 3) % 8),
                    static_cast<char>('0' + byte % 8)};
        } else {
            out += c;
        }
        if (out.size() - row > row_length) {
            out += "\"\n\"";
            row = out.size();
        }
    }
    return out + "\"";
}

std::string valuetext(const Module &module, const std::vector<InitItem> &items)
{
    std::string out;
    std::size_t row = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const InitItem &item = items[i];
        if (item.kind == ItemKind::close) {
            out += "}";
            continue;
        }
        if (i > 0 && items[i - 1].kind != ItemKind::open) {
            out += out.size() - row > row_length ? ",\n" : ", ";
            row = out.back() == '\n' ? out.size() : row;
        }
        switch (item.kind) {
        case ItemKind::open:
            out += i == 0 ? "{\n" : "{";
            break;
        case ItemKind::scalar:
            out += scalartext(module, item);
            break;
        case ItemKind::text:
            out += stringtext(item.text);
            break;
        default:
            out += "{0}";
            break;
        }
    }
    return out;
}

// What the initialisers of the tail name and quarl may leave out.
void declarenamed(Module &module, std::string &out)
{
    std::vector<Global *> named;
    for (const Global &global : module.globals) {
        if (global.in_tail) {
            out += headof(global) + ";\n";
            collectglobals(global.initialiser, named);
        }
    }
    for (Global *global : named) {
        if (global->declared_only && global->mark == 0) {
            global->mark = 1;
            out += headof(*global) + ";\n";
        }
    }
    for (Global *global : named) {
        global->mark = 0;
    }
}

}  // namespace

void printtail(Module &module, std::string &out)
{
    declarenamed(module, out);
    for (const Global &global : module.globals) {
        if (global.in_tail) {
            out += headof(global) + " = " + valuetext(module, flatteninitialiser(module, global)) + ";\n";
        }
    }
}

}  // namespace adapt
