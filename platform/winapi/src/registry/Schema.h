// The registry's tables and what a fresh registry holds.
#pragma once

inline constexpr int kSchemaVersion = 1;

// Statements that make the tables and enter the built-in automation servers.
extern const char* const kCreateSchema;
