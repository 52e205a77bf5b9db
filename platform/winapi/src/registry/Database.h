// The registry's SQLite database: connection, schema, prepared statements.
//
// Threads: one at a time; the store's lock sees to it.
#pragma once

#include <windef.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

// What the store asks the database; each is prepared once.
enum class Query {
    Begin,
    BeginImmediate,
    Commit,
    Rollback,
    FindKey,
    FindValue,
    AddKey,
    TouchKey,
    DropKey,
    DropValues,
    PutValue,
    DropValue,
    NthChild,
    NthValue,
    ChildFacts,
    ValueFacts,
    Checkpoint,
    Count
};

class Database
{
public:
    Database() = default;
    ~Database() { Close(); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // Opens `path`, making and seeding it on first use; where it cannot be written, for reading only.
    // Answers a Win32 error code.
    LONG Open(const std::string& path);
    void Close();
    bool IsOpen() const { return m_db != nullptr; }
    bool IsReadOnly() const { return m_readOnly; }

    // Runs a query that has no parameters and whose rows nobody wants.
    LONG Run(Query query);

    // How many rows the last change made, altered or removed.
    int RowsChanged() const;

    // After fork(): forgets the connection without touching the files that the parent goes on using.
    void Abandon();

private:
    friend class Statement;

    LONG Connect(const std::string& path, int flags);
    LONG OpenReadOnly(const std::string& path);
    LONG Prepare();
    int SchemaVersion();
    LONG CreateSchema();
    sqlite3_stmt* Prepared(Query query);

    sqlite3* m_db = nullptr;
    bool m_readOnly = false;
    std::array<sqlite3_stmt*, static_cast<std::size_t>(Query::Count)> m_statements = {};
};

// One use of a prepared statement; it is reset when the object ends.
class Statement
{
public:
    Statement(Database& database, Query query);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // Parameters in order. The bytes must live as long as the object.
    Statement& Bind(std::string_view bytes);
    Statement& Bind(std::int64_t number);

    // The next row; false at the end or on failure, which Error() tells apart.
    bool Next();
    // Runs to the end. Answers a Win32 error code.
    LONG Finish();
    LONG Error() const;

    // Valid until the next row.
    std::string_view Bytes(int column) const;
    std::int64_t Number(int column) const;
    bool IsNull(int column) const;

private:
    sqlite3_stmt* m_statement;
    int m_bound = 0;
    int m_result;
};

// The Win32 error code for an SQLite result.
LONG ErrorFromResult(int result);
