// The names of source files, each kept once. Callers pass the same few pointers over and over: what was kept
// for a pointer is found through it, after a comparison of the texts.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class FileNames
{
public:
    using Index = std::uint32_t;

    FileNames();
    FileNames(const FileNames&) = delete;
    FileNames& operator=(const FileNames&) = delete;

    // The number of a name; null is the name "". Throws std::bad_alloc.
    Index Keep(const char* name)
    {
        if (!name)
            return 0;
        const auto address = reinterpret_cast<std::uintptr_t>(name);
        Recent& recent = m_recent[(address ^ address >> 8) % m_recent.size()];
        if (recent.given != name || std::strcmp(recent.kept, name) != 0) {
            const Index index = Look(name);
            recent = {name, Name(index), index};
        }
        return recent.index;
    }
    // Valid as long as the object.
    const char* Name(Index index) const { return m_names[index]; }
    Index Count() const { return static_cast<Index>(m_names.size()); }

private:
    struct Recent {
        const char* given = nullptr;
        const char* kept = nullptr;
        Index index = 0;
    };

    Index Look(const char* name);

    std::unordered_map<std::string, Index> m_indices;
    std::vector<const char*> m_names; // of m_indices' keys
    std::array<Recent, 256> m_recent;
};
