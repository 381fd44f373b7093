// The table of words that the accepted vocabulary doesn't have, and what becomes of them.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace adapt {

enum class Action : std::uint8_t {
    drop,            // the word goes
    drop_with_list,  // the word and the bracketed list behind it go
    drop_list,       // the word stays, the list behind it goes
    replace,         // another word takes its place
    refuse,          // C has nothing for it
};

struct WordRule {
    std::string_view word;
    Action action;
    std::string_view text = {};  // the other word, or what is refused
};

inline constexpr std::array<std::string_view, 6> integer_types = {"i1", "i8", "i16", "i24", "i32", "i64"};

// Sorted by word.
inline constexpr std::array word_rules = {
    WordRule{"aarch64_sve_vector_pcs", Action::drop},
    WordRule{"aarch64_vector_pcs", Action::drop},
    WordRule{"addrspace", Action::drop_with_list},
    WordRule{"addrspacecast", Action::replace, "bitcast"},
    WordRule{"afn", Action::drop},
    WordRule{"alignstack", Action::drop_with_list},
    WordRule{"allocalign", Action::drop},
    WordRule{"allocptr", Action::drop},
    WordRule{"arcp", Action::drop},
    WordRule{"arm_aapcs_vfpcc", Action::drop},
    WordRule{"arm_aapcscc", Action::drop},
    WordRule{"arm_apcscc", Action::drop},
    WordRule{"atomicrmw", Action::refuse, "atomic read-modify-write"},
    WordRule{"avr_intrcc", Action::refuse, "interrupt function"},
    WordRule{"avr_signalcc", Action::refuse, "interrupt function"},
    WordRule{"bfloat", Action::refuse, "floating type"},
    WordRule{"blockaddress", Action::refuse, "address of a label"},
    WordRule{"byref", Action::drop_with_list},
    WordRule{"byval", Action::drop_list},
    WordRule{"callbr", Action::refuse, "assembler code that jumps"},
    WordRule{"catchpad", Action::refuse, "exception handling by funclets"},
    WordRule{"catchswitch", Action::refuse, "exception handling by funclets"},
    WordRule{"ccc", Action::drop},
    WordRule{"cleanuppad", Action::refuse, "exception handling by funclets"},
    WordRule{"cmpxchg", Action::refuse, "atomic read-modify-write"},
    WordRule{"coldcc", Action::drop},
    WordRule{"common", Action::drop},
    WordRule{"contract", Action::drop},
    WordRule{"default", Action::drop},
    WordRule{"dereferenceable_or_null", Action::drop_with_list},
    WordRule{"dllexport", Action::drop},
    WordRule{"dllimport", Action::drop},
    WordRule{"dso_local", Action::drop},
    WordRule{"dso_local_equivalent", Action::drop},
    WordRule{"dso_preemptable", Action::drop},
    WordRule{"elementtype", Action::drop_with_list},
    WordRule{"externally_initialized", Action::drop},
    WordRule{"extractelement", Action::refuse, "vector"},
    WordRule{"fast", Action::drop},
    WordRule{"fence", Action::refuse, "atomic fence"},
    WordRule{"fp128", Action::refuse, "floating type"},
    WordRule{"half", Action::refuse, "floating type"},
    WordRule{"ifunc", Action::refuse, "function chosen at load time"},
    WordRule{"immarg", Action::drop},
    WordRule{"inalloca", Action::refuse, "arguments in caller's memory"},
    WordRule{"indirectbr", Action::refuse, "computed goto"},
    WordRule{"inreg", Action::drop},
    WordRule{"insertelement", Action::refuse, "vector"},
    WordRule{"linkonce", Action::replace, "weak"},
    WordRule{"local_unnamed_addr", Action::drop},
    WordRule{"msp430_intrcc", Action::refuse, "interrupt function"},
    WordRule{"nest", Action::drop},
    WordRule{"ninf", Action::drop},
    WordRule{"nnan", Action::drop},
    WordRule{"no_cfi", Action::drop},
    WordRule{"nofree", Action::drop},
    WordRule{"noundef", Action::drop},
    WordRule{"nsz", Action::drop},
    WordRule{"poison", Action::replace, "undef"},
    WordRule{"ppc_fp128", Action::refuse, "floating type"},
    WordRule{"preallocated", Action::refuse, "arguments in caller's memory"},
    WordRule{"protected", Action::drop},
    WordRule{"ptr", Action::refuse, "opaque pointer: clang 15 and 16 need -Xclang -no-opaque-pointers"},
    WordRule{"readnone", Action::drop},
    WordRule{"reassoc", Action::drop},
    WordRule{"shufflevector", Action::refuse, "vector"},
    WordRule{"sret", Action::drop_list},
    WordRule{"swiftasync", Action::drop},
    WordRule{"swifterror", Action::drop},
    WordRule{"swiftself", Action::drop},
    WordRule{"syncscope", Action::drop_with_list},
    WordRule{"thread_local", Action::refuse, "thread-local variable"},
    WordRule{"token", Action::refuse, "token type"},
    WordRule{"va_arg", Action::refuse, "access to variable arguments"},
    WordRule{"vscale", Action::refuse, "vector"},
    WordRule{"weak_odr", Action::replace, "weak"},
    WordRule{"x86_amx", Action::refuse, "vector"},
    WordRule{"x86_fastcallcc", Action::drop},
    WordRule{"x86_fp80", Action::refuse, "floating type"},
    WordRule{"x86_intrcc", Action::refuse, "interrupt function"},
    WordRule{"x86_mmx", Action::refuse, "vector"},
    WordRule{"x86_stdcallcc", Action::drop},
    WordRule{"x86_thiscallcc", Action::drop},
};

static_assert(std::is_sorted(word_rules.begin(), word_rules.end(),
                             [](const WordRule &a, const WordRule &b) { return a.word < b.word; }));

constexpr const WordRule *find_word(std::string_view word)
{
    const auto *const found =
        std::lower_bound(word_rules.begin(), word_rules.end(), word,
                         [](const WordRule &rule, std::string_view text) { return rule.word < text; });
    return found != word_rules.end() && found->word == word ? found : nullptr;
}

}  // namespace adapt
