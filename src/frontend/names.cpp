// Classes of names that the front end gives.

#include "frontend/frontend.h"

#include "base/base.h"

bool isparameterslot(std::string_view local)
{
    if (local.size() > slot_suffix.size() && local.starts_with(slot_suffix) && isdigit(local[slot_suffix.size()]))
        return true;
    return local.ends_with(slot_suffix);
}

bool isannotation(std::string_view function)
{
    return function.starts_with(intrinsics::debug) || function.starts_with(intrinsics::invariant);
}
