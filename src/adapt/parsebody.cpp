// Reads the bodies of functions: blocks and names of locals. parseinstructions.cpp reads the instructions themselves.
//
// A local can be used before it is defined, in phis above all. Until then a value without an operation stands for it,
// whose uses go to the definition when that is read.
#include "adapt/bodyreader.h"

#include <algorithm>

namespace adapt {

namespace {

// The record of the name at the cursor.
Local &localof(Locals &locals, const Token &token)
{
    const bool numbered = !token.quoted && isdigits(token.text);
    Local &local = numbered ? locals.numbered[decimalnumber(token.text)] : locals.named[token.text];
    if (local.line == 0) {
        local.line = token.line;
    }
    return local;
}

// ---- Definitions ----

void definevalue(Reader &reader, Local &local, Value *value)
{
    if (local.defined || local.block != nullptr) {
        return fail(reader, "a second definition of this name");
    }
    if (local.value != nullptr && local.value->type != value->type) {
        return fail(reader,
                    "a value of type " + typetext(value->type) + " that was used as " + typetext(local.value->type));
    }
    if (local.value != nullptr) {
        replaceuses(local.value, value);
    }
    local.value = value;
    local.defined = true;
}

// The record of what is defined under an explicit name or, without one, the next number.
Local &definedlocal(Reader &reader, const Token &name)
{
    Locals &locals = *reader.locals;
    if (name.kind == TokenKind::end) {
        return locals.numbered[locals.next_number++];
    }
    if (!name.quoted && isdigits(name.text)) {
        const std::uint64_t number = decimalnumber(name.text);
        if (number < locals.next_number || number == UINT64_MAX) {
            fail(reader, "a number that is not the next one");
        } else {
            locals.next_number = number + 1;
        }
    }
    return localof(locals, name);
}

std::string_view plainname(const Token &name)
{
    return name.kind != TokenKind::end && (name.quoted || !isdigits(name.text)) ? name.text : "";
}

// ---- Blocks ----

// Ends the current block, if there is one, and starts the block of this name; without a name it gets a number.
void startblock(BodyReader &state, const Token &name)
{
    Reader &reader = state.reader;
    if (state.block != nullptr && !state.bad) {
        fail(reader, "a block that doesn't end before this");
    }
    Local &local = definedlocal(reader, name);
    if (local.defined || local.value != nullptr) {
        fail(reader, "a second definition of this name");
    }
    if (reader.failed) {
        return;
    }
    if (local.block == nullptr) {
        local.block = &reader.function->arena.blocks.emplace_back();
        local.block->function = reader.function;
    }
    local.block->name = plainname(name);
    local.defined = true;
    reader.function->blocks.push_back(local.block);
    state.block = local.block;
}

// ---- Statements ----

// Appends an instruction that was read, under its name.
void takeinstruction(BodyReader &state, Value *inst, const Token &name)
{
    Reader &reader = state.reader;
    inst->line = static_cast<std::uint32_t>(state.reader.line);
    if (inst->type->kind != TypeKind::void_type) {
        inst->name = plainname(name);
        definevalue(reader, definedlocal(reader, name), inst);
    } else if (name.kind != TokenKind::end) {
        fail(reader, "a name for a result of type void");
    }
    const bool late_phi = inst->op == Op::phi && state.block->last != nullptr && state.block->last->op != Op::phi;
    if (late_phi) {
        fail(reader, "a phi after other instructions");
    }
    if (reader.failed) {
        return;
    }
    append(inst, state.block);
    if (isterminator(inst->op)) {
        state.block = nullptr;
    }
}

// [%name =] INSTRUCTION attachments
void readstatement(BodyReader &state)
{
    Reader &reader = state.reader;
    if (reader.lexer.token.kind == TokenKind::label) {
        const Token name = reader.lexer.token;
        next(reader);
        return startblock(state, name);
    }
    if (reader.lexer.token.kind == TokenKind::group) {  // a debug record
        next(reader);
        skipbrackets(reader);
        return;
    }
    if (isword(reader, "uselistorder")) {
        skipline(reader.lexer);
        return next(reader);
    }
    if (state.block == nullptr) {
        startblock(state, Token{});
    }
    Token name;
    if (reader.lexer.token.kind == TokenKind::local) {
        name = reader.lexer.token;
        next(reader);
        expectpunct(reader, '=');
    }
    Value *inst = readinstruction(reader);
    const std::uint32_t location = readattachments(reader);
    if (!reader.failed && inst != nullptr) {
        inst->location = location;
        takeinstruction(state, inst, name);
    }
}

// ---- Errors ----

std::size_t indentation(const Lexer &lexer, const char *at)
{
    const char *start = at;
    while (start < lexer.end && (*start == ' ' || *start == '\t')) {
        ++start;
    }
    return static_cast<std::size_t>(start - at);
}

// Goes to the next line that is indented no more than the statement. What goes on with one is indented more, or is the
// bracket after a switch's cases.
void skipstatement(BodyReader &state)
{
    Lexer &lexer = state.reader.lexer;
    const char *line = state.statement;
    while (line > state.reader.function->global->body.data() && line[-1] != '\n') {
        --line;
    }
    const std::size_t most = std::max<std::size_t>(indentation(lexer, line), 1);
    lexer.at = state.statement;
    lexer.line = state.reader.line;
    do {
        skipline(lexer);
    } while (lexer.at < lexer.end &&
             (indentation(lexer, lexer.at) > most ||
              lexer.at[std::min<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(indentation(lexer, lexer.at)),
                                                lexer.end - lexer.at - 1)] == ']'));
    advance(lexer);
}

void reporterror(BodyReader &state)
{
    Reader &reader = state.reader;
    state.bad = true;
    const std::string text = reader.error;
    Value place;
    place.line = static_cast<std::uint32_t>(reader.error_line);
    forgiveerror(reader);
    skipstatement(state);
    const char *end = reader.lexer.token.start;
    place.location = locationin({state.statement, static_cast<std::size_t>(end - state.statement)});
    constexpr std::size_t most_errors = 20;  // of a function; and each reason once
    if (state.reported.size() < most_errors && state.reported.insert(text).second) {
        refuse(*reader.function, &place, text);
    }
}

// ---- The whole ----

void readparams(Reader &reader)
{
    Function &function = *reader.function;
    const std::vector<Type *> &types = function.global->type->members;
    for (std::size_t i = 0; i < types.size(); ++i) {
        Value &param = function.arena.values.emplace_back();
        param.kind = ValueKind::parameter;
        param.type = types[i];
        param.number = i;
        Token name;
        if (!function.global->param_names[i].empty()) {
            name.kind = TokenKind::local;
            name.quoted = true;
            name.text = param.name = function.global->param_names[i];
        }
        function.params.push_back(&param);
        definevalue(reader, definedlocal(reader, name), &param);
    }
}

// Reports the first local that was used and not defined.
void checklocals(BodyReader &state)
{
    std::size_t first = SIZE_MAX;
    for (const auto &[name, local] : state.locals.named) {
        first = local.defined ? first : std::min(first, local.line);
    }
    for (const auto &[number, local] : state.locals.numbered) {
        first = local.defined ? first : std::min(first, local.line);
    }
    if (first != SIZE_MAX) {
        Value place;
        place.line = static_cast<std::uint32_t>(first);
        refuse(*state.reader.function, &place, "a local that isn't defined");
        state.bad = true;
    }
}

void checkbody(BodyReader &state)
{
    Function &function = *state.reader.function;
    if (function.blocks.empty() || state.block != nullptr) {
        refuse(function, nullptr, "a body whose last block doesn't end");
        state.bad = true;
        return;
    }
    checklocals(state);
    if (state.bad) {
        return;
    }
    const Fault fault = findfault(function);
    if (!fault.text.empty()) {
        refuse(function, fault.inst, fault.text);
        state.bad = true;
    }
}

}  // namespace

Value *findlocal(Reader &reader, Type *type)
{
    Local &local = localof(*reader.locals, reader.lexer.token);
    if (type->kind == TypeKind::void_type || type->kind == TypeKind::function || type->kind == TypeKind::label) {
        fail(reader, "a value of type " + typetext(type));
    } else if (local.block != nullptr) {
        fail(reader, "a block where a value is expected");
    } else if (local.value != nullptr && local.value->type != type) {
        fail(reader, "'%" + std::string(reader.lexer.token.text.substr(0, 80)) + "' is " + typetext(local.value->type) +
                         ", not " + typetext(type));
    }
    if (reader.failed) {
        return undefconst(*reader.module, type);
    }
    if (local.value == nullptr) {
        local.value = newinst(*reader.function, Op::none, type, {});
    }
    Value *value = local.value;
    next(reader);
    return value;
}

Block *readblockname(Reader &reader)
{
    expectword(reader, "label");
    return readbareblockname(reader);
}

Block *readbareblockname(Reader &reader)
{
    if (reader.lexer.token.kind != TokenKind::local) {
        failunexpected(reader, "the name of a block");
        return nullptr;
    }
    Local &local = localof(*reader.locals, reader.lexer.token);
    if (local.value != nullptr) {
        fail(reader, "a value where a block is expected");
    }
    if (local.block == nullptr) {
        local.block = &reader.function->arena.blocks.emplace_back();
        local.block->function = reader.function;
    }
    Block *block = local.block;
    next(reader);
    return block;
}

bool parsebody(Function &function)
{
    if (function.global->body.data() == nullptr) {
        return false;  // the error was in its header
    }
    BodyReader state;
    Reader &reader = state.reader;
    reader.module = function.module;
    reader.function = &function;
    reader.locals = &state.locals;
    state.statement = function.global->body.data();
    state.reader.line = function.global->body_line;
    reader.lexer = startlexer(function.global->body, function.global->body_line, function.arena);
    readparams(reader);
    while (reader.lexer.token.kind != TokenKind::end || reader.failed) {
        if (reader.failed) {
            reporterror(state);
            continue;
        }
        state.statement = reader.lexer.token.start;
        reader.line = reader.lexer.token.line;
        reader.last_line = 0;
        if (reader.lexer.token.kind == TokenKind::fault) {
            fail(reader, "a character or quote that IR doesn't have here");
        } else {
            readstatement(state);
        }
    }
    if (!state.bad) {
        checkbody(state);
    }
    return !state.bad;
}

}  // namespace adapt
