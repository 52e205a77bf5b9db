// Texts, each held once and named by a number.
//
//   TextPool pool;
//   const TextId id = pool.Intern("Beam");
//   pool.Text(id);    // "Beam"
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace zek::office {

using TextId = std::uint32_t;

class TextPool
{
public:
    TextPool() = default;
    TextPool(const TextPool&) = delete;
    TextPool& operator=(const TextPool&) = delete;

    // The number of `text`, the same for equal texts; numbers run from 0 in the order of first use.
    TextId Intern(std::string_view text);

    // Valid as long as the pool: a text is never moved or dropped.
    std::string_view Text(TextId id) const { return m_texts[id]; }

    std::size_t Size() const { return m_texts.size(); }

private:
    std::size_t SlotOf(std::string_view text, std::uint32_t hash) const;
    std::string_view Keep(std::string_view text);
    void Grow();

    struct Slot {
        std::uint32_t hash;
        TextId id;
    };
    std::vector<std::string_view> m_texts;
    std::vector<Slot> m_slots;
    std::vector<std::unique_ptr<char[]>> m_storage;
    char* m_free = nullptr;
    std::size_t m_freeSize = 0;
};

} // namespace zek::office
