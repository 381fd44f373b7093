// What becomes of calls of the front end's own functions, llvm.*. Those that no table names stay calls: quarl knows
// some (llvm.memcpy, llvm.dbg, llvm.stackrestore, ...), and the others are functions that the target's library may
// offer under their C name, llvm_bswap_i16 for instance.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace adapt {

enum class Fate : std::uint8_t {
    drop,      // the call says something to an optimiser only
    operand,   // the result is the first argument
    no,        // the result is the constant false
    unknown,   // the result is 0 or -1: the second argument says which
    multiply,  // a * b + c
    refuse,
};

struct Intrinsic {
    std::string_view prefix;
    Fate fate;
};

inline constexpr std::array intrinsics = {
    Intrinsic{"llvm.annotation.", Fate::operand},
    Intrinsic{"llvm.arithmetic.fence.", Fate::operand},
    Intrinsic{"llvm.assume", Fate::drop},
    Intrinsic{"llvm.coro.", Fate::refuse},
    Intrinsic{"llvm.dbg.", Fate::drop},
    Intrinsic{"llvm.donothing", Fate::drop},
    Intrinsic{"llvm.eh.sjlj.", Fate::refuse},
    Intrinsic{"llvm.expect.", Fate::operand},
    Intrinsic{"llvm.experimental.constrained.", Fate::refuse},
    Intrinsic{"llvm.experimental.noalias.", Fate::drop},
    Intrinsic{"llvm.fmuladd.", Fate::multiply},
    Intrinsic{"llvm.frameaddress", Fate::refuse},
    Intrinsic{"llvm.get.dynamic.area.", Fate::refuse},
    Intrinsic{"llvm.is.constant.", Fate::no},
    Intrinsic{"llvm.launder.invariant.", Fate::operand},
    Intrinsic{"llvm.lifetime.", Fate::drop},
    Intrinsic{"llvm.objectsize.", Fate::unknown},
    Intrinsic{"llvm.prefetch", Fate::drop},
    Intrinsic{"llvm.ptr.annotation.", Fate::operand},
    Intrinsic{"llvm.returnaddress", Fate::refuse},
    Intrinsic{"llvm.sideeffect", Fate::drop},
    Intrinsic{"llvm.strip.invariant.", Fate::operand},
    Intrinsic{"llvm.thread.pointer", Fate::refuse},
    Intrinsic{"llvm.threadlocal.", Fate::refuse},
    Intrinsic{"llvm.va_copy", Fate::refuse},
    Intrinsic{"llvm.va_end", Fate::refuse},
    Intrinsic{"llvm.va_start", Fate::refuse},
    Intrinsic{"llvm.var.annotation", Fate::drop},
};

constexpr const Intrinsic *find_intrinsic(std::string_view name)
{
    const auto *const found = std::find_if(intrinsics.begin(), intrinsics.end(),
                                           [=](const Intrinsic &row) { return name.starts_with(row.prefix); });
    return found == intrinsics.end() ? nullptr : found;
}

// Math functions that the front end calls by a name of its own, and C's library knows.
struct MathName {
    std::string_view intrinsic;
    std::string_view function;
};

inline constexpr std::array math_names = {
    MathName{"ceil", "ceil"},   MathName{"copysign", "copysign"},
    MathName{"cos", "cos"},     MathName{"exp", "exp"},
    MathName{"exp2", "exp2"},   MathName{"fabs", "fabs"},
    MathName{"floor", "floor"}, MathName{"fma", "fma"},
    MathName{"log", "log"},     MathName{"log10", "log10"},
    MathName{"log2", "log2"},   MathName{"maxnum", "fmax"},
    MathName{"minnum", "fmin"}, MathName{"nearbyint", "nearbyint"},
    MathName{"pow", "pow"},     MathName{"rint", "rint"},
    MathName{"round", "round"}, MathName{"sin", "sin"},
    MathName{"sqrt", "sqrt"},   MathName{"trunc", "trunc"},
};

// The C function for a math intrinsic: fabsf for llvm.fabs.f32. Empty for any other name.
inline std::string library_name(std::string_view name)
{
    if (!name.starts_with("llvm.")) {
        return {};
    }
    name.remove_prefix(5);
    const std::size_t dot = name.find('.');
    const std::string_view width = dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
    const auto *const row = std::find_if(math_names.begin(), math_names.end(), [=](const MathName &candidate) {
        return candidate.intrinsic == name.substr(0, dot);
    });
    if (row == math_names.end() || (width != "f32" && width != "f64")) {
        return {};
    }
    return std::string(row->function) + (width == "f32" ? "f" : "");
}

}  // namespace adapt
