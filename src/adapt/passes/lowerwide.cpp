// Integers of more than 64 bits. The front end has them for runs of bit fields that straddle the words of the target:
// it loads the whole run, shifts and masks, and stores it again. Here such a value is a list of words of 32 bits, and
// what nothing needs of it isn't computed.
//
//     %bf.load = load i96, i96* %p
//     %bf.lshr = lshr i96 %bf.load, 40
//     %bf.cast = trunc i96 %bf.lshr to i32
// becomes
//     %0 = load of the four bytes from the fifth on, as i32
//     %1 = load of the four bytes from the ninth on, as i32
//     %2 = lshr i32 %0, 8
//     %3 = shl i32 %1, 24
//     %bf.cast = or i32 %3, %2
//
// Bits of the last word beyond the width are zero. Words that a store writes back as they were loaded aren't stored.
//
// Before: aggregates are lowered. After: no integer has more than 64 bits. What isn't done with bit fields is refused.
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

#include <string>
#include <unordered_map>

namespace adapt {

namespace {

constexpr std::uint32_t word_bits = 32;
constexpr std::uint32_t word_bytes = 4;
constexpr std::uint64_t word_mask = 0xFFFFFFFF;
constexpr std::uint32_t most_between = 64;  // instructions between the load and the store of a run

using Words = std::vector<Value *>;  // the lowest first

struct State {
    Function *function = nullptr;
    Type *word = nullptr;
    std::unordered_map<const Value *, Words> words;
    std::vector<Value *> done;  // instructions that have become words
    std::vector<Value *> made;  // words; those that nothing uses go
};

bool iswide(const Type *type)
{
    return type->kind == TypeKind::integer && type->bits > 64;
}

std::size_t countwords(const Type *type)
{
    return (type->bits + word_bits - 1) / word_bits;
}

Value *wordconst(const State &state, std::uint64_t number)
{
    return intconst(*state.function->module, state.word, number & word_mask);
}

// ---- Constants ----

// The words of a decimal number, two's complement.
Words constantwords(const State &state, const Value *constant)
{
    std::vector<std::uint64_t> numbers(countwords(constant->type), 0);
    const bool negative = constant->text.starts_with('-');
    for (const char c : constant->text.substr(negative ? 1 : 0)) {
        std::uint64_t carry = static_cast<std::uint64_t>(c - '0');
        for (std::uint64_t &number : numbers) {
            carry += number * 10;
            number = carry & word_mask;
            carry >>= word_bits;
        }
    }
    std::uint64_t carry = negative ? 1 : 0;
    Words words;
    for (std::uint64_t &number : numbers) {
        number = negative ? (~number & word_mask) + carry : number;
        carry = number >> word_bits;
        words.push_back(wordconst(state, number));
    }
    if (const std::uint32_t rest = constant->type->bits % word_bits; rest != 0) {
        words.back() = wordconst(state, words.back()->number & ((1ULL << rest) - 1));
    }
    return words;
}

Words wordsof(const State &state, const Value *value)
{
    if (value->kind == ValueKind::integer) {
        return constantwords(state, value);
    }
    if (const auto found = state.words.find(value); found != state.words.end()) {
        return found->second;
    }
    return Words(countwords(value->type), wordconst(state, 0));
}

// ---- Words ----

Value *kept(State &state, Value *value)
{
    if (value->kind == ValueKind::instruction) {
        state.made.push_back(value);
    }
    return value;
}

bool isnumber(const Value *value, std::uint64_t number)
{
    return isintconst(value) && value->number == number;
}

Value *putand(State &state, Value *place, Value *a, Value *b)
{
    if (isnumber(a, word_mask) || isnumber(b, 0)) {
        return b;
    }
    if (isnumber(b, word_mask) || isnumber(a, 0)) {
        return a;
    }
    return kept(state, putinst(place, Op::and_, state.word, {a, b}));
}

Value *putor(State &state, Value *place, Value *a, Value *b)
{
    if (isnumber(a, 0)) {
        return b;
    }
    return isnumber(b, 0) ? a : kept(state, putinst(place, Op::or_, state.word, {a, b}));
}

Value *putshift(State &state, Value *place, Op op, Value *a, std::uint32_t count)
{
    if (count == 0 || isnumber(a, 0)) {
        return a;
    }
    if (isintconst(a) && op != Op::ashr) {
        return wordconst(state, op == Op::shl ? a->number << count : a->number >> count);
    }
    return kept(state, putinst(place, op, state.word, {a, wordconst(state, count)}));
}

// Clears the bits of the last word beyond the width.
void clearrest(State &state, Value *place, Words &words, std::uint32_t bits)
{
    if (const std::uint32_t rest = bits % word_bits; rest != 0) {
        words.back() = putand(state, place, words.back(), wordconst(state, (1ULL << rest) - 1));
    }
}

Words shiftleft(State &state, Value *place, const Words &from, std::uint32_t count)
{
    const std::uint32_t whole = count / word_bits;
    const std::uint32_t part = count % word_bits;
    Words words(from.size(), wordconst(state, 0));
    for (std::size_t i = whole; i < from.size(); ++i) {
        Value *high = putshift(state, place, Op::shl, from[i - whole], part);
        Value *low = part != 0 && i > whole ? putshift(state, place, Op::lshr, from[i - whole - 1], word_bits - part)
                                            : wordconst(state, 0);
        words[i] = putor(state, place, high, low);
    }
    return words;
}

// `filler` comes in from above.
Words shiftright(State &state, Value *place, Words from, std::uint32_t count, Value *filler)
{
    const std::uint32_t whole = count / word_bits;
    const std::uint32_t part = count % word_bits;
    const std::size_t size = from.size();
    from.resize(size + whole + 1, filler);
    Words words;
    for (std::size_t i = 0; i < size; ++i) {
        Value *low = putshift(state, place, Op::lshr, from[i + whole], part);
        Value *high =
            part != 0 ? putshift(state, place, Op::shl, from[i + whole + 1], word_bits - part) : wordconst(state, 0);
        words.push_back(putor(state, place, high, low));
    }
    return words;
}

// Spreads the sign, which is the top one of `bits` bits, over the rest of the last word, and gives a word of it.
Value *spreadsign(State &state, Value *place, Words &words, std::uint32_t bits)
{
    if (const std::uint32_t rest = bits % word_bits; rest != 0) {
        Value *high = putshift(state, place, Op::shl, words.back(), word_bits - rest);
        words.back() = putshift(state, place, Op::ashr, high, word_bits - rest);
    }
    return putshift(state, place, Op::ashr, words.back(), word_bits - 1);
}

// ---- Memory ----

std::uint32_t byteplace(const Module &module, std::uint32_t place, std::uint32_t count)
{
    return module.layout.big_endian ? count - 1 - place : place;
}

Value *byteaddress(State &state, Value *place, Value *pointer, std::uint32_t byte, std::uint32_t count)
{
    Module &module = *state.function->module;
    Type *type = inttype(module, 8);
    Value *bytes = putbitcast(place, withoutcasts(pointer), pointerto(module, type));
    return putoffset(place, bytes, type, byteplace(module, byte, count));
}

Words loadwords(State &state, Value *load)
{
    Type *byte_type = inttype(*state.function->module, 8);
    const std::uint32_t count = (load->type->bits + 7) / 8;
    Words words;
    for (std::uint32_t i = 0; i < count; ++i) {
        Value *byte = putload(load, byteaddress(state, load, operand(load, 0), i, count), byte_type);
        byte->is_volatile = load->is_volatile;
        Value *wide = kept(state, putcast(load, Op::zext, byte, state.word));
        Value *part = putshift(state, load, Op::shl, wide, i % word_bytes * 8);
        if (i % word_bytes == 0) {
            words.push_back(part);
        } else {
            words.back() = putor(state, load, words.back(), part);
        }
    }
    clearrest(state, load, words, load->type->bits);
    return words;
}

// The load from the same place that comes before the store in its block, with no other write between; or null.
const Value *loadedbefore(const Value *store)
{
    const Value *inst = store->prev;
    for (std::uint32_t i = 0; i < most_between && inst != nullptr; ++i, inst = inst->prev) {
        if (inst->op == Op::load && iswide(inst->type)) {
            const bool same = withoutcasts(operand(inst, 0)) == withoutcasts(operand(store, 1)) &&
                              inst->type == operand(store, 0)->type && !inst->is_volatile;
            return same ? inst : nullptr;
        }
        if (inst->op == Op::store || inst->op == Op::call) {
            return nullptr;
        }
    }
    return nullptr;
}

void storewords(State &state, Value *store)
{
    Type *byte_type = inttype(*state.function->module, 8);
    const std::uint32_t bits = operand(store, 0)->type->bits;
    const std::uint32_t count = (bits + 7) / 8;
    const Words words = wordsof(state, operand(store, 0));
    const Value *before = store->is_volatile ? nullptr : loadedbefore(store);
    const Words old = before != nullptr ? wordsof(state, before) : Words(words.size(), nullptr);
    for (std::uint32_t i = 0; i < count; ++i) {
        Value *word = words[i / word_bytes];
        if (word == old[i / word_bytes]) {
            continue;
        }
        const std::uint32_t shift = i % word_bytes * 8;
        Value *part =
            isintconst(word) ? wordconst(state, word->number >> shift) : putshift(state, store, Op::lshr, word, shift);
        Value *byte = isintconst(part) ? intconst(*state.function->module, byte_type, part->number)
                                       : putcast(store, Op::trunc, part, byte_type);
        putstore(store, byte, byteaddress(state, store, operand(store, 1), i, count))->is_volatile = store->is_volatile;
    }
}

// ---- Widths ----

// The words of a narrower value, extended.
Words extendwords(State &state, Value *inst)
{
    Module &module = *state.function->module;
    Value *value = operand(inst, 0);
    const bool is_signed = inst->op == Op::sext;
    Words words;
    if (iswide(value->type)) {
        words = wordsof(state, value);
    } else {
        Type *both = inttype(module, 2 * word_bits);
        Value *wide = value->type->bits == both->bits ? value : kept(state, putcast(inst, inst->op, value, both));
        words.push_back(kept(state, putcast(inst, Op::trunc, wide, state.word)));
        Value *high = kept(state, putinst(inst, Op::lshr, both, {wide, intconst(module, both, word_bits)}));
        words.push_back(kept(state, putcast(inst, Op::trunc, high, state.word)));
    }
    Value *filler = wordconst(state, 0);
    if (is_signed) {
        const std::uint32_t bits = iswide(value->type) ? value->type->bits : 2 * word_bits;
        filler = spreadsign(state, inst, words, bits);
    }
    words.resize(countwords(inst->type), filler);
    clearrest(state, inst, words, inst->type->bits);
    return words;
}

// The value of 64 bits or less that the lowest words have.
Value *narrowvalue(State &state, Value *inst)
{
    Module &module = *state.function->module;
    const Words words = wordsof(state, operand(inst, 0));
    if (inst->type->bits < word_bits) {
        return putcast(inst, Op::trunc, words[0], inst->type);
    }
    if (inst->type->bits == word_bits) {
        return words[0];
    }
    Type *both = inttype(module, 2 * word_bits);
    Value *low = putcast(inst, Op::zext, words[0], both);
    Value *high =
        putinst(inst, Op::shl, both, {putcast(inst, Op::zext, words[1], both), intconst(module, both, word_bits)});
    Value *value = putinst(inst, Op::or_, both, {high, low});
    return inst->type == both ? value : putcast(inst, Op::trunc, value, inst->type);
}

// ---- Instructions ----

bool shiftwords(State &state, Value *inst, Words &words)
{
    const Value *amount = operand(inst, 1);
    const Words amount_words = wordsof(state, amount);
    if (!isintconst(amount) || amount_words[0]->number >= inst->type->bits) {
        return false;
    }
    const auto count = static_cast<std::uint32_t>(amount_words[0]->number);
    Words from = wordsof(state, operand(inst, 0));
    if (inst->op == Op::shl) {
        words = shiftleft(state, inst, from, count);
    } else {
        Value *filler = inst->op == Op::ashr ? spreadsign(state, inst, from, inst->type->bits) : wordconst(state, 0);
        words = shiftright(state, inst, from, count, filler);
    }
    clearrest(state, inst, words, inst->type->bits);
    return true;
}

Words joinwords(State &state, Value *inst)
{
    const Words left = wordsof(state, operand(inst, 0));
    const Words right = wordsof(state, operand(inst, 1));
    Words words;
    for (std::size_t i = 0; i < left.size(); ++i) {
        words.push_back(inst->op == Op::and_  ? putand(state, inst, left[i], right[i])
                        : inst->op == Op::or_ ? putor(state, inst, left[i], right[i])
                                              : kept(state, putinst(inst, Op::xor_, state.word, {left[i], right[i]})));
    }
    return words;
}

bool makewords(State &state, Value *inst, Words &words)
{
    switch (inst->op) {
    case Op::load:
        words = loadwords(state, inst);
        return true;
    case Op::and_:
    case Op::or_:
    case Op::xor_:
        words = joinwords(state, inst);
        return true;
    case Op::shl:
    case Op::lshr:
    case Op::ashr:
        return shiftwords(state, inst, words);
    case Op::zext:
    case Op::sext:
        words = extendwords(state, inst);
        return true;
    case Op::trunc:
        words = wordsof(state, operand(inst, 0));
        words.resize(countwords(inst->type));
        clearrest(state, inst, words, inst->type->bits);
        return true;
    case Op::freeze:
        words = wordsof(state, operand(inst, 0));
        return true;
    default:
        return false;
    }
}

void lowerinst(State &state, Value *inst)
{
    const bool of_wide = inst->operand_count > 0 && iswide(operand(inst, 0)->type);
    if (!of_wide && !iswide(inst->type)) {
        return;
    }
    Words words;
    if (inst->op == Op::store) {
        storewords(state, inst);
    } else if (inst->op == Op::trunc && !iswide(inst->type)) {
        Value *value = narrowvalue(state, inst);
        if (value->kind == ValueKind::instruction && value->name.empty()) {
            value->name = inst->name;
        }
        replaceuses(inst, value);
    } else if (iswide(inst->type) && makewords(state, inst, words)) {
        state.words[inst] = words;
    } else {
        refuse(*state.function, inst, "integer of more than 64 bits (" + std::string(opname(inst->op)) + ")");
        return;
    }
    state.done.push_back(inst);
}

}  // namespace

void lowerwide(Function &function)
{
    State state;
    state.function = &function;
    state.word = inttype(*function.module, word_bits);
    for (const Block *block : reachedorder(function)) {
        for (Value *inst : instsof(block)) {
            lowerinst(state, inst);
        }
    }
    for (auto inst = state.done.rbegin(); inst != state.done.rend(); ++inst) {
        replaceuses(*inst, undefconst(*function.module, (*inst)->type));
        const bool memory = (*inst)->op == Op::load || (*inst)->op == Op::store;
        Value *address = memory ? operand(*inst, (*inst)->op == Op::load ? 0 : 1) : nullptr;
        remove(*inst);
        if (address != nullptr) {
            dropunused(address);
        }
    }
    for (auto made = state.made.rbegin(); made != state.made.rend(); ++made) {
        dropunused(*made);
    }
}

}  // namespace adapt
