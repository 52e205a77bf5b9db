#include "Handle.h"

#include <deque>
#include <mutex>
#include <vector>

namespace {

// A value is generation, index + 1 and two zero bits, as on Windows a multiple of 4 below 2^31.
constexpr size_t kMaxHandles = 1 << 20;
constexpr unsigned kIndexShift = 2, kGenerationShift = 23, kGenerations = 256;
// A freed place waits its turn, so that a stale handle stays invalid for a while.
constexpr size_t kRestingPlaces = 64;

struct Slot {
    std::shared_ptr<KernelObject> object;
    unsigned generation = 0;
};

struct Table {
    std::mutex mutex;
    std::vector<Slot> slots;
    std::deque<size_t> free;
};

// Never destroyed: other static objects may close handles as they end.
Table& Handles()
{
    static Table& table = *new Table;
    return table;
}

HANDLE ValueOf(size_t index, unsigned generation)
{
    return reinterpret_cast<HANDLE>((index + 1) << kIndexShift | static_cast<size_t>(generation)
                                                                     << kGenerationShift);
}

Slot* SlotOf(Table& table, HANDLE handle)
{
    const auto value = reinterpret_cast<size_t>(handle);
    const size_t place = (value & ((size_t{1} << kGenerationShift) - 1)) >> kIndexShift;
    if (place == 0 || place > table.slots.size())
        return nullptr;
    Slot& slot = table.slots[place - 1];
    return slot.object && handle == ValueOf(place - 1, slot.generation) ? &slot : nullptr;
}

size_t TakePlace(Table& table)
{
    if (table.free.size() <= kRestingPlaces && table.slots.size() < kMaxHandles) {
        table.slots.emplace_back();
        return table.slots.size() - 1;
    }
    if (table.free.empty())
        return kMaxHandles;
    const size_t index = table.free.front();
    table.free.pop_front();
    return index;
}

} // namespace

HANDLE AddHandle(std::shared_ptr<KernelObject> object)
{
    Table& table = Handles();
    const std::lock_guard lock(table.mutex);
    const size_t index = TakePlace(table);
    if (index == kMaxHandles)
        return SetLastError(ERROR_TOO_MANY_OPEN_FILES), INVALID_HANDLE_VALUE;
    table.slots[index].object = std::move(object);
    return ValueOf(index, table.slots[index].generation);
}

std::shared_ptr<KernelObject> HandleObject(HANDLE handle)
{
    Table& table = Handles();
    const std::lock_guard lock(table.mutex);
    const Slot* slot = SlotOf(table, handle);
    return slot ? slot->object : nullptr;
}

void RemoveHandle(HANDLE handle)
{
    std::shared_ptr<KernelObject> last; // destroyed after the table is released
    Table& table = Handles();
    const std::lock_guard lock(table.mutex);
    if (Slot* slot = SlotOf(table, handle)) {
        last = std::move(slot->object);
        slot->generation = (slot->generation + 1) % kGenerations;
        table.free.push_back(static_cast<size_t>(slot - table.slots.data()));
    }
}
