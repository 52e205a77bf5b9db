#include "automation/MemberTable.h"

#include <utility>

namespace zek::office {
namespace {

bool SameName(std::u16string_view name, std::string_view member)
{
    if (name.size() != member.size())
        return false;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char16_t c = name[i] >= u'A' && name[i] <= u'Z' ? static_cast<char16_t>(name[i] + 32) : name[i];
        const char m = member[i] >= 'A' && member[i] <= 'Z' ? static_cast<char>(member[i] + 32) : member[i];
        if (c != static_cast<char16_t>(m))
            return false;
    }
    return true;
}

} // namespace

MemberTable::MemberTable(const char* className, std::vector<Member> members)
    : m_className(className), m_members(std::move(members))
{
    for (std::size_t i = 0; i < m_members.size(); ++i) {
        std::size_t slot = SlotOf(m_members[i].id);
        while (m_slots[slot] != 0)
            slot = (slot + 1) % kSlots;
        m_slots[slot] = static_cast<std::uint8_t>(i + 1);
    }
}

const Member* MemberTable::Find(DISPID id) const
{
    for (std::size_t slot = SlotOf(id); m_slots[slot] != 0; slot = (slot + 1) % kSlots)
        if (const Member& member = m_members[m_slots[slot] - 1u]; member.id == id)
            return &member;
    return nullptr;
}

const Member* MemberTable::Find(std::u16string_view name) const
{
    for (const Member& member : m_members)
        if (SameName(name, member.name))
            return &member;
    return nullptr;
}

} // namespace zek::office
