/* SPDX-License-Identifier: Apache-2.0 */
#ifndef SYLVAR_PLATFORM_SUITES_TABLE_LAYOUT_H
#define SYLVAR_PLATFORM_SUITES_TABLE_LAYOUT_H

#include <stddef.h>

/*
 * For headers that declare a table of functions: what its binary layout must be, checked where the
 * header is compiled, in C99 as in C++.
 */

/* How many entries the table has, each the size of a pointer. */
#define OV_TABLE_ENTRIES(table) (sizeof(table) / sizeof(void (*)(void)))

/* The place of an entry; the first one is 1. */
#define OV_TABLE_PLACE(table, entry) (offsetof(table, entry) / sizeof(void (*)(void)) + 1)

/* Does not compile unless the condition holds; `name` says what it is about. */
#define OV_REQUIRE(name, condition) typedef char name[(condition) ? 1 : -1]

#endif
