// Records of functions by the address of their name. Names are literals, so a function is nearly always known
// by its address already; the text is compared all the same, since it decides.
#pragma once

#include <ProfileMgr.h>

#include <cstdint>
#include <vector>

class CProfileIndex
{
public:
    CProfileIndex() : m_slots(kFirstSize) {}

    // Null when the address was not entered, or with another text.
    T_PROFILE_DATA* Find(const char* name) const
    {
        const Slot& slot = m_slots[SlotOf(name)];
        return slot.name == name && std::strcmp(slot.kept, name) == 0 ? slot.data : nullptr;
    }
    // `kept` is a copy of the text that lives as long as `data`.
    void Enter(const char* name, const char* kept, T_PROFILE_DATA* data);

private:
    struct Slot {
        const char* name = nullptr;
        const char* kept = nullptr;
        T_PROFILE_DATA* data = nullptr;
    };
    static constexpr std::size_t kFirstSize = 256; // a power of two, as all sizes are

    std::size_t SlotOf(const char* name) const
    {
        constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15U;
        const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(name));
        std::size_t slot = static_cast<std::size_t>(address * kGoldenRatio >> 32) & (m_slots.size() - 1);
        while (m_slots[slot].name && m_slots[slot].name != name)
            slot = (slot + 1) & (m_slots.size() - 1);
        return slot;
    }
    void Grow();

    std::vector<Slot> m_slots;
    std::size_t m_count = 0;
};
