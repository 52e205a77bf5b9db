// The blocks that are allocated now, by address.
//
// Records are found through open addressing, so that a look-up costs the same with a million blocks as with
// ten. The order in which a log lists them is that of a table of 100,009 chains, each beginning with its
// newest entry; it is worked out when a log is written, from each record's place in the order of entry.
#pragma once

#include "FileNames.h"

#include <windef.h>

#include <cstddef>
#include <cstdint>
#include <vector>

struct LiveRecord {
    void* pointer = nullptr;
    std::uint64_t entry = 0; // when the address came into the table, from 1; 0: an unused slot
    DWORD key = 0;
    DWORD size = 0;
    int line = 0;
    FileNames::Index file = 0;
};
static_assert(sizeof(LiveRecord) == 32 || sizeof(void*) < 8, "two records share a cache line");

class LiveTable
{
public:
    LiveTable() = default;
    ~LiveTable();
    LiveTable(const LiveTable&) = delete;
    LiveTable& operator=(const LiveTable&) = delete;

    // Makes room for one more record. Throws std::bad_alloc; the table is as before then.
    void Reserve()
    {
        if (2 * m_count >= m_capacity)
            Grow();
    }
    // After Reserve(): the slot of an address; its `entry` is 0 if the address is not there. Valid until the
    // table changes.
    LiveRecord& Slot(const void* pointer) { return m_slots[SlotOf(pointer)]; }
    // Fills a slot with a record of its address, which keeps the place in the order that it has.
    void Put(LiveRecord& slot, const LiveRecord& record)
    {
        const std::uint64_t entry = slot.entry;
        slot = record;
        slot.entry = entry != 0 ? entry : ++m_entries;
        m_count += entry == 0;
    }
    // Null when the address is not there; valid until the table changes.
    const LiveRecord* Find(const void* pointer) const
    {
        if (m_count == 0)
            return nullptr;
        const LiveRecord& slot = m_slots[SlotOf(pointer)];
        return slot.entry != 0 ? &slot : nullptr;
    }
    // Records behind the gap move up, so that every search still ends at a free slot.
    void Remove(const LiveRecord* record)
    {
        auto gap = static_cast<std::size_t>(record - m_slots);
        for (std::size_t slot = Next(gap); m_slots[slot].entry != 0; slot = Next(slot)) {
            const std::size_t mask = m_capacity - 1;
            if (((slot - Home(m_slots[slot].pointer)) & mask) >= ((slot - gap) & mask)) {
                m_slots[gap] = m_slots[slot];
                gap = slot;
            }
        }
        m_slots[gap].entry = 0;
        --m_count;
    }
    void Clear();

    // All records in the order of a log. Throws std::bad_alloc.
    std::vector<LiveRecord> InOrder() const;

private:
    // Blocks lie 16 bytes apart.
    static std::uint64_t Scaled(const void* pointer)
    {
        return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(pointer)) >> 4;
    }
    std::size_t Home(const void* pointer) const
    {
        constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15U;
        return static_cast<std::size_t>(Scaled(pointer) * kGoldenRatio >> m_shift);
    }
    std::size_t Next(std::size_t slot) const { return (slot + 1) & (m_capacity - 1); }
    // The slot with the address, or the free one where it belongs.
    std::size_t SlotOf(const void* pointer) const
    {
        std::size_t slot = Home(pointer);
        while (m_slots[slot].entry != 0 && m_slots[slot].pointer != pointer)
            slot = Next(slot);
        return slot;
    }
    static std::size_t Bucket(const LiveRecord& record);
    void Grow();

    LiveRecord* m_slots = nullptr; // a power of two of them, at most half in use
    std::size_t m_capacity = 0;
    unsigned m_shift = 0;
    std::size_t m_count = 0;
    std::uint64_t m_entries = 0;
};
