#include "spreadsheet/model/TextPool.h"

#include <cstring>

namespace zek::office {
namespace {

constexpr TextId kNoText = 0xFFFFFFFF;
constexpr std::size_t kFirstSlots = 64;
constexpr std::size_t kStorageBlock = std::size_t{1} << 16;
constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15u;

std::uint64_t Mix(std::uint64_t hash, std::uint64_t word)
{
    hash = (hash ^ word) * kMultiplier;
    return hash ^ (hash >> 32);
}

// Eight bytes at a time: most cell texts are one or two such words.
std::uint32_t HashOf(std::string_view text)
{
    std::uint64_t hash = text.size() * kMultiplier;
    std::uint64_t word = 0;
    for (; text.size() > sizeof word; text.remove_prefix(sizeof word)) {
        std::memcpy(&word, text.data(), sizeof word);
        hash = Mix(hash, word);
    }
    word = 0;
    if (!text.empty())
        std::memcpy(&word, text.data(), text.size());
    return static_cast<std::uint32_t>(Mix(hash, word));
}

} // namespace

TextId TextPool::Intern(std::string_view text)
{
    if (2 * (m_texts.size() + 1) > m_slots.size())
        Grow();
    const std::uint32_t hash = HashOf(text);
    Slot& slot = m_slots[SlotOf(text, hash)];
    if (slot.id != kNoText)
        return slot.id;
    m_texts.push_back(Keep(text));
    slot = {hash, static_cast<TextId>(m_texts.size() - 1)};
    return slot.id;
}

std::size_t TextPool::SlotOf(std::string_view text, std::uint32_t hash) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t index = hash & mask;
    while (m_slots[index].id != kNoText &&
           (m_slots[index].hash != hash || m_texts[m_slots[index].id] != text))
        index = (index + 1) & mask;
    return index;
}

std::string_view TextPool::Keep(std::string_view text)
{
    if (text.size() > m_freeSize) {
        m_freeSize = text.size() > kStorageBlock / 4 ? text.size() : kStorageBlock;
        m_storage.push_back(std::make_unique_for_overwrite<char[]>(m_freeSize));
        m_free = m_storage.back().get();
    }
    if (text.empty())
        return {};
    std::memcpy(m_free, text.data(), text.size());
    const std::string_view kept(m_free, text.size());
    m_free += text.size();
    m_freeSize -= text.size();
    return kept;
}

void TextPool::Grow()
{
    std::vector<Slot> old(m_slots.empty() ? kFirstSlots : 2 * m_slots.size(), Slot{0, kNoText});
    old.swap(m_slots);
    const std::size_t mask = m_slots.size() - 1;
    for (const Slot& slot : old) {
        if (slot.id == kNoText)
            continue;
        std::size_t index = slot.hash & mask;
        while (m_slots[index].id != kNoText)
            index = (index + 1) & mask;
        m_slots[index] = slot;
    }
}

} // namespace zek::office
