// The characters of one code page other than UTF-8, as tables.
#pragma once

#include "CodePage.h"

#include <cstdint>
#include <vector>

struct CodePageTable {
    static constexpr char16_t kNone = 0xffff;

    const LeadTable* leads = nullptr;
    char16_t defaultWide = 0xfffd;
    // By byte, or by first byte * 256 + second; kNone: no such character.
    std::vector<char16_t> toWide;
    // By UTF-16 unit: the byte or pair; 0: none (but for U+0000).
    std::vector<std::uint16_t> toBytes;
    // Likewise, for what toBytes lacks: a character that looks alike.
    std::vector<std::uint16_t> bestFit;
};

// The table, built on first use; null for UTF-8 and code pages that are not offered.
const CodePageTable* TableOf(UINT codePage);
