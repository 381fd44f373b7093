// Constants, instructions, uses, blocks: the edit functions of the model.
#include "adapt/ir.h"

#include <algorithm>
#include <array>
#include <bit>

namespace adapt {

namespace {

// ---- Uses ----

constexpr std::size_t uses_in_chunk = 1024;

// Room for `count` operands that never moves.
Use *newuses(Arena &arena, std::size_t count)
{
    if (arena.uses.empty() || arena.uses.back().capacity() - arena.uses.back().size() < count) {
        arena.uses.emplace_back().reserve(std::max(count, uses_in_chunk));
    }
    std::vector<Use> &chunk = arena.uses.back();
    const std::size_t start = chunk.size();
    chunk.resize(start + count);
    return chunk.data() + start;
}

// Constants live as long as the module, so they don't know the functions that use them.
bool keepsuses(const Value *value)
{
    return value != nullptr && (value->kind == ValueKind::instruction || value->kind == ValueKind::parameter);
}

void unlinkuse(Use &use)
{
    if (use.link != nullptr) {
        *use.link = use.next;
        if (use.next != nullptr) {
            use.next->link = use.link;
        }
    }
    use.value = nullptr;
    use.next = nullptr;
    use.link = nullptr;
}

void linkuse(Use &use, Value *value)
{
    use.value = value;
    if (keepsuses(value)) {
        use.next = value->uses;
        use.link = &value->uses;
        if (use.next != nullptr) {
            use.next->link = &use.next;
        }
        value->uses = &use;
    }
}

// Puts `to` in the place of `from` in the list of uses.
void moveuse(Use &from, Use &to)
{
    to.value = from.value;
    to.next = from.next;
    to.link = from.link;
    if (to.link != nullptr) {
        *to.link = &to;
        if (to.next != nullptr) {
            to.next->link = &to.next;
        }
    }
    from.value = nullptr;
    from.next = nullptr;
    from.link = nullptr;
}

void giveoperands(Arena &arena, Value *user, const std::vector<Value *> &operands)
{
    if (operands.empty()) {
        return;
    }
    user->operands = newuses(arena, std::bit_ceil(operands.size()));
    user->operand_count = static_cast<std::uint32_t>(operands.size());
    for (std::size_t i = 0; i < operands.size(); ++i) {
        user->operands[i].user = user;
        linkuse(user->operands[i], operands[i]);
    }
}

// ---- Names of operations ----

struct OpRow {
    Op op;
    std::string_view name;
};

constexpr std::array op_rows = {
    OpRow{Op::none, "none"},
    OpRow{Op::ret, "ret"},
    OpRow{Op::br, "br"},
    OpRow{Op::switch_, "switch"},
    OpRow{Op::unreachable, "unreachable"},
    OpRow{Op::invoke, "invoke"},
    OpRow{Op::resume, "resume"},
    OpRow{Op::alloca_, "alloca"},
    OpRow{Op::load, "load"},
    OpRow{Op::store, "store"},
    OpRow{Op::getelementptr, "getelementptr"},
    OpRow{Op::cmpxchg, "cmpxchg"},
    OpRow{Op::atomicrmw, "atomicrmw"},
    OpRow{Op::fence, "fence"},
    OpRow{Op::add, "add"},
    OpRow{Op::sub, "sub"},
    OpRow{Op::mul, "mul"},
    OpRow{Op::udiv, "udiv"},
    OpRow{Op::sdiv, "sdiv"},
    OpRow{Op::urem, "urem"},
    OpRow{Op::srem, "srem"},
    OpRow{Op::shl, "shl"},
    OpRow{Op::lshr, "lshr"},
    OpRow{Op::ashr, "ashr"},
    OpRow{Op::and_, "and"},
    OpRow{Op::or_, "or"},
    OpRow{Op::xor_, "xor"},
    OpRow{Op::fadd, "fadd"},
    OpRow{Op::fsub, "fsub"},
    OpRow{Op::fmul, "fmul"},
    OpRow{Op::fdiv, "fdiv"},
    OpRow{Op::frem, "frem"},
    OpRow{Op::fneg, "fneg"},
    OpRow{Op::trunc, "trunc"},
    OpRow{Op::zext, "zext"},
    OpRow{Op::sext, "sext"},
    OpRow{Op::fptrunc, "fptrunc"},
    OpRow{Op::fpext, "fpext"},
    OpRow{Op::fptosi, "fptosi"},
    OpRow{Op::fptoui, "fptoui"},
    OpRow{Op::sitofp, "sitofp"},
    OpRow{Op::uitofp, "uitofp"},
    OpRow{Op::ptrtoint, "ptrtoint"},
    OpRow{Op::inttoptr, "inttoptr"},
    OpRow{Op::bitcast, "bitcast"},
    OpRow{Op::addrspacecast, "addrspacecast"},
    OpRow{Op::icmp, "icmp"},
    OpRow{Op::fcmp, "fcmp"},
    OpRow{Op::phi, "phi"},
    OpRow{Op::select, "select"},
    OpRow{Op::call, "call"},
    OpRow{Op::extractvalue, "extractvalue"},
    OpRow{Op::insertvalue, "insertvalue"},
    OpRow{Op::landingpad, "landingpad"},
    OpRow{Op::freeze, "freeze"},
    OpRow{Op::va_arg, "va_arg"},
};

struct PredicateRow {
    Predicate predicate;
    std::string_view name;
    Predicate inverse;
};

constexpr std::array predicate_rows = {
    PredicateRow{Predicate::none, "none", Predicate::none},
    PredicateRow{Predicate::eq, "eq", Predicate::ne},
    PredicateRow{Predicate::ne, "ne", Predicate::eq},
    PredicateRow{Predicate::ugt, "ugt", Predicate::ule},
    PredicateRow{Predicate::uge, "uge", Predicate::ult},
    PredicateRow{Predicate::ult, "ult", Predicate::uge},
    PredicateRow{Predicate::ule, "ule", Predicate::ugt},
    PredicateRow{Predicate::sgt, "sgt", Predicate::sle},
    PredicateRow{Predicate::sge, "sge", Predicate::slt},
    PredicateRow{Predicate::slt, "slt", Predicate::sge},
    PredicateRow{Predicate::sle, "sle", Predicate::sgt},
    PredicateRow{Predicate::false_, "false", Predicate::true_},
    PredicateRow{Predicate::oeq, "oeq", Predicate::une},
    PredicateRow{Predicate::ogt, "ogt", Predicate::ule_f},
    PredicateRow{Predicate::oge, "oge", Predicate::ult_f},
    PredicateRow{Predicate::olt, "olt", Predicate::uge_f},
    PredicateRow{Predicate::ole, "ole", Predicate::ugt_f},
    PredicateRow{Predicate::one, "one", Predicate::ueq},
    PredicateRow{Predicate::ord, "ord", Predicate::uno},
    PredicateRow{Predicate::ueq, "ueq", Predicate::one},
    PredicateRow{Predicate::ugt_f, "ugt", Predicate::ole},
    PredicateRow{Predicate::uge_f, "uge", Predicate::olt},
    PredicateRow{Predicate::ult_f, "ult", Predicate::oge},
    PredicateRow{Predicate::ule_f, "ule", Predicate::ogt},
    PredicateRow{Predicate::une, "une", Predicate::oeq},
    PredicateRow{Predicate::uno, "uno", Predicate::ord},
    PredicateRow{Predicate::true_, "true", Predicate::false_},
};

// The tables are indexed by the codes.
consteval bool tablesinorder()
{
    for (std::size_t i = 0; i < op_rows.size(); ++i) {
        if (static_cast<std::size_t>(op_rows[i].op) != i) {
            return false;
        }
    }
    for (std::size_t i = 0; i < predicate_rows.size(); ++i) {
        const auto inverse = static_cast<std::size_t>(predicate_rows[i].inverse);
        if (static_cast<std::size_t>(predicate_rows[i].predicate) != i ||
            static_cast<std::size_t>(predicate_rows[inverse].inverse) != i) {
            return false;
        }
    }
    return true;
}
static_assert(tablesinorder());

// ---- Constants ----

// The constant of this kind, type and number; equal ones are the same record.
Value *simpleconst(Module &module, ValueKind kind, Type *type, std::uint64_t number)
{
    const std::size_t hash =
        (std::hash<const void *>()(type) * 31 + static_cast<std::size_t>(kind)) * 0x9e3779b97f4a7c15U + number;
    const auto [first, last] = module.constant_by_hash.equal_range(hash);
    for (auto found = first; found != last; ++found) {
        const Value *constant = found->second;
        if (constant->kind == kind && constant->type == type && constant->number == number) {
            return found->second;
        }
    }
    Value &made = module.arena.values.emplace_back();
    made.kind = kind;
    made.type = type;
    made.number = number;
    module.constant_by_hash.emplace(hash, &made);
    return &made;
}

std::uint64_t lowbits(std::uint64_t number, std::uint32_t bits)
{
    return bits >= 64 ? number : number & ((std::uint64_t{1} << bits) - 1);
}

}  // namespace

Value *intconst(Module &module, Type *type, std::uint64_t number)
{
    return simpleconst(module, ValueKind::integer, type, lowbits(number, type->bits));
}

Value *floatconst(Module &module, Type *type, double number)
{
    return simpleconst(module, ValueKind::floating, type, std::bit_cast<std::uint64_t>(number));
}

Value *nullconst(Module &module, Type *type)
{
    return simpleconst(module, ValueKind::null, type, 0);
}

Value *undefconst(Module &module, Type *type)
{
    return simpleconst(module, ValueKind::undef, type, 0);
}

Value *zeroconst(Module &module, Type *type)
{
    switch (type->kind) {
    case TypeKind::integer:
        return intconst(module, type, 0);
    case TypeKind::float_type:
    case TypeKind::double_type:
        return floatconst(module, type, 0.0);
    case TypeKind::pointer:
        return nullconst(module, type);
    default:
        return simpleconst(module, ValueKind::zero, type, 0);
    }
}

Value *exprconst(Module &module, Op op, Type *type, const std::vector<Value *> &operands)
{
    Value &made = module.arena.values.emplace_back();
    made.kind = ValueKind::expression;
    made.op = op;
    made.type = type;
    giveoperands(module.arena, &made, operands);
    return &made;
}

Value *aggregateconst(Module &module, Type *type, const std::vector<Value *> &elements)
{
    Value *made = exprconst(module, Op::none, type, elements);
    made->kind = ValueKind::aggregate;
    return made;
}

Value *stringconst(Module &module, Type *type, std::string_view bytes)
{
    Value &made = module.arena.values.emplace_back();
    made.kind = ValueKind::string;
    made.type = type;
    made.text = bytes;
    return &made;
}

bool isconstant(const Value *value)
{
    return value->kind <= ValueKind::expression;
}

std::int64_t signedvalue(const Value *value)
{
    const std::uint32_t bits = value->type->bits;
    if (bits == 0 || bits >= 64) {
        return static_cast<std::int64_t>(value->number);
    }
    const std::uint64_t sign = std::uint64_t{1} << (bits - 1);
    return static_cast<std::int64_t>((value->number ^ sign) - sign);
}

// ---- Instructions ----

Value *newinst(Function &function, Op op, Type *type, const std::vector<Value *> &operands)
{
    Value &made = function.arena.values.emplace_back();
    made.op = op;
    made.type = type;
    giveoperands(function.arena, &made, operands);
    return &made;
}

void insertbefore(Value *inst, Value *place)
{
    inst->block = place->block;
    inst->prev = place->prev;
    inst->next = place;
    (place->prev != nullptr ? place->prev->next : place->block->first) = inst;
    place->prev = inst;
    inst->removed = false;
}

void append(Value *inst, Block *block)
{
    inst->block = block;
    inst->prev = block->last;
    inst->next = nullptr;
    (block->last != nullptr ? block->last->next : block->first) = inst;
    block->last = inst;
    inst->removed = false;
}

void remove(Value *inst)
{
    for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
        unlinkuse(inst->operands[i]);
    }
    inst->operand_count = 0;
    if (inst->block != nullptr) {
        (inst->prev != nullptr ? inst->prev->next : inst->block->first) = inst->next;
        (inst->next != nullptr ? inst->next->prev : inst->block->last) = inst->prev;
    }
    inst->block = nullptr;
    inst->prev = nullptr;
    inst->next = nullptr;
    inst->removed = true;
}

Value *operand(const Value *user, std::size_t place)
{
    return user->operands[place].value;
}

void setoperand(Value *user, std::size_t place, Value *value)
{
    unlinkuse(user->operands[place]);
    linkuse(user->operands[place], value);
}

void removeoperand(Value *user, std::size_t place)
{
    unlinkuse(user->operands[place]);
    for (std::size_t i = place; i + 1 < user->operand_count; ++i) {
        moveuse(user->operands[i + 1], user->operands[i]);
    }
    --user->operand_count;
    if (user->op == Op::phi || user->op == Op::switch_) {
        user->targets.erase(user->targets.begin() + static_cast<std::ptrdiff_t>(place));
    }
}

// There is always room up to the next power of two, so only a full power of two needs more.
void addoperand(Function &function, Value *user, Value *value)
{
    const std::uint32_t count = user->operand_count;
    if (count == 0 || std::has_single_bit(count)) {
        Use *more = newuses(function.arena, std::bit_ceil(count + 1));
        for (std::uint32_t i = 0; i < count; ++i) {
            more[i].user = user;
            moveuse(user->operands[i], more[i]);
        }
        user->operands = more;
    }
    user->operands[count].user = user;
    linkuse(user->operands[count], value);
    ++user->operand_count;
}

void replaceuses(Value *value, Value *with)
{
    while (value->uses != nullptr && value != with) {
        Use &use = *value->uses;
        unlinkuse(use);
        linkuse(use, with);
    }
}

bool hasuses(const Value *value)
{
    return value->uses != nullptr;
}

bool hasoneuse(const Value *value)
{
    return value->uses != nullptr && value->uses->next == nullptr;
}

std::size_t countuses(const Value *value)
{
    std::size_t count = 0;
    for (const Use *use = value->uses; use != nullptr; use = use->next) {
        ++count;
    }
    return count;
}

bool isterminator(Op op)
{
    return op >= Op::ret && op <= Op::resume;
}

std::string_view opname(Op op)
{
    return op_rows[static_cast<std::size_t>(op)].name;
}

std::string_view predicatename(Predicate predicate)
{
    return predicate_rows[static_cast<std::size_t>(predicate)].name;
}

Predicate inversepredicate(Predicate predicate)
{
    return predicate_rows[static_cast<std::size_t>(predicate)].inverse;
}

// ---- Blocks and edges ----

Block *newblock(Function &function, std::string_view name)
{
    Block &made = function.arena.blocks.emplace_back();
    made.name = name;
    made.function = &function;
    made.index = static_cast<std::uint32_t>(function.blocks.size());
    function.blocks.push_back(&made);
    return &made;
}

void findpreds(Function &function)
{
    for (Block *block : function.blocks) {
        block->preds.clear();
    }
    for (Block *block : function.blocks) {
        if (block->last != nullptr && isterminator(block->last->op)) {
            for (Block *target : block->last->targets) {
                target->preds.push_back(block);
            }
        }
    }
}

void numberblocks(Function &function)
{
    std::uint32_t index = 0;
    for (Block *block : function.blocks) {
        block->index = index++;
    }
}

namespace {

// For each block by its index, whether the entry block reaches it.
std::vector<bool> findreached(const Function &function)
{
    std::vector<bool> reached(function.blocks.size(), false);
    std::vector<const Block *> work = {function.blocks.front()};
    reached[0] = true;
    while (!work.empty()) {
        const Block *block = work.back();
        work.pop_back();
        for (const Block *target : block->last->targets) {
            if (!reached[target->index]) {
                reached[target->index] = true;
                work.push_back(target);
            }
        }
    }
    return reached;
}

// Keeps the pairs of a phi whose block is reached. All at once: one at a time would be quadratic.
void keepreachedpairs(Value *phi, const std::vector<bool> &reached)
{
    std::uint32_t kept = 0;
    for (std::uint32_t i = 0; i < phi->operand_count; ++i) {
        if (!reached[phi->targets[i]->index]) {
            unlinkuse(phi->operands[i]);
            continue;
        }
        if (kept != i) {
            moveuse(phi->operands[i], phi->operands[kept]);
            phi->targets[kept] = phi->targets[i];
        }
        ++kept;
    }
    phi->operand_count = kept;
    phi->targets.resize(kept);
}

// Values of blocks that go are used by each other only: what dominates no reached block has no use there.
void emptyblock(Function &function, Block *block)
{
    while (block->last != nullptr) {
        Value *inst = block->last;
        if (hasuses(inst)) {
            replaceuses(inst, undefconst(*function.module, inst->type));
        }
        remove(inst);
    }
}

}  // namespace

void removeunreachable(Function &function)
{
    numberblocks(function);
    const std::vector<bool> reached = findreached(function);
    for (Block *block : function.blocks) {
        for (Value *inst = block->first; inst != nullptr && inst->op == Op::phi; inst = inst->next) {
            keepreachedpairs(inst, reached);
        }
    }
    std::vector<Block *> kept;
    for (Block *block : function.blocks) {
        if (reached[block->index]) {
            kept.push_back(block);
        } else {
            emptyblock(function, block);
        }
    }
    function.blocks = kept;
    numberblocks(function);
    findpreds(function);
}

std::string_view keeptext(Function &function, std::string text)
{
    return function.arena.texts.emplace_back(std::move(text));
}

}  // namespace adapt
