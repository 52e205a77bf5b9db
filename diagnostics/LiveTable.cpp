#include "LiveTable.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <new>
#include <utility>

#include <MemoryLeakTester.h>

namespace {

constexpr std::size_t kFirstCapacity = 4096;
constexpr std::uint64_t kBuckets = 100'009;

} // namespace

LiveTable::~LiveTable()
{
    std::free(m_slots);
}

std::size_t LiveTable::Bucket(const LiveRecord& record)
{
    return static_cast<std::size_t>(Scaled(record.pointer) % kBuckets);
}

void LiveTable::Grow()
{
    const std::size_t capacity = m_capacity == 0 ? kFirstCapacity : 2 * m_capacity;
    auto* slots = static_cast<LiveRecord*>(std::calloc(capacity, sizeof(LiveRecord)));
    if (!slots)
        throw std::bad_alloc();
    LiveRecord* const old = std::exchange(m_slots, slots);
    LiveRecord* const oldEnd = old + std::exchange(m_capacity, capacity);
    m_shift = 64U - static_cast<unsigned>(std::countr_zero(capacity));
    for (const LiveRecord* record = old; record != oldEnd; ++record)
        if (record->entry != 0)
            m_slots[SlotOf(record->pointer)] = *record;
    std::free(old);
}

void LiveTable::Clear()
{
    std::free(m_slots);
    m_slots = nullptr;
    m_capacity = m_count = 0;
}

std::vector<LiveRecord> LiveTable::InOrder() const
{
    std::vector<std::size_t> starts(kBuckets + 1);
    for (const LiveRecord* slot = m_slots; slot != m_slots + m_capacity; ++slot)
        if (slot->entry != 0)
            ++starts[Bucket(*slot) + 1];
    for (std::size_t bucket = 0; bucket < kBuckets; ++bucket)
        starts[bucket + 1] += starts[bucket];
    std::vector<LiveRecord> records(m_count);
    std::vector<std::size_t> ends(starts.begin(), starts.end() - 1);
    for (const LiveRecord* slot = m_slots; slot != m_slots + m_capacity; ++slot)
        if (slot->entry != 0)
            records[ends[Bucket(*slot)]++] = *slot;
    const auto newer = [](const LiveRecord& a, const LiveRecord& b) { return a.entry > b.entry; };
    const auto place = [&](std::size_t i) { return records.begin() + static_cast<std::ptrdiff_t>(i); };
    for (std::size_t bucket = 0; bucket < kBuckets; ++bucket)
        std::sort(place(starts[bucket]), place(starts[bucket + 1]), newer);
    return records;
}
