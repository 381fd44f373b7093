// Constants: as operands, and as initialisers.
//
// quarl prints nothing for an aggregate of zeros in a list, also where others follow it, and no comma. So only those at
// the end of a list stay as they are; any other becomes an aggregate of one zero, which C fills up:
//
//     [3 x %s] [%s zeroinitializer, %s { i16 1 }, %s zeroinitializer]        {{0}, {1}}
#include "adapt/passes/passes.h"
#include "adapt/printer.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace adapt {

namespace {

constexpr unsigned deepest = 200;

Type *firstscalar(Type *type)
{
    while (isaggregate(type)) {
        type = type->kind == TypeKind::array ? type->sub : structof(type)->written_members.front().type;
    }
    return type;
}

// ---- Bytes of a constant in memory ----

struct Image {
    Module &module;
    std::vector<unsigned char> bytes;
    bool known = true;
};

void putnumber(Image &image, std::size_t offset, std::size_t size, std::uint64_t number)
{
    for (std::size_t i = 0; i < size && offset + i < image.bytes.size(); ++i) {
        const std::size_t place = image.module.layout.big_endian ? size - 1 - i : i;
        image.bytes[offset + place] = static_cast<unsigned char>(i < 8 ? number >> (i * 8) : 0);
    }
}

void putconstant(Image &image, std::size_t offset, const Type *type, const Value *value);

void putaggregate(Image &image, std::size_t offset, const Type *type, const Value *value)
{
    for (std::uint32_t i = 0; i < value->operand_count; ++i) {
        const bool array = type->kind == TypeKind::array;
        const std::size_t at = array ? i * sizeoftype(image.module, type->sub) : offsetof_member(image.module, type, i);
        putconstant(image, offset + at, array ? type->sub : membersof(type)[i], operand(value, i));
    }
}

void putconstant(Image &image, std::size_t offset, const Type *type, const Value *value)
{
    const std::size_t size = sizeoftype(image.module, type);
    switch (value->kind) {
    case ValueKind::null:
    case ValueKind::undef:
    case ValueKind::zero:
        return;
    case ValueKind::floating:
        if (type->kind == TypeKind::float_type) {
            const auto number = static_cast<float>(std::bit_cast<double>(value->number));
            putnumber(image, offset, size, std::bit_cast<std::uint32_t>(number));
        } else {
            putnumber(image, offset, size, value->number);
        }
        return;
    case ValueKind::string:
        std::copy_n(value->text.begin(), std::min(value->text.size(), image.bytes.size() - offset),
                    image.bytes.begin() + static_cast<std::ptrdiff_t>(offset));
        return;
    case ValueKind::aggregate:
        putaggregate(image, offset, type, value);
        return;
    default: {
        Address address;
        image.known = image.known && type->kind <= TypeKind::pointer && findaddress(image.module, value, address) &&
                      address.global == nullptr && size <= 8;
        auto number = static_cast<std::uint64_t>(address.offset);
        if (type->kind == TypeKind::integer && type->bits < 64) {
            number &= (std::uint64_t{1} << type->bits) - 1;
        }
        putnumber(image, offset, size, number);
        return;
    }
    }
}

// ---- Flattening ----

struct Flattening {
    Module &module;
    const Global &global;
    std::vector<InitItem> items;
};

void addvalue(Flattening &work, Type *type, Value *value, unsigned depth);

// What a person would write as a string: nearly all characters are letters and the like.
bool istext(std::string_view bytes)
{
    const std::size_t last = bytes.find_last_not_of('\0');
    std::size_t odd = 0;
    for (const char c : bytes.substr(0, last + 1)) {
        const bool plain = (c >= ' ' && c <= '~') || (c >= '\t' && c <= '\r');
        odd += plain ? 0U : 1U;
    }
    return odd * 4 <= last + 1;
}

void addnumbers(Flattening &work, Type *type, std::string_view bytes)
{
    work.items.push_back({ItemKind::open, type, nullptr, {}});
    for (const char c : bytes) {
        Value *byte = intconst(work.module, type->sub, static_cast<unsigned char>(c));
        work.items.push_back({ItemKind::scalar, type->sub, byte, {}});
    }
    work.items.push_back({ItemKind::close, type, nullptr, {}});
}

void addtext(Flattening &work, Type *type, std::string_view bytes, bool numbers)
{
    const std::size_t last = bytes.find_last_not_of('\0');
    if (last == std::string_view::npos) {
        work.items.push_back({ItemKind::zero, type, nullptr, {}});
    } else if (numbers || !istext(bytes)) {
        addnumbers(work, type, bytes.substr(0, last + 1));
    } else {
        work.items.push_back({ItemKind::text, type, nullptr, bytes});
    }
}

// The value of a member at any depth; one of zeros gives itself.
Value *memberof(Value *value, const std::vector<std::uint32_t> &path)
{
    for (const std::uint32_t index : path) {
        if (value->kind != ValueKind::aggregate) {
            break;
        }
        value = operand(value, index);
    }
    return value;
}

Type *memberin(Type *type, const std::vector<std::uint32_t> &path)
{
    for (const std::uint32_t index : path) {
        type = membersof(type)[index];
    }
    return type;
}

// The integer that all the bytes are.
Value *numberin(const Image &image, Type *type)
{
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < image.bytes.size(); ++i) {
        const std::size_t shift = image.module.layout.big_endian ? image.bytes.size() - 1 - i : i;
        number |= std::uint64_t{image.bytes[i]} << (shift * 8);
    }
    return intconst(image.module, type, number);
}

void addbytes(Flattening &work, Type *type, const WrittenMember &member, Value *value)
{
    Image image = {work.module, std::vector<unsigned char>(sizeoftype(work.module, member.type)), true};
    if (!member.path.empty()) {
        putconstant(image, 0, memberin(type, member.path), memberof(value, member.path));
    }
    if (!image.known) {
        refuse(work.module, &work.global, "address in a packed member of the initialiser");
    }
    if (member.type->kind == TypeKind::integer) {
        work.items.push_back({ItemKind::scalar, member.type, numberin(image, member.type), {}});
        return;
    }
    std::string &text = work.module.arena.texts.emplace_back(image.bytes.begin(), image.bytes.end());
    addtext(work, member.type, text, true);
}

void addstructure(Flattening &work, Type *type, Value *value, unsigned depth)
{
    for (const WrittenMember &member : structof(type)->written_members) {
        if (member.bytes || member.path.empty()) {
            addbytes(work, type, member, value);
        } else if (sizeoftype(work.module, member.type) != 0) {
            addvalue(work, member.type, memberof(value, member.path), depth + 1);
        }
    }
}

void addarray(Flattening &work, Type *type, const Value *value, unsigned depth)
{
    for (std::uint32_t i = 0; i < value->operand_count; ++i) {
        addvalue(work, type->sub, operand(value, i), depth + 1);
    }
}

void addvalue(Flattening &work, Type *type, Value *value, unsigned depth)
{
    if (!isaggregate(type)) {
        work.items.push_back({ItemKind::scalar, type, value, {}});
        return;
    }
    if (depth > deepest) {
        refuse(work.module, &work.global, "initialiser that nests too deep");
        return;
    }
    if (iszero(value)) {
        work.items.push_back({ItemKind::zero, type, nullptr, {}});
        return;
    }
    if (value->kind == ValueKind::string) {
        addtext(work, type, value->text, false);
        return;
    }
    work.items.push_back({ItemKind::open, type, nullptr, {}});
    if (type->kind == TypeKind::array) {
        addarray(work, type, value, depth);
    } else {
        addstructure(work, type, value, depth);
    }
    work.items.push_back({ItemKind::close, type, nullptr, {}});
}

// ---- Texts ----

void appendhex(unsigned char byte, std::string &out)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    out += '\\';
    out += digits[byte >> 4U];
    out += digits[byte & 15U];
}

// One zero at the end says that all the rest is zero, which the array's length tells C as well.
std::string quoted(std::string_view bytes)
{
    const std::size_t last = bytes.find_last_not_of('\0');
    std::string out = "c\"";
    char before = '\0';
    for (const char c : bytes.substr(0, last == std::string_view::npos ? 0 : last + 1)) {
        const bool trigraph = c == '?' && before == '?';
        if (c < 32 || c > 126 || c == '"' || c == '\\' || trigraph) {
            appendhex(static_cast<unsigned char>(c), out);
        } else {
            out += c;
        }
        before = c;
    }
    return out + (last + 1 < bytes.size() ? "\\00\"" : "\"");
}

std::string globaltext(const Global &global)
{
    return "@" + writtenname(global);
}

std::string typed(const Value *value)
{
    return typetext(value->type) + " " + constanttext(value);
}

std::string listtext(const Value *value)
{
    const bool array = value->type->kind == TypeKind::array;
    std::string out = array ? "[" : "{ ";
    for (std::uint32_t i = 0; i < value->operand_count; ++i) {
        out += (i == 0 ? "" : ", ") + typed(operand(value, i));
    }
    return out + (array ? "]" : " }");
}

std::string expressiontext(const Value *value)
{
    std::string out(opname(value->op));
    const bool access = value->op == Op::getelementptr;
    if (value->predicate != Predicate::none) {
        out += " " + std::string(predicatename(value->predicate));
    }
    out += " (" + (access ? typetext(value->element) + ", " : std::string());
    for (std::uint32_t i = 0; i < value->operand_count; ++i) {
        out += (i == 0 ? "" : ", ") + typed(operand(value, i));
    }
    const bool cast = value->op >= Op::trunc && value->op <= Op::addrspacecast;
    return out + (cast ? " to " + typetext(value->type) + ")" : ")");
}

std::string integertext(const Value *value)
{
    if (value->type->bits == 1) {
        return value->number != 0 ? "true" : "false";
    }
    return std::to_string(signedvalue(value));
}

// ---- Scalars of initialisers ----

std::string numbertext(const Type *type, std::int64_t number)
{
    if (type->kind == TypeKind::integer && type->bits == 1) {
        return (number & 1) != 0 ? "true" : "false";
    }
    // char has no sign in C.
    return std::to_string(isinteger(type, 8) ? number & 0xFF : number);
}

// True if quarl prints the address as C that means the same.
bool isplainaddress(const Value *value, bool members, unsigned depth)
{
    if (value->kind == ValueKind::global) {
        return true;
    }
    if (value->kind != ValueKind::expression || depth > deepest ||
        !isplainaddress(operand(value, 0), members, depth + 1)) {
        return false;
    }
    if (value->op != Op::getelementptr) {
        return value->op == Op::bitcast || value->op == Op::ptrtoint || value->op == Op::inttoptr;
    }
    const Value *first = operand(value, 1);
    const bool zero = first->kind == ValueKind::integer && first->number == 0;
    bool plain = zero || !isaggregate(value->element);
    const Type *type = value->element;
    for (std::uint32_t i = 1; i < value->operand_count; ++i) {
        const Value *index = operand(value, i);
        plain = plain && index->kind == ValueKind::integer && signedvalue(index) >= 0;
        if (i > 1 && plain) {
            plain = members || type->kind == TypeKind::array;
            type = type->kind == TypeKind::array ? type->sub : structof(type)->written_members[index->number].type;
        }
    }
    return plain;
}

// The address as a sum of bytes, with a cast around it.
std::string sumtext(Module &module, const Type *type, const Address &address)
{
    const std::string base = typetext(address.global->type) + "* " + globaltext(*address.global);
    const std::string width = "i" + std::to_string(module.layout.pointer_size * 8);
    std::string text = "bitcast (" + base + " to i8*)";
    if (address.offset != 0) {
        text = "getelementptr (i8, i8* " + text + ", " + width + " " + std::to_string(address.offset) + ")";
    }
    const bool pointer = type->kind == TypeKind::pointer;
    if (pointer && isinteger(type->sub, 8)) {
        return text;
    }
    return (pointer ? "bitcast (i8* " : "ptrtoint (i8* ") + text + " to " + typetext(type) + ")";
}

std::string addresstext(Module &module, const Global &global, const Type *type, Value *value,
                        bool (*before)(const Global &))
{
    Address address;
    if (!findaddress(module, value, address)) {
        refuse(module, &global, "initialiser that C can't compute");
        return "0";
    }
    const bool pointer = type->kind == TypeKind::pointer;
    if (address.global == nullptr) {
        const std::string width = "i" + std::to_string(module.layout.pointer_size * 8);
        const std::string number = numbertext(type, address.offset);
        return !pointer ? number : "inttoptr (" + width + " " + number + " to " + typetext(type) + ")";
    }
    if (!pointer && type->bits != module.layout.pointer_size * 8) {
        refuse(module, &global, "address in an integer of another size");
        return "0";
    }
    // Of a variable that comes later, quarl takes no notice in a member selection.
    const bool members = address.global->kind != GlobalKind::variable || before(*address.global);
    const Value *lowered = lowerlayout(module, value);
    return isplainaddress(lowered, members, 0) ? constanttext(lowered) : sumtext(module, type, address);
}

std::string scalartext(Module &module, const Global &global, const InitItem &item, bool (*before)(const Global &))
{
    const Type *type = item.type;
    switch (item.value->kind) {
    case ValueKind::undef:
    case ValueKind::zero:
    case ValueKind::null:
        return type->kind == TypeKind::pointer ? "null" : isfloating(type) ? "0.0" : numbertext(type, 0);
    case ValueKind::integer:
        return numbertext(type, signedvalue(item.value));
    case ValueKind::floating:
        return floattext(item.value);
    default:
        return addresstext(module, global, type, item.value, before);
    }
}

// For each item, whether it is an aggregate of zeros that nothing but such follow in its list.
std::vector<bool> findtrailing(const std::vector<InitItem> &items)
{
    std::vector<bool> trailing(items.size(), false);
    for (std::size_t i = items.size(); i-- > 1;) {
        const bool last = i + 1 == items.size() || items[i + 1].kind == ItemKind::close || trailing[i + 1];
        trailing[i] = items[i].kind == ItemKind::zero && last && items[i - 1].kind != ItemKind::open;
    }
    return trailing;
}

std::string bracketed(const Type *type, const std::string &text)
{
    return type->kind == TypeKind::array ? "[" + text + "]" : "{ " + text + " }";
}

std::string onezero(Type *type)
{
    const Type *scalar = firstscalar(type);
    const char *zero = scalar->kind == TypeKind::pointer ? " null" : isfloating(scalar) ? " 0.0" : " 0";
    return bracketed(type, typetext(scalar) + (isinteger(scalar, 1) ? " false" : zero));
}

}  // namespace

bool iszero(const Value *value)
{
    switch (value->kind) {
    case ValueKind::null:
    case ValueKind::undef:
    case ValueKind::zero:
        return true;
    case ValueKind::integer:
    case ValueKind::floating:
        return value->number == 0;
    case ValueKind::string:
        return std::all_of(value->text.begin(), value->text.end(), [](char c) { return c == '\0'; });
    case ValueKind::aggregate:
        for (std::uint32_t i = 0; i < value->operand_count; ++i) {
            if (!iszero(operand(value, i))) {
                return false;
            }
        }
        return true;
    default:
        return false;
    }
}

void collectglobals(const Value *constant, std::vector<Global *> &globals)
{
    if (constant->kind == ValueKind::global) {
        globals.push_back(constant->global);
    }
    for (std::uint32_t i = 0; i < constant->operand_count; ++i) {
        collectglobals(operand(constant, i), globals);
    }
}

std::string floattext(const Value *value)
{
    const double number = std::bit_cast<double>(value->number);
    const bool narrow = value->type->kind == TypeKind::float_type;
    if (std::isnan(number)) {
        return "1e999-1e999";
    }
    if (std::isinf(number)) {
        return number < 0 ? "-1e999" : "1e999";
    }
    if (number == 0) {
        return std::signbit(number) ? "-0.000000e+00" : "0.0";
    }
    constexpr double greatest_without_exponent = 1e9;
    const bool small = std::fabs(number) < greatest_without_exponent && std::fabs(number) >= 1;
    std::string text(40, '\0');
    for (int digits = 1; digits <= 17; ++digits) {
        const int length = std::snprintf(text.data(), text.size(), "%.*g", digits, number);
        const double read = std::strtod(text.c_str(), nullptr);
        const bool same = narrow ? static_cast<float>(read) == static_cast<float>(number) : read == number;
        if (same && !(small && text.find('e') != std::string::npos)) {
            text.resize(static_cast<std::size_t>(length));
            break;
        }
    }
    return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

std::vector<InitItem> flatteninitialiser(Module &module, const Global &global)
{
    Flattening work = {module, global, {}};
    if (global.initialiser != nullptr) {
        addvalue(work, global.type, global.initialiser, 0);
    }
    return std::move(work.items);
}

std::string initialisertext(Module &module, const Global &global, const std::vector<InitItem> &items,
                            bool (*before)(const Global &))
{
    if (items.size() == 1 && items[0].kind == ItemKind::zero) {
        return " zeroinitializer";
    }
    const std::vector<bool> trailing = findtrailing(items);
    std::string out;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const InitItem &item = items[i];
        if (item.kind == ItemKind::close) {
            out += item.type->kind == TypeKind::array ? "]" : " }";
            continue;
        }
        const bool first = i > 0 && items[i - 1].kind == ItemKind::open;
        out += i == 0 || first ? "" : ",";
        out += first && items[i - 1].type->kind == TypeKind::array ? "" : " ";
        out += i == 0 ? "" : typetext(item.type) + " ";
        switch (item.kind) {
        case ItemKind::open:
            out += item.type->kind == TypeKind::array ? "[" : "{";
            break;
        case ItemKind::scalar:
            out += scalartext(module, global, item, before);
            break;
        case ItemKind::text:
            out += quoted(item.text);
            break;
        default:
            out += trailing[i] ? "zeroinitializer" : onezero(item.type);
            break;
        }
    }
    return out;
}

std::string constanttext(const Value *constant)
{
    switch (constant->kind) {
    case ValueKind::integer:
        return integertext(constant);
    case ValueKind::floating:
        return floattext(constant);
    case ValueKind::null:
        return "null";
    case ValueKind::undef:
        return isfloating(constant->type) ? "0.0" : "undef";
    case ValueKind::zero:
        return "zeroinitializer";
    case ValueKind::string:
        return quoted(constant->text);
    case ValueKind::global:
        return globaltext(*constant->global);
    case ValueKind::aggregate:
        return listtext(constant);
    case ValueKind::expression:
        return expressiontext(constant);
    default:
        return "undef";
    }
}

}  // namespace adapt
