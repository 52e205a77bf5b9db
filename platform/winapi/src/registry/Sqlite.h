// SQLite, loaded on first use: most processes never look into the registry, and loading it would cost each of
// them a fifth of its start.
#pragma once

#include <sqlite3.h>

// The functions that the store calls, under their own names less "sqlite3_".
#define ZEK_SQLITE_FUNCTIONS(EACH)                                                                           \
    EACH(bind_blob64)                                                                                        \
    EACH(bind_int64)                                                                                         \
    EACH(busy_timeout)                                                                                       \
    EACH(changes)                                                                                            \
    EACH(clear_bindings)                                                                                     \
    EACH(close)                                                                                              \
    EACH(column_blob)                                                                                        \
    EACH(column_bytes)                                                                                       \
    EACH(column_int)                                                                                         \
    EACH(column_int64)                                                                                       \
    EACH(column_type)                                                                                        \
    EACH(errcode)                                                                                            \
    EACH(exec)                                                                                               \
    EACH(finalize)                                                                                           \
    EACH(open_v2)                                                                                            \
    EACH(prepare_v2)                                                                                         \
    EACH(prepare_v3)                                                                                         \
    EACH(reset)                                                                                              \
    EACH(step)

struct Sqlite {
#define ZEK_SQLITE_MEMBER(name) decltype(&sqlite3_##name) name = nullptr;
    ZEK_SQLITE_FUNCTIONS(ZEK_SQLITE_MEMBER)
#undef ZEK_SQLITE_MEMBER
};

// Loads it once; null where it is not installed. Threads: any.
const Sqlite* LoadSqlite();
