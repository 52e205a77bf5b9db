#include "FileNames.h"

#include <cstring>

#include <MemoryLeakTester.h>

FileNames::FileNames()
{
    Look("");
}

FileNames::Index FileNames::Look(const char* name)
{
    if (m_names.size() == m_names.capacity()) // so that nothing fails once the name is in
        m_names.reserve(2 * m_names.size() + 1);
    const auto [place, isNew] = m_indices.try_emplace(name, Count());
    if (isNew)
        m_names.push_back(place->first.c_str());
    return place->second;
}
