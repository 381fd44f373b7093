// The words of IR text that stand before and after names and types, and what becomes of each. A word that is in none of
// these tables is refused.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace adapt {

enum class WordAction : std::uint8_t {
    drop,
    drop_with_list,    // with the bracketed list after it, if there is one
    drop_with_number,  // with the number after it, bracketed or not: align 4, align(4)
    drop_with_string,
    refuse,
    byval,
    sret,
    zeroext,
    signext,
    inreg,  // kept in Attributes
    byref,  // a type in brackets that doesn't matter here
};

struct WordRow {
    std::string_view word;
    WordAction action = WordAction::drop;
    std::string_view reason = {};  // of a refusal
};

// Attributes of functions, of groups of attributes, of parameters, arguments and results.
inline constexpr std::array attribute_words = {
    WordRow{"align", WordAction::drop_with_number},
    WordRow{"alignstack", WordAction::drop_with_number},
    WordRow{"allocalign"},
    WordRow{"allockind", WordAction::drop_with_list},
    WordRow{"allocptr"},
    WordRow{"allocsize", WordAction::drop_with_list},
    WordRow{"alwaysinline"},
    WordRow{"argmemonly"},
    WordRow{"builtin"},
    WordRow{"byref", WordAction::byref},
    WordRow{"byval", WordAction::byval},
    WordRow{"cold"},
    WordRow{"convergent"},
    WordRow{"dereferenceable", WordAction::drop_with_list},
    WordRow{"dereferenceable_or_null", WordAction::drop_with_list},
    WordRow{"disable_sanitizer_instrumentation"},
    WordRow{"elementtype", WordAction::byref},
    WordRow{"fn_ret_thunk_extern"},
    WordRow{"hot"},
    WordRow{"immarg"},
    WordRow{"inaccessiblemem_or_argmemonly"},
    WordRow{"inaccessiblememonly"},
    WordRow{"inalloca", WordAction::refuse, "arguments in the caller's memory"},
    WordRow{"inlinehint"},
    WordRow{"inreg", WordAction::inreg},
    WordRow{"jumptable"},
    WordRow{"memory", WordAction::drop_with_list},
    WordRow{"minsize"},
    WordRow{"mustprogress"},
    WordRow{"naked", WordAction::refuse, "function without entry code"},
    WordRow{"nest", WordAction::refuse, "static chain"},
    WordRow{"noalias"},
    WordRow{"nobuiltin"},
    WordRow{"nocallback"},
    WordRow{"nocapture"},
    WordRow{"nocf_check"},
    WordRow{"noduplicate"},
    WordRow{"nofpclass", WordAction::drop_with_list},
    WordRow{"nofree"},
    WordRow{"noimplicitfloat"},
    WordRow{"noinline"},
    WordRow{"nomerge"},
    WordRow{"nonlazybind"},
    WordRow{"nonnull"},
    WordRow{"noprofile"},
    WordRow{"norecurse"},
    WordRow{"noredzone"},
    WordRow{"noreturn"},
    WordRow{"nosanitize_bounds"},
    WordRow{"nosanitize_coverage"},
    WordRow{"nosync"},
    WordRow{"noundef"},
    WordRow{"nounwind"},
    WordRow{"null_pointer_is_valid"},
    WordRow{"optforfuzzing"},
    WordRow{"optnone"},
    WordRow{"optsize"},
    WordRow{"preallocated", WordAction::refuse, "arguments in the caller's memory"},
    WordRow{"presplitcoroutine", WordAction::refuse, "coroutine"},
    WordRow{"readnone"},
    WordRow{"readonly"},
    WordRow{"returned"},
    WordRow{"returns_twice"},
    WordRow{"safestack"},
    WordRow{"sanitize_address"},
    WordRow{"sanitize_hwaddress"},
    WordRow{"sanitize_memory"},
    WordRow{"sanitize_memtag"},
    WordRow{"sanitize_thread"},
    WordRow{"shadowcallstack"},
    WordRow{"signext", WordAction::signext},
    WordRow{"skipprofile"},
    WordRow{"speculatable"},
    WordRow{"speculative_load_hardening"},
    WordRow{"sret", WordAction::sret},
    WordRow{"ssp"},
    WordRow{"sspreq"},
    WordRow{"sspstrong"},
    WordRow{"strictfp"},
    WordRow{"swiftasync", WordAction::refuse, "calling convention"},
    WordRow{"swifterror", WordAction::refuse, "calling convention"},
    WordRow{"swiftself", WordAction::refuse, "calling convention"},
    WordRow{"uwtable", WordAction::drop_with_list},
    WordRow{"vscale_range", WordAction::drop_with_list},
    WordRow{"willreturn"},
    WordRow{"writeonly"},
    WordRow{"zeroext", WordAction::zeroext},
};

// What stands between the linkage and the type of a global, and before the result of a function or call: visibility,
// preemption, storage class, calling convention.
inline constexpr std::array header_words = {
    WordRow{"aarch64_sve_vector_pcs", WordAction::refuse, "vector"},
    WordRow{"aarch64_vector_pcs", WordAction::refuse, "vector"},
    WordRow{"addrspace", WordAction::refuse, "address space"},
    WordRow{"amdgpu_kernel", WordAction::refuse, "calling convention"},
    WordRow{"arm_aapcs_vfpcc"},
    WordRow{"arm_aapcscc"},
    WordRow{"arm_apcscc"},
    WordRow{"avr_intrcc", WordAction::refuse, "interrupt function"},
    WordRow{"avr_signalcc", WordAction::refuse, "interrupt function"},
    WordRow{"cc", WordAction::refuse, "calling convention"},
    WordRow{"ccc"},
    WordRow{"coldcc"},
    WordRow{"default"},
    WordRow{"dllexport"},
    WordRow{"dllimport"},
    WordRow{"dso_local"},
    WordRow{"dso_preemptable"},
    WordRow{"externally_initialized"},
    WordRow{"fastcc"},
    WordRow{"local_unnamed_addr"},
    WordRow{"msp430_intrcc", WordAction::refuse, "interrupt function"},
    WordRow{"preserve_allcc"},
    WordRow{"preserve_mostcc"},
    WordRow{"protected"},
    WordRow{"spir_func", WordAction::refuse, "calling convention"},
    WordRow{"spir_kernel", WordAction::refuse, "calling convention"},
    WordRow{"swiftcc", WordAction::refuse, "calling convention"},
    WordRow{"swifttailcc", WordAction::refuse, "calling convention"},
    WordRow{"tailcc"},
    WordRow{"unnamed_addr"},
    WordRow{"win64cc"},
    WordRow{"x86_64_sysvcc"},
    WordRow{"x86_fastcallcc"},
    WordRow{"x86_intrcc", WordAction::refuse, "interrupt function"},
    WordRow{"x86_regcallcc"},
    WordRow{"x86_stdcallcc"},
    WordRow{"x86_thiscallcc"},
    WordRow{"x86_vectorcallcc"},
};

// Flags of floating-point operations. They allow what need not be done, so they go.
inline constexpr std::array fast_math_words = {
    WordRow{"afn"},  WordRow{"arcp"}, WordRow{"contract"}, WordRow{"fast"},
    WordRow{"ninf"}, WordRow{"nnan"}, WordRow{"nsz"},      WordRow{"reassoc"},
};

// Types that C has nothing for. `target` and `<` are seen by the reader of types itself.
inline constexpr std::array foreign_types = {
    WordRow{"bfloat", WordAction::refuse, "floating type"},
    WordRow{"fp128", WordAction::refuse, "floating type"},
    WordRow{"half", WordAction::refuse, "floating type"},
    WordRow{"ppc_fp128", WordAction::refuse, "floating type"},
    WordRow{"token", WordAction::refuse, "token"},
    WordRow{"x86_amx", WordAction::refuse, "vector"},
    WordRow{"x86_fp80", WordAction::refuse, "floating type"},
    WordRow{"x86_mmx", WordAction::refuse, "vector"},
};

// Instructions and constant expressions that are refused as a whole.
inline constexpr std::array foreign_operations = {
    WordRow{"blockaddress", WordAction::refuse, "address of a label"},
    WordRow{"callbr", WordAction::refuse, "assembler code that jumps"},
    WordRow{"catchpad", WordAction::refuse, "exception handling by funclets"},
    WordRow{"catchret", WordAction::refuse, "exception handling by funclets"},
    WordRow{"catchswitch", WordAction::refuse, "exception handling by funclets"},
    WordRow{"cleanuppad", WordAction::refuse, "exception handling by funclets"},
    WordRow{"cleanupret", WordAction::refuse, "exception handling by funclets"},
    WordRow{"extractelement", WordAction::refuse, "vector"},
    WordRow{"indirectbr", WordAction::refuse, "computed goto"},
    WordRow{"insertelement", WordAction::refuse, "vector"},
    WordRow{"shufflevector", WordAction::refuse, "vector"},
};

template <std::size_t count>
constexpr bool sortedwords(const std::array<WordRow, count> &rows)
{
    return std::is_sorted(rows.begin(), rows.end(), [](const WordRow &a, const WordRow &b) { return a.word < b.word; });
}
static_assert(sortedwords(attribute_words) && sortedwords(header_words) && sortedwords(fast_math_words) &&
              sortedwords(foreign_types) && sortedwords(foreign_operations));

// The row of a word, null if the table has none.
template <std::size_t count>
constexpr const WordRow *findword(const std::array<WordRow, count> &rows, std::string_view word)
{
    const auto *const found = std::lower_bound(
        rows.begin(), rows.end(), word, [](const WordRow &row, std::string_view text) { return row.word < text; });
    return found != rows.end() && found->word == word ? &*found : nullptr;
}

}  // namespace adapt
