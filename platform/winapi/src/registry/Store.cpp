#include "Store.h"

#include "../Home.h"
#include "KeyPath.h"

#include <winerror.h>

#include <cstdlib>
#include <ctime>
#include <pthread.h>

namespace {

// Beyond this many keys and values the memory starts afresh.
constexpr std::size_t kMostKept = 20'000;

// 100-nanosecond steps since 1601.
std::int64_t Now()
{
    constexpr std::int64_t kUnixEpoch = 11644473600;
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    return (now.tv_sec + kUnixEpoch) * 10'000'000 + now.tv_nsec / 100;
}

// SQLite refuses paths with symbolic links in them; links above the home folder are the user's own affair.
std::string ResolvedHome()
{
    char* resolved = realpath(HomeFolder().c_str(), nullptr);
    std::string path = resolved ? resolved : "";
    std::free(resolved);
    return path;
}

} // namespace

// A child must not go on with its parent's connection, nor start with a lock that another thread held.
struct ForkHandlers {
    static void Prepare() { Store::Instance().m_lock.lock(); }
    static void Parent() { Store::Instance().m_lock.unlock(); }
    static void Child()
    {
        Store& store = Store::Instance();
        store.m_database.Abandon();
        store.Disconnect();
        store.m_lock.unlock();
    }
};

Store& Store::Instance()
{
    static Store* const kStore = new Store;
    return *kStore;
}

Store::Store()
{
    pthread_atfork(ForkHandlers::Prepare, ForkHandlers::Parent, ForkHandlers::Child);
}

void Store::Disconnect()
{
    m_database.Close();
    m_generation.Close();
    m_kept.clear();
    m_keptCount = 0;
    m_keptAt = Generation::kUnsettled;
    m_lastChild = m_lastValue = {};
}

// The home folder may be another than it was: a program that chooses its own does so when the library has
// long been loaded.
LONG Store::Connect()
{
    const std::string path = HomePath();
    if (m_database.IsOpen() && path == m_home)
        return ERROR_SUCCESS;
    Disconnect();
    m_home = path;
    const std::string home = ResolvedHome();
    if (home.empty())
        return ERROR_ACCESS_DENIED;
    // One at a time: SQLite does not wait for others while it changes a fresh file's journal mode.
    const std::string generation = home + "/registry.gen";
    const bool locked = m_generation.Open(generation, false) && m_generation.BeginOpening();
    const LONG result = m_database.Open(home + "/registry.db");
    if (locked)
        m_generation.EndOpening();
    else if (m_database.IsReadOnly())
        m_generation.Open(generation, true);
    return result;
}

template <class Question>
LONG Store::Ask(Question&& question)
{
    const std::lock_guard<std::mutex> guard(m_lock);
    const LONG result = Connect();
    return result == ERROR_SUCCESS ? question() : result;
}

LONG Store::FindKey(const std::string& path, bool& exists)
{
    return Ask([&]() -> LONG {
        if (const KeptKey* kept = Kept(path)) {
            exists = kept->exists;
            return ERROR_SUCCESS;
        }
        const LONG result = Exists(path, exists);
        if (result == ERROR_SUCCESS)
            Keep(path, exists);
        return result;
    });
}

// A key may hold thousands of values, and any write makes all that was kept old: so each is read by itself.
LONG Store::FindValue(const std::string& path, const std::string& name, FoundValue& found)
{
    const std::string folded = FoldName(name);
    return Ask([&]() -> LONG {
        if (const KeptKey* kept = Kept(path)) {
            const auto value = kept->values.find(folded);
            found = {kept->exists, value == kept->values.end() ? nullptr : value->second};
            if (!kept->exists || value != kept->values.end())
                return ERROR_SUCCESS;
        }
        const LONG result = Load(path, folded, found);
        if (result != ERROR_SUCCESS)
            return result;
        if (KeptKey* kept = Keep(path, found.keyExists))
            m_keptCount += kept->values.emplace(folded, found.value).second;
        return ERROR_SUCCESS;
    });
}

// What is known of a key, if nothing was written since.
const Store::KeptKey* Store::Kept(const std::string& path)
{
    const std::uint64_t now = m_generation.Current();
    if (now != m_keptAt || m_keptCount >= kMostKept) {
        m_kept.clear();
        m_keptCount = 0;
    }
    m_keptAt = now;
    const auto found = m_kept.find(path);
    return found == m_kept.end() ? nullptr : &found->second;
}

// Where to keep what was read of a key since Kept() was asked; null if something was written meanwhile.
Store::KeptKey* Store::Keep(const std::string& path, bool exists)
{
    if (m_keptAt == Generation::kUnsettled || m_generation.Current() != m_keptAt)
        return nullptr;
    const auto [place, added] = m_kept.try_emplace(path);
    m_keptCount += added;
    place->second.exists = exists;
    return &place->second;
}

LONG Store::Load(const std::string& path, const std::string& folded, FoundValue& found)
{
    Statement row(m_database, Query::FindValue);
    found.keyExists = row.Bind(path).Bind(folded).Next();
    if (found.keyExists && !row.IsNull(1))
        found.value = std::make_shared<const RegistryValue>(RegistryValue{
            std::string(row.Bytes(0)), static_cast<DWORD>(row.Number(1)), std::string(row.Bytes(2))});
    return row.Error();
}

LONG Store::Exists(const std::string& path, bool& exists)
{
    Statement find(m_database, Query::FindKey);
    exists = find.Bind(path).Next();
    return find.Error();
}

// Counting off from the first row for each answer would make a listing's cost grow with its square.
template <class Take>
LONG Store::NthRow(Place& last, Query query, const std::string& path, DWORD index, Take&& take)
{
    return Ask([&]() -> LONG {
        const std::uint64_t now = m_generation.Current();
        const Place start = last.LeadsTo(path, index, now) ? last : Place{};
        Statement row(m_database, query);
        row.Bind(path).Bind(start.key).Bind(std::int64_t{index - start.index});
        if (!row.Next())
            return row.Error() == ERROR_SUCCESS ? ERROR_NO_MORE_ITEMS : row.Error();
        take(row);
        last = {path, index, std::string(row.Bytes(0)), now};
        return ERROR_SUCCESS;
    });
}

LONG Store::NthChild(const std::string& path, DWORD index, std::string& name, std::int64_t& written)
{
    return NthRow(m_lastChild, Query::NthChild, path, index, [&](const Statement& child) {
        name = child.Bytes(1);
        written = child.Number(2);
    });
}

LONG Store::NthValue(const std::string& path, DWORD index, RegistryValue& value)
{
    return NthRow(m_lastValue, Query::NthValue, path, index, [&](const Statement& row) {
        value = {std::string(row.Bytes(1)), static_cast<DWORD>(row.Number(2)), std::string(row.Bytes(3))};
    });
}

LONG Store::Facts(const std::string& path, RegistryFacts& facts)
{
    return Ask([&]() -> LONG {
        Statement children(m_database, Query::ChildFacts);
        Statement values(m_database, Query::ValueFacts);
        if (!children.Bind(path).Next())
            return children.Error();
        if (!values.Bind(path).Next())
            return values.Error();
        facts = {children.Number(0), children.Number(1), values.Number(0),
                 values.Number(1),   values.Number(2),   values.Number(3)};
        return ERROR_SUCCESS;
    });
}

// Runs a change as one transaction. Only what was committed raises the generation in a way that matters, but
// a failed try raises it too: telling them apart would gain nothing.
template <class Change>
LONG Store::Write(Change&& change)
{
    return Ask([&]() -> LONG {
        if (m_database.IsReadOnly())
            return ERROR_ACCESS_DENIED;
        if (!m_generation.BeginWrite())
            return ERROR_REGISTRY_IO_FAILED;
        LONG result = m_database.Run(Query::BeginImmediate);
        if (result == ERROR_SUCCESS) {
            result = change();
            if (result == ERROR_SUCCESS)
                result = m_database.Run(Query::Commit);
            if (result != ERROR_SUCCESS)
                m_database.Run(Query::Rollback);
        }
        m_generation.EndWrite();
        return result;
    });
}

LONG Store::CreateKeys(const std::string& path, const std::vector<std::string>& names, bool& created)
{
    bool made = false;
    const LONG result = Write([&] { return AddMissing(path, names, made); });
    if (result == ERROR_SUCCESS)
        created = made;
    return result;
}

LONG Store::AddMissing(const std::string& path, const std::vector<std::string>& names, bool& created)
{
    bool exists = false;
    LONG result = Exists(path, exists);
    if (result == ERROR_SUCCESS && !exists)
        result = ERROR_KEY_DELETED;
    std::string parent = path;
    for (auto name = names.begin(); name != names.end() && result == ERROR_SUCCESS; ++name) {
        const std::string child = ChildPath(parent, *name);
        result = Exists(child, exists);
        created = !exists;
        if (result == ERROR_SUCCESS && !exists)
            result = Statement(m_database, Query::AddKey)
                         .Bind(child)
                         .Bind(parent)
                         .Bind(*name)
                         .Bind(Now())
                         .Finish();
        parent = child;
    }
    return result;
}

LONG Store::DeleteKey(const std::string& path)
{
    return Write([&]() -> LONG {
        bool exists = false;
        if (const LONG result = Exists(path, exists); result != ERROR_SUCCESS || !exists)
            return result == ERROR_SUCCESS ? ERROR_FILE_NOT_FOUND : result;
        Statement child(m_database, Query::NthChild);
        if (child.Bind(path).Bind("").Bind(std::int64_t{0}).Next())
            return ERROR_ACCESS_DENIED;
        const LONG result = Statement(m_database, Query::DropValues).Bind(path).Finish();
        return result == ERROR_SUCCESS ? Statement(m_database, Query::DropKey).Bind(path).Finish() : result;
    });
}

// Also tells whether the key is still there.
LONG Store::Touch(const std::string& path)
{
    bool exists = false;
    if (const LONG result = Exists(path, exists); result != ERROR_SUCCESS || !exists)
        return result == ERROR_SUCCESS ? ERROR_KEY_DELETED : result;
    return Statement(m_database, Query::TouchKey).Bind(Now()).Bind(path).Finish();
}

LONG Store::PutValue(const std::string& path, const RegistryValue& value)
{
    const std::string folded = FoldName(value.name);
    return Write([&]() -> LONG {
        const LONG result = Touch(path);
        return result != ERROR_SUCCESS ? result
                                       : Statement(m_database, Query::PutValue)
                                             .Bind(path)
                                             .Bind(folded)
                                             .Bind(value.name)
                                             .Bind(std::int64_t{value.type})
                                             .Bind(value.data)
                                             .Finish();
    });
}

LONG Store::DeleteValue(const std::string& path, const std::string& name)
{
    const std::string folded = FoldName(name);
    return Write([&]() -> LONG {
        LONG result = Touch(path);
        if (result == ERROR_SUCCESS)
            result = Statement(m_database, Query::DropValue).Bind(path).Bind(folded).Finish();
        return result == ERROR_SUCCESS && m_database.RowsChanged() == 0 ? ERROR_FILE_NOT_FOUND : result;
    });
}

LONG Store::Flush()
{
    return Ask([&]() -> LONG {
        if (m_database.IsReadOnly())
            return ERROR_SUCCESS;
        Statement checkpoint(m_database, Query::Checkpoint);
        if (!checkpoint.Next())
            return checkpoint.Error();
        return checkpoint.Number(0) == 0 ? ERROR_SUCCESS : ERROR_REGISTRY_IO_FAILED;
    });
}
