// Reads the lines of a module outside of functions. The bodies of definitions are only found here.
//
// Names can be used before they are defined, and an initialiser may name any global. So the lines are read in order but
// for initialisers, which are read at the end, from the places that were noted.
#include "adapt/reader.h"

#include <algorithm>

namespace adapt {

namespace {

// An initialiser that is still to be read, or what an alias stands for.
struct Pending {
    Global *global = nullptr;
    const char *statement = nullptr;
    Lexer lexer;
};

// A definition with the group of attributes that it names, which comes later.
struct GroupUse {
    const Global *global = nullptr;
    std::string_view group;
};

struct LateError {
    Global place;
    std::string text;
};

struct ModuleReader {
    Reader reader;
    const char *statement = nullptr;  // where the current one begins
    Global *current = nullptr;        // what the current statement defines
    std::vector<Pending> pending;
    std::vector<LateError> errors;
    std::vector<GroupUse> group_uses;
    std::unordered_map<std::string_view, std::string> bad_groups;  // the first error in each
};

// ---- From line to line ----

bool startsline(const Module &module, const char *at)
{
    return at == module.text.data() || at[-1] == '\n';
}

// Lines that go on with a statement are indented or begin with a closing bracket.
bool startsstatement(char c)
{
    return c != ' ' && c != '\t' && c != '\r' && c != '\n' && c != ']' && c != '}' && c != ')' && c != ';';
}

void movelexer(Lexer &lexer, const char *at, std::size_t line)
{
    lexer.at = at;
    lexer.line = line;
    advance(lexer);
}

// Goes to the first token of the next statement, unless the cursor stands there.
void gotonextstatement(ModuleReader &state)
{
    Lexer &lexer = state.reader.lexer;
    const Token token = lexer.token;
    if (token.start != lexer.end && token.start != state.statement && startsline(*state.reader.module, token.start)) {
        return movelexer(lexer, token.start, token.line);
    }
    do {
        skipline(lexer);
    } while (lexer.at < lexer.end && !startsstatement(*lexer.at));
    advance(lexer);
}

// The line in which a statement begins.
std::string_view lineof(const ModuleReader &state, const char *statement)
{
    const std::string_view text = state.reader.module->text;
    const auto start = static_cast<std::size_t>(statement - text.data());
    return text.substr(start, text.find('\n', start) - start);
}

// Notes the error in the line of `statement`, at the C++ place that the line names.
void noteerror(ModuleReader &state, const char *statement)
{
    Reader &reader = state.reader;
    if (!reader.failed) {
        return;
    }
    const std::string_view line = lineof(state, statement);
    Global place;
    place.location = locationin(line);
    place.kind = line.starts_with('@') ? GlobalKind::variable : GlobalKind::function;
    const std::string_view name = line.substr(std::min(line.find('@'), line.size() - 1) + 1);
    place.name = name.substr(0, name.find_first_of("( "));
    place.line = reader.error_line;
    state.errors.push_back({std::move(place), reader.error});
    forgiveerror(reader);
}

// Metadata comes last in the input, so errors wait until it was read.
void showerrors(ModuleReader &state)
{
    for (const LateError &error : state.errors) {
        if (error.place.location != 0) {
            refuse(*state.reader.module, &error.place, error.text);
        } else {
            refuseline(*state.reader.module, error.place.line, error.text);
        }
    }
    state.errors.clear();
}

// The rest of the line from the start of the statement; the cursor goes to the next line.
std::string_view takeline(ModuleReader &state)
{
    Lexer &lexer = state.reader.lexer;
    const char *start = lexer.token.start;
    lexer.at = start;
    lexer.line = lexer.token.line;
    skipline(lexer);
    std::size_t size = static_cast<std::size_t>(lexer.at - start);
    while (size > 0 && (start[size - 1] == '\n' || start[size - 1] == '\r')) {
        --size;
    }
    advance(lexer);
    return {start, size};
}

// ---- Small statements ----

std::string_view readtext(Reader &reader)
{
    if (reader.lexer.token.kind != TokenKind::string) {
        failunexpected(reader, "a text in quotes");
    }
    const std::string_view text = reader.lexer.token.text;
    next(reader);
    return text;
}

// Sizes stand in bits, separated by colons: i64:32:64. The second is the alignment that counts.
std::size_t layoutalign(std::string_view part)
{
    const std::size_t colon = part.find(':');
    const std::string_view rest = colon == std::string_view::npos ? "" : part.substr(colon + 1);
    const std::string_view bits = rest.substr(0, rest.find(':'));
    const std::uint64_t number = isdigits(bits) ? decimalnumber(bits) : 0;
    const bool fits = number >= 8 && number <= 1024 && (number & (number - 1)) == 0;
    return fits ? static_cast<std::size_t>(number / 8) : 1;
}

void setintegeralign(DataLayout &layout, std::string_view part)
{
    constexpr std::string_view widths[] = {"i1:", "i8:", "i16:", "i32:", "i64:"};
    for (std::size_t i = 0; i < std::size(widths); ++i) {
        if (part.starts_with(widths[i])) {
            layout.integer_align[i] = layoutalign(part);
        }
    }
}

// One part of the layout, such as e, p:16:16, i64:16, n8:16.
void setlayoutpart(DataLayout &layout, std::string_view part)
{
    if (part == "e" || part == "E") {
        layout.big_endian = part == "E";
    } else if (part.starts_with("p:") || part.starts_with("p0:")) {
        const std::string_view rest = part.substr(part.find(':') + 1);
        const std::string_view bits = rest.substr(0, rest.find(':'));
        if (isdigits(bits) && decimalnumber(bits) >= 8 && decimalnumber(bits) <= 64) {
            layout.pointer_size = static_cast<std::size_t>(decimalnumber(bits) / 8);
            layout.pointer_align = layoutalign(rest);
        }
    } else if (part.starts_with("i")) {
        setintegeralign(layout, part);
    } else if (part.starts_with("f32:")) {
        layout.float_align = layoutalign(part);
    } else if (part.starts_with("f64:")) {
        layout.double_align = layoutalign(part);
    } else if (part.starts_with("n") && !part.starts_with("ni")) {
        layout.native32 = (":" + std::string(part.substr(1)) + ":").find(":32:") != std::string::npos;
    }
}

void setlayout(DataLayout &layout, std::string_view text)
{
    while (!text.empty()) {
        const std::size_t end = text.find('-');
        setlayoutpart(layout, text.substr(0, end));
        text = end == std::string_view::npos ? "" : text.substr(end + 1);
    }
}

// target datalayout = "..."; target triple = "..."
void readtarget(ModuleReader &state)
{
    Reader &reader = state.reader;
    next(reader);
    const bool layout = isword(reader, "datalayout");
    if (!layout && !isword(reader, "triple")) {
        return failunexpected(reader, "'datalayout' or 'triple'");
    }
    next(reader);
    expectpunct(reader, '=');
    const std::string_view text = readtext(reader);
    if (layout && !reader.failed) {
        setlayout(reader.module->layout, text);
    }
}

void readsourcename(ModuleReader &state)
{
    Reader &reader = state.reader;
    next(reader);
    expectpunct(reader, '=');
    reader.module->source_filename = readtext(reader);
}

// !5 = ... and !name = ...
void readmetadata(ModuleReader &state)
{
    Module &module = *state.reader.module;
    const std::string_view name = state.reader.lexer.token.text;
    const std::string_view line = takeline(state);
    module.metadata_lines.push_back(line);
    const std::size_t equals = line.find('=');
    constexpr std::uint64_t spare_numbers = 100000;
    const std::uint64_t number = isdigits(name) ? decimalnumber(name) : UINT64_MAX;
    if (number > module.text.size() + spare_numbers || equals == std::string_view::npos) {
        return;
    }
    if (number >= module.metadata.size()) {
        module.metadata.resize(number + 1);
    }
    module.metadata[number] = line.substr(line.find_first_not_of(' ', equals + 1) == std::string_view::npos
                                              ? line.size()
                                              : line.find_first_not_of(' ', equals + 1));
}

// %name = type {...}, <{...}> or opaque
void readtypeline(ModuleReader &state)
{
    Reader &reader = state.reader;
    StructType *structure = structnamed(*reader.module, reader.lexer.token.text);
    const bool repeated = structure->line != 0;
    structure->line = state.reader.line;
    next(reader);
    expectpunct(reader, '=');
    expectword(reader, "type");
    if (repeated) {
        fail(reader, "a second type %" + structure->name);
    }
    if (takeword(reader, "opaque")) {
        return;
    }
    if (!ispunct(reader, '{') && !ispunct(reader, '<')) {
        failunexpected(reader, "a structure");
    }
    reader.lenient = true;
    reader.foreign.clear();
    const Type *body = readtype(reader);
    reader.lenient = false;
    if (!reader.failed && body->kind != TypeKind::structure) {
        fail(reader, "a name for a type that is no structure");
    }
    if (!reader.failed) {
        structure->members = body->members;
        structure->packed = body->packed;
        structure->opaque = false;
        structure->foreign = reader.foreign;
    }
}

// attributes #0 = { ... }
void readgroup(ModuleReader &state)
{
    Reader &reader = state.reader;
    next(reader);
    if (reader.lexer.token.kind != TokenKind::group) {
        failunexpected(reader, "the number of a group of attributes");
    }
    const std::string_view group = reader.lexer.token.text;
    next(reader);
    expectpunct(reader, '=');
    expectpunct(reader, '{');
    skipfunctionattributes(reader);
    expectpunct(reader, '}');
    if (reader.failed) {
        state.bad_groups.emplace(group, reader.error);
        forgiveerror(reader);
        takeline(state);
    }
}

// ---- Globals ----

struct LinkageWord {
    std::string_view word;
    Linkage linkage;
};

constexpr LinkageWord linkage_words[] = {
    {"external", Linkage::external},
    {"internal", Linkage::internal},
    {"private", Linkage::private_},
    {"weak", Linkage::weak},
    {"weak_odr", Linkage::weak_odr},
    {"linkonce", Linkage::linkonce},
    {"linkonce_odr", Linkage::linkonce_odr},
    {"common", Linkage::common},
    {"appending", Linkage::appending},
    {"extern_weak", Linkage::extern_weak},
    {"available_externally", Linkage::available_externally},
};

// What stands before the type or the word global. Returns whether a linkage stood there.
bool readlinkage(Reader &reader, Global &global)
{
    bool found = false;
    for (bool is_linkage = true; is_linkage;) {
        skipheaderwords(reader);
        is_linkage = takeword(reader, "hidden");
        global.hidden |= is_linkage;
        for (const LinkageWord &row : linkage_words) {
            if (takeword(reader, row.word)) {
                global.linkage = row.linkage;
                is_linkage = true;
                found = true;
            }
        }
        if (takeword(reader, "thread_local")) {
            global.thread_local_ = true;
            is_linkage = true;
            if (ispunct(reader, '(')) {
                skipbrackets(reader);
            }
        }
    }
    return found;
}

// A record for the global of this name, whose type is known. A second one of the name is an error.
Global *addglobal(ModuleReader &state, const Global &header)
{
    Module &module = *state.reader.module;
    Global &made = module.globals.emplace_back(header);
    made.line = state.reader.line;
    Value &value = module.arena.values.emplace_back();
    value.kind = ValueKind::global;
    value.type = pointerto(module, made.type);
    value.global = &made;
    made.value = &value;
    if (!module.global_by_name.emplace(made.name, &made).second) {
        fail(state.reader, "a second @" + made.name);
    }
    state.current = &made;
    return &made;
}

// @name = LINKAGE global TYPE INITIALISER, section "...", comdat, align N, attachments
void readvariable(ModuleReader &state)
{
    Reader &reader = state.reader;
    Global header;
    header.name = reader.lexer.token.text;
    next(reader);
    expectpunct(reader, '=');
    const bool has_linkage = readlinkage(reader, header);
    if (isword(reader, "ifunc")) {
        return fail(reader, "function chosen at load time ('ifunc')");
    }
    const bool is_alias = takeword(reader, "alias");
    header.kind = is_alias ? GlobalKind::alias : GlobalKind::variable;
    header.is_constant = isword(reader, "constant");
    if (!is_alias && !header.is_constant && !isword(reader, "global")) {
        return failunexpected(reader, "'global', 'constant' or 'alias'");
    }
    if (!is_alias) {
        next(reader);
    }
    header.type = readtype(reader);
    if (header.type->kind == TypeKind::void_type || header.type->kind == TypeKind::label ||
        header.type->kind == TypeKind::metadata || (header.type->kind == TypeKind::function && !is_alias)) {
        fail(reader, "a variable of type " + typetext(header.type));
    }
    if (reader.failed) {
        return;
    }
    header.declared_only =
        !is_alias && has_linkage && (header.linkage == Linkage::external || header.linkage == Linkage::extern_weak);
    Global *global = addglobal(state, header);
    if (!reader.failed) {
        state.pending.push_back({global, state.statement, reader.lexer});
    }
}

void readglobaltail(Reader &reader, Global &global)
{
    while (!reader.failed && (ispunct(reader, ',') || reader.lexer.token.kind == TokenKind::group)) {
        const std::uint32_t location = readattachments(reader);
        global.location = location != 0 ? location : global.location;
        if (reader.lexer.token.kind == TokenKind::group) {
            skipfunctionattributes(reader);
        }
        if (!takepunct(reader, ',')) {
            continue;
        }
        if (takeword(reader, "section")) {
            global.section = readtext(reader);
        } else if (takeword(reader, "partition")) {
            readtext(reader);
        } else if (takeword(reader, "align")) {
            global.align = readnumber(reader);
        } else if (takeword(reader, "comdat")) {
            if (ispunct(reader, '(')) {
                skipbrackets(reader);
            }
        } else if (!takeword(reader, "no_sanitize_address") && !takeword(reader, "no_sanitize_hwaddress") &&
                   !takeword(reader, "no_sanitize_memtag") && !takeword(reader, "sanitize_memtag") &&
                   !takeword(reader, "sanitize_address_dyninit")) {
            failunexpected(reader, "'section', 'comdat' or 'align'");
        }
    }
}

// ---- Functions ----

// The parameters of a header with their attributes and names; the cursor stands on the bracket.
void readparameters(Reader &reader, Global &header, std::vector<Type *> &types, bool &variadic)
{
    expectpunct(reader, '(');
    if (takepunct(reader, ')')) {
        return;
    }
    do {
        if (reader.lexer.token.kind == TokenKind::ellipsis) {
            variadic = true;
            next(reader);
            break;
        }
        Type *type = readtype(reader);
        if (type->kind == TypeKind::void_type || type->kind == TypeKind::function || type->kind == TypeKind::label) {
            fail(reader, "a parameter of type " + typetext(type));
        }
        types.push_back(type);
        header.attributes.push_back(readattributes(reader, type));
        const Token &token = reader.lexer.token;
        const bool named = token.kind == TokenKind::local;
        header.param_names.push_back(named && (token.quoted || !isdigits(token.text)) ? token.text : "");
        if (named) {
            next(reader);
        }
    } while (takepunct(reader, ','));
    expectpunct(reader, ')');
}

void skiptypedvalue(Reader &reader)
{
    reader.lenient = true;
    readtype(reader);
    reader.lenient = false;
    while (!reader.failed &&
           (reader.lexer.token.kind == TokenKind::word || reader.lexer.token.kind == TokenKind::global)) {
        next(reader);
    }
    if (ispunct(reader, '(')) {
        skipbrackets(reader);
    }
}

// What stands after the parameters, up to the { or the end of a declaration.
void readheadertail(ModuleReader &state, Global &global)
{
    Reader &reader = state.reader;
    for (bool more = true; more && !reader.failed;) {
        const char *before = reader.lexer.token.start;
        skipheaderwords(reader);
        for (const std::string_view group : skipfunctionattributes(reader)) {
            state.group_uses.push_back({&global, group});
        }
        const std::uint32_t location = readattachments(reader);
        global.location = location != 0 ? location : global.location;
        if (takeword(reader, "section")) {
            global.section = readtext(reader);
        } else if (takeword(reader, "partition")) {
            readtext(reader);
        } else if (takeword(reader, "comdat")) {
            if (ispunct(reader, '(')) {
                skipbrackets(reader);
            }
        } else if (takeword(reader, "personality")) {
            skiptypedvalue(reader);
        } else if (isword(reader, "gc") || isword(reader, "prefix") || isword(reader, "prologue")) {
            fail(reader, "'" + std::string(reader.lexer.token.text) + "' of a function");
        }
        more = reader.lexer.token.start != before;
    }
}

// Finds the } of the body, whose { is the current token, and goes after it. clang writes it at the start of a line.
void takebody(ModuleReader &state, Global &global)
{
    Lexer &lexer = state.reader.lexer;
    global.body_line = lexer.token.line;
    const char *start = lexer.at;
    const std::string_view rest(start, static_cast<std::size_t>(lexer.end - start));
    const std::size_t first = rest.find_first_not_of(" \t\r");
    const bool own_lines = first == std::string_view::npos || rest[first] == '\n' || rest[first] == ';';
    const std::size_t close = own_lines ? rest.find("\n}") : rest.find('}');
    if (close == std::string_view::npos) {
        fail(state.reader, "a body without its }");
        lexer.at = lexer.end;
        return;
    }
    const char *end = start + close + (own_lines ? 1 : 0);
    global.body = {start, static_cast<std::size_t>(end - start)};
    lexer.line += static_cast<std::size_t>(std::count(start, end, '\n'));
    lexer.at = end + 1;
    next(state.reader);
}

// define LINKAGE ATTRIBUTES TYPE @name(PARAMETERS) ATTRIBUTES {
void readfunction(ModuleReader &state)
{
    Reader &reader = state.reader;
    Global header;
    header.kind = GlobalKind::function;
    header.declared_only = isword(reader, "declare");
    next(reader);
    reader.lenient = header.declared_only;
    header.location = readattachments(reader);
    readlinkage(reader, header);
    header.attributes.push_back(readattributes(reader, voidtype(*reader.module)));
    Type *result = readtype(reader);
    header.name = reader.lexer.token.text;
    if (reader.lexer.token.kind != TokenKind::global) {
        failunexpected(reader, "the name of a function");
    }
    next(reader);
    std::vector<Type *> types;
    bool variadic = false;
    readparameters(reader, header, types, variadic);
    reader.lenient = false;
    if (reader.failed) {
        return;
    }
    header.type = functiontype(*reader.module, result, types, variadic);
    Global *global = addglobal(state, header);
    readheadertail(state, *global);
    if (!global->declared_only && !reader.failed) {
        if (!ispunct(reader, '{')) {
            failunexpected(reader, "'{'");
        } else {
            takebody(state, *global);
        }
    }
}

// After an error in the header of a definition: goes after its body.
void skipbody(ModuleReader &state)
{
    Lexer &lexer = state.reader.lexer;
    const std::string_view rest(lexer.at, static_cast<std::size_t>(lexer.end - lexer.at));
    const std::size_t close = rest.find("\n}");
    const char *end = close == std::string_view::npos ? lexer.end : lexer.at + close + 2;
    lexer.line += static_cast<std::size_t>(std::count(lexer.at, end, '\n'));
    lexer.at = end;
    lexer.token.start = end;
}

// ---- Statements by their first token ----

void readwordstatement(ModuleReader &state)
{
    Reader &reader = state.reader;
    if (isword(reader, "define")) {
        readfunction(state);
        if (reader.failed && (state.current == nullptr || state.current->body.data() == nullptr)) {
            skipbody(state);
        }
    } else if (isword(reader, "declare")) {
        readfunction(state);
    } else if (isword(reader, "target")) {
        readtarget(state);
    } else if (isword(reader, "source_filename")) {
        readsourcename(state);
    } else if (isword(reader, "attributes")) {
        readgroup(state);
    } else if (isword(reader, "uselistorder") || isword(reader, "uselistorder_bb")) {
        takeline(state);
    } else if (isword(reader, "module")) {
        refuse(*reader.module, nullptr, "assembler code of the module");
        takeline(state);
    } else {
        failunexpected(reader, "a line of a module");
    }
}

void readstatement(ModuleReader &state)
{
    Reader &reader = state.reader;
    switch (reader.lexer.token.kind) {
    case TokenKind::word:
        return readwordstatement(state);
    case TokenKind::global:
        readvariable(state);
        return gotonextstatement(state);
    case TokenKind::local:
        return readtypeline(state);
    case TokenKind::metadata:
        return readmetadata(state);
    case TokenKind::comdat:
        takeline(state);
        return;
    default:
        failunexpected(reader, "a line of a module");
    }
}

void readstatements(ModuleReader &state)
{
    Reader &reader = state.reader;
    while (reader.lexer.token.kind != TokenKind::end) {
        state.statement = reader.lexer.token.start;
        reader.line = reader.lexer.token.line;
        reader.last_line = 0;
        state.current = nullptr;
        if (reader.lexer.token.kind == TokenKind::fault) {
            fail(reader, "a character or quote that IR doesn't have here");
        } else {
            readstatement(state);
        }
        if (reader.failed) {
            noteerror(state, state.statement);
            gotonextstatement(state);
        }
    }
}

void readinitialisers(ModuleReader &state)
{
    Reader &reader = state.reader;
    for (const Pending &pending : state.pending) {
        Global &global = *pending.global;
        state.current = &global;
        reader.lexer = pending.lexer;
        reader.line = reader.last_line = global.line;
        if (reader.lexer.token.kind == TokenKind::fault) {
            fail(reader, "a character or quote that IR doesn't have here");
        }
        if (global.kind == GlobalKind::alias) {
            expectpunct(reader, ',');
            const bool computed = findop(reader.lexer.token.text) != Op::none;  // is written without its type
            global.initialiser =
                computed ? readconstant(reader, pointerto(*reader.module, global.type)) : readtypedconstant(reader);
        } else if (!global.declared_only) {
            global.initialiser = readconstant(reader, global.type);
        }
        readglobaltail(reader, global);
        if (!reader.failed && reader.lexer.token.kind != TokenKind::end &&
            !startsline(*reader.module, reader.lexer.token.start)) {
            failunexpected(reader, "the end of the line");
        }
        noteerror(state, pending.statement);
    }
}

// Refuses the definitions whose attributes can't be had.
void checkgroups(ModuleReader &state)
{
    for (const GroupUse &use : state.group_uses) {
        const auto bad = state.bad_groups.find(use.group);
        if (bad != state.bad_groups.end() && !use.global->declared_only) {
            refuse(*state.reader.module, use.global, bad->second);
        }
    }
}

}  // namespace

void parsemodule(Module &module)
{
    ModuleReader state;
    state.reader.module = &module;
    state.reader.lexer = startlexer(module.text, 1, module.arena);
    readstatements(state);
    checkstructures(state.reader);
    checkgroups(state);
    readinitialisers(state);
    showerrors(state);
}

}  // namespace adapt
