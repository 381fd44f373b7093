/*
 * Variable arguments. The output includes this and calls these with the address of a list, which it declares as a
 * pointer. So a list of the target's C compiler must fit into a pointer.
 */
#ifndef ARGUMENTS_H
#define ARGUMENTS_H

#include <stdarg.h>

typedef char _va_list_fits_[sizeof(va_list) <= sizeof(char *) ? 1 : -1];

#define _va_start_(list, last) va_start(*(va_list *)(list), last)
#define _va_end_(list) va_end(*(va_list *)(list))
#define _va_copy_(to, from) ((void)(*(va_list *)(to) = *(va_list *)(from)))

#define _va_arg_int_(list) va_arg(*(va_list *)(list), int)
#define _va_arg_long_(list) va_arg(*(va_list *)(list), long)
#define _va_arg_llong_(list) va_arg(*(va_list *)(list), long long)
#define _va_arg_double_(list) va_arg(*(va_list *)(list), double)
#define _va_arg_ptr_(list) va_arg(*(va_list *)(list), char *)

#endif
