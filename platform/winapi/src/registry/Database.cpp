#include "Database.h"

#include "PrivateFile.h"
#include "Schema.h"
#include "Sqlite.h"

#include <winerror.h>

#include <cerrno>
#include <unistd.h>

namespace {

constexpr int kBusyMilliseconds = 5000;

constexpr std::array<const char*, static_cast<std::size_t>(Query::Count)> kTexts = {
    "BEGIN",
    "BEGIN IMMEDIATE",
    "COMMIT",
    "ROLLBACK",
    "SELECT 1 FROM key WHERE path = ?",
    "SELECT value.name, type, data FROM key LEFT JOIN value ON value.path = key.path AND folded = ?2"
    " WHERE key.path = ?1",
    "INSERT INTO key(path, parent, name, written) VALUES(?, ?, ?, ?)",
    "UPDATE key SET written = ? WHERE path = ?",
    "DELETE FROM key WHERE path = ?",
    "DELETE FROM value WHERE path = ?",
    "INSERT INTO value(path, folded, name, type, data) VALUES(?, ?, ?, ?, ?)"
    " ON CONFLICT DO UPDATE SET type = excluded.type, data = excluded.data",
    "DELETE FROM value WHERE path = ? AND folded = ?",
    "SELECT path, name, written FROM key WHERE parent = ? AND path >= ? ORDER BY path LIMIT 1 OFFSET ?",
    "SELECT folded, name, type, data FROM value WHERE path = ? AND folded >= ?"
    " ORDER BY folded LIMIT 1 OFFSET ?",
    "SELECT count(*), ifnull(max(length(name)), 0) FROM key WHERE parent = ?",
    "SELECT count(*), ifnull(max(length(name)), 0), ifnull(max(length(data)), 0),"
    " (SELECT written FROM key WHERE path = ?1) FROM value WHERE path = ?1",
    "PRAGMA wal_checkpoint(FULL)",
};

// Of an open database, or one that is being opened.
const Sqlite& Sql()
{
    static const Sqlite& functions = *LoadSqlite();
    return functions;
}

LONG Execute(sqlite3* db, const char* text)
{
    return ErrorFromResult(Sql().exec(db, text, nullptr, nullptr, nullptr));
}

bool CannotBeWritten(int error)
{
    return error == EACCES || error == EROFS || error == EPERM;
}

} // namespace

LONG ErrorFromResult(int result)
{
    switch (result & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return ERROR_SUCCESS;
    case SQLITE_NOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
        return ERROR_ACCESS_DENIED;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return ERROR_BADDB;
    case SQLITE_FULL:
        return ERROR_DISK_FULL;
    case SQLITE_TOOBIG:
        return ERROR_INVALID_PARAMETER;
    default:
        return ERROR_REGISTRY_IO_FAILED;
    }
}

LONG Database::Open(const std::string& path)
{
    const int file = OpenPrivateFile(path, false);
    if (file < 0)
        return CannotBeWritten(errno) ? OpenReadOnly(path) : ERROR_ACCESS_DENIED;
    close(file); // before SQLite takes its locks: closing would give them up
    m_readOnly = false;
    LONG result = Connect(path, SQLITE_OPEN_READWRITE);
    if (result == ERROR_SUCCESS)
        result = Prepare();
    if (result != ERROR_SUCCESS)
        Close();
    return result;
}

LONG Database::Connect(const std::string& path, int flags)
{
    if (!LoadSqlite())
        return ERROR_MOD_NOT_FOUND;
    flags |= SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE | SQLITE_OPEN_NOFOLLOW;
    const int result = Sql().open_v2(path.c_str(), &m_db, flags, nullptr);
    if (result == SQLITE_OK)
        Sql().busy_timeout(m_db, kBusyMilliseconds);
    return ErrorFromResult(result);
}

LONG Database::Prepare()
{
    LONG result = Execute(m_db, "PRAGMA journal_mode = WAL");
    if (result == ERROR_SUCCESS)
        result = Execute(m_db, "PRAGMA synchronous = NORMAL; PRAGMA trusted_schema = OFF");
    return result == ERROR_SUCCESS ? CreateSchema() : result;
}

// A store that this user may only read. Where its folder cannot be written either, SQLite must be told that
// nobody else writes, or it would ask for the files it coordinates by.
LONG Database::OpenReadOnly(const std::string& path)
{
    m_readOnly = true;
    for (const char* suffix : {"?mode=ro", "?mode=ro&immutable=1"}) {
        LONG result = Connect("file:" + path + suffix, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
        if (result == ERROR_SUCCESS)
            result = Execute(m_db, "PRAGMA trusted_schema = OFF; SELECT 1 FROM key LIMIT 1");
        if (result == ERROR_SUCCESS)
            return result;
        Close();
    }
    return ERROR_ACCESS_DENIED;
}

int Database::SchemaVersion()
{
    int version = 0;
    sqlite3_stmt* statement = nullptr;
    if (Sql().prepare_v2(m_db, "PRAGMA user_version", -1, &statement, nullptr) == SQLITE_OK &&
        Sql().step(statement) == SQLITE_ROW)
        version = Sql().column_int(statement, 0);
    Sql().finalize(statement);
    return version;
}

// Asked without a lock first: opening does not wait for writers. Where several processes come first at once,
// whoever gets the lock second finds the version set.
LONG Database::CreateSchema()
{
    if (SchemaVersion() != 0)
        return ERROR_SUCCESS;
    LONG result = Execute(m_db, "BEGIN IMMEDIATE");
    if (result != ERROR_SUCCESS)
        return result;
    if (SchemaVersion() == 0) {
        result = Execute(m_db, kCreateSchema);
        if (result == ERROR_SUCCESS)
            result = Execute(m_db, ("PRAGMA user_version = " + std::to_string(kSchemaVersion)).c_str());
    }
    const LONG ended = Execute(m_db, result == ERROR_SUCCESS ? "COMMIT" : "ROLLBACK");
    return result == ERROR_SUCCESS ? ended : result;
}

void Database::Close()
{
    if (!m_db)
        return;
    for (sqlite3_stmt*& statement : m_statements) {
        Sql().finalize(statement);
        statement = nullptr;
    }
    Sql().close(m_db);
    m_db = nullptr;
}

void Database::Abandon()
{
    m_statements = {};
    m_db = nullptr;
}

LONG Database::Run(Query query)
{
    return Statement(*this, query).Finish();
}

int Database::RowsChanged() const
{
    return Sql().changes(m_db);
}

sqlite3_stmt* Database::Prepared(Query query)
{
    const auto index = static_cast<std::size_t>(query);
    if (!m_statements[index] && m_db)
        Sql().prepare_v3(m_db, kTexts[index], -1, SQLITE_PREPARE_PERSISTENT, &m_statements[index], nullptr);
    return m_statements[index];
}

Statement::Statement(Database& database, Query query)
    : m_statement(database.Prepared(query)), m_result(m_statement ? SQLITE_OK : Sql().errcode(database.m_db))
{
}

Statement::~Statement()
{
    if (!m_statement)
        return;
    Sql().reset(m_statement);
    Sql().clear_bindings(m_statement);
}

Statement& Statement::Bind(std::string_view bytes)
{
    // A null pointer would bind NULL.
    const char* data = bytes.empty() ? "" : bytes.data();
    if (m_statement && ErrorFromResult(m_result) == ERROR_SUCCESS)
        m_result = Sql().bind_blob64(m_statement, ++m_bound, data, bytes.size(), SQLITE_STATIC);
    return *this;
}

Statement& Statement::Bind(std::int64_t number)
{
    if (m_statement && ErrorFromResult(m_result) == ERROR_SUCCESS)
        m_result = Sql().bind_int64(m_statement, ++m_bound, number);
    return *this;
}

bool Statement::Next()
{
    if (!m_statement || Error() != ERROR_SUCCESS)
        return false;
    m_result = Sql().step(m_statement);
    return m_result == SQLITE_ROW;
}

LONG Statement::Finish()
{
    while (Next()) {
    }
    return Error();
}

LONG Statement::Error() const
{
    return ErrorFromResult(m_result);
}

std::string_view Statement::Bytes(int column) const
{
    const void* data = Sql().column_blob(m_statement, column);
    const int size = Sql().column_bytes(m_statement, column);
    return data ? std::string_view(static_cast<const char*>(data), static_cast<std::size_t>(size))
                : std::string_view();
}

bool Statement::IsNull(int column) const
{
    return Sql().column_type(m_statement, column) == SQLITE_NULL;
}

std::int64_t Statement::Number(int column) const
{
    return Sql().column_int64(m_statement, column);
}
