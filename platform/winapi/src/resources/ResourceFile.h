// A compiled resource file (.res) in memory: a row of headers, each with its data behind it.
#pragma once

#include <windef.h>

#include <optional>
#include <span>
#include <string>
#include <variant>

// What a resource or its kind is called: a number, or a name in upper case.
using ResourceId = std::variant<WORD, std::u16string>;

// From what FindResource takes; nothing for a null text, an empty one or a bad number behind '#'.
std::optional<ResourceId> ResourceIdOf(LPCSTR name);

struct Resource {
    ResourceId type;
    ResourceId name;
    WORD language = 0;
    std::span<const BYTE> data;
};

// Steps through the resources. Damage ends the row: nothing outside the bytes is ever read.
//
//   for (ResourceReader reader(bytes); auto found = reader.Next();)
//       use(*found);
class ResourceReader
{
public:
    explicit ResourceReader(std::span<const BYTE> bytes) : m_rest(bytes) {}

    std::optional<Resource> Next();

private:
    std::span<const BYTE> m_rest;
};
