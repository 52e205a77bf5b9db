// The registry of this user: keys and values over the database, with what was read kept in memory while
// nothing is written (see Generation.h).
//
// Errors: every member answers a Win32 error code and leaves its outputs alone when it fails.
// Threads: any; one lock. A forked child opens files of its own.
#pragma once

#include "Database.h"
#include "Generation.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

struct RegistryValue {
    std::string name;
    DWORD type = 0;
    std::string data;
};

// What a look for a value found: the key may be missing, or only the value (null).
struct FoundValue {
    bool keyExists = false;
    std::shared_ptr<const RegistryValue> value;
};

// Counts and longest lengths in bytes; `written` is a FILETIME.
struct RegistryFacts {
    std::int64_t children = 0;
    std::int64_t longestChild = 0;
    std::int64_t values = 0;
    std::int64_t longestName = 0;
    std::int64_t longestData = 0;
    std::int64_t written = 0;
};

class Store
{
public:
    // Never destroyed: objects with static lifetime may still read settings while the process ends.
    static Store& Instance();

    LONG FindKey(const std::string& path, bool& exists);
    LONG FindValue(const std::string& path, const std::string& name, FoundValue& found);
    // A key or value by its place in ascending order of folded names; ERROR_NO_MORE_ITEMS beyond the last.
    LONG NthChild(const std::string& path, DWORD index, std::string& name, std::int64_t& written);
    LONG NthValue(const std::string& path, DWORD index, RegistryValue& value);
    LONG Facts(const std::string& path, RegistryFacts& facts);

    // Makes the keys `names`, each below the one before, the first below `path`, as far as they are missing.
    // `created` tells whether the last one was. ERROR_KEY_DELETED when `path` itself is gone.
    LONG CreateKeys(const std::string& path, const std::vector<std::string>& names, bool& created);
    // ERROR_ACCESS_DENIED when there are keys below it, ERROR_FILE_NOT_FOUND when it is not there.
    LONG DeleteKey(const std::string& path);
    LONG PutValue(const std::string& path, const RegistryValue& value);
    LONG DeleteValue(const std::string& path, const std::string& name);

    LONG Flush();

private:
    // What is known of a key: whether it is there, and its values, null for missing ones, by folded name.
    struct KeptKey {
        bool exists = false;
        std::map<std::string, std::shared_ptr<const RegistryValue>> values;
    };

    // The last answer of an enumeration, from which the next one is counted off.
    struct Place {
        std::string path;
        DWORD index = 0;
        std::string key; // what the rows are ordered by
        std::uint64_t at = Generation::kUnsettled;

        bool LeadsTo(const std::string& other, DWORD next, std::uint64_t now) const
        {
            return now != Generation::kUnsettled && now == at && next >= index && other == path;
        }
    };

    Store();

    template <class Take>
    LONG NthRow(Place& last, Query query, const std::string& path, DWORD index, Take&& take);
    template <class Change>
    LONG Write(Change&& change);
    template <class Question>
    LONG Ask(Question&& question);
    LONG Connect();
    void Disconnect();
    LONG Load(const std::string& path, const std::string& folded, FoundValue& found);
    LONG Exists(const std::string& path, bool& exists);
    LONG Touch(const std::string& path);
    LONG AddMissing(const std::string& path, const std::vector<std::string>& names, bool& created);
    const KeptKey* Kept(const std::string& path);
    KeptKey* Keep(const std::string& path, bool exists);

    friend struct ForkHandlers;
    std::mutex m_lock;
    std::string m_home; // whose registry is connected
    Database m_database;
    Generation m_generation;
    std::unordered_map<std::string, KeptKey> m_kept;
    std::size_t m_keptCount = 0; // keys and values
    std::uint64_t m_keptAt = Generation::kUnsettled;
    Place m_lastChild;
    Place m_lastValue;
};
