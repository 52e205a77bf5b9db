// Templates and resource files that end too early or lie about their sizes.
#include "TemplateText.h"

#include <gtest/gtest.h>
#include <zekresources.h>

#include <cstring>
#include <memory>
#include <random>

namespace {

INT_PTR CALLBACK Nothing(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

void AddWord(std::vector<BYTE>& bytes, size_t value)
{
    bytes.push_back(static_cast<BYTE>(value));
    bytes.push_back(static_cast<BYTE>(value >> 8));
}

// A resource file with one resource: kind and name are numbers.
std::vector<BYTE> ResourceFile(WORD kind, WORD name, const std::vector<BYTE>& data)
{
    std::vector<BYTE> bytes;
    for (const size_t size : {data.size(), size_t{32}}) {
        AddWord(bytes, size & 0xffff);
        AddWord(bytes, size >> 16);
    }
    for (const size_t word : {size_t{0xffff}, size_t{kind}, size_t{0xffff}, size_t{name}})
        AddWord(bytes, word);
    bytes.resize(32);
    bytes.insert(bytes.end(), data.begin(), data.end());
    return bytes;
}

std::vector<BYTE> DialogBytes(bool extended)
{
    TemplateText shape(extended, WS_POPUP | DS_SETFONT, 1, 2, 60, 40, "title");
    shape.Add(kStatic, 0, 0, 0, 9, 9, 1, "one").Add(kButton, 0, 0, 0, 9, 9, 2, "two", {1, 2, 3});
    const auto& words = shape.AddNamed("Edit", 0, 0, 0, 9, 9, 3).Words();
    std::vector<BYTE> bytes(words.size() * sizeof(WORD));
    std::memcpy(bytes.data(), words.data(), bytes.size());
    return bytes;
}

// Bytes on the heap, where a sanitizer sees who reads behind them. They are no module's resources, but the
// adapter knows their end.
class Announced
{
public:
    explicit Announced(const std::vector<BYTE>& bytes)
        : m_bytes(new BYTE[bytes.size()]), m_announced(m_bytes.get(), m_bytes.get() + bytes.size())
    {
        std::copy(bytes.begin(), bytes.end(), m_bytes.get());
    }

    const BYTE* First() const { return m_bytes.get(); }

private:
    std::unique_ptr<BYTE[]> m_bytes;
    ZekResources m_announced;
};

} // namespace

TEST(DamagedTemplates, EndWithoutADialog)
{
    constexpr size_t kHeader = 32;
    for (const bool extended : {false, true}) {
        const std::vector<BYTE> whole = DialogBytes(extended);
        for (size_t size = 1; size <= whole.size(); ++size) {
            SCOPED_TRACE(size);
            const auto file = ResourceFile(5, 1, {whole.begin(), whole.begin() + static_cast<long>(size)});
            const Announced announced(file);
            const auto* shape = reinterpret_cast<LPCDLGTEMPLATEA>(announced.First() + kHeader);
            SetLastError(0);
            const HWND dialog = CreateDialogIndirectParamA(nullptr, shape, nullptr, &Nothing, 0);
            EXPECT_EQ(size == whole.size(), dialog != nullptr);
            EXPECT_EQ(dialog ? 0 : static_cast<DWORD>(ERROR_RESOURCE_DATA_NOT_FOUND), GetLastError());
            DestroyWindow(dialog);
        }
    }
}

TEST(DamagedTemplates, LieWithoutHarm)
{
    std::mt19937 random(20261121);
    for (int round = 0; round < 400; ++round) {
        SCOPED_TRACE(round);
        std::vector<BYTE> bytes = DialogBytes(round % 2 != 0);
        for (int flips = 0; flips < 3; ++flips)
            bytes[random() % bytes.size()] = static_cast<BYTE>(random());
        const Announced announced(ResourceFile(5, 1, bytes));
        const auto* shape = reinterpret_cast<LPCDLGTEMPLATEA>(announced.First() + 32);
        const HWND dialog = CreateDialogIndirectParamA(nullptr, shape, nullptr, &Nothing, 0);
        EXPECT_EQ(dialog != nullptr, IsWindow(dialog) != FALSE);
        DestroyWindow(dialog);
    }
}

TEST(DamagedResources, AreNotFound)
{
    constexpr WORD kName = 77;
    const std::vector<BYTE> data = {'d', 'a', 't', 'a', '!', 0};
    std::vector<BYTE> whole = ResourceFile(10, kName + 1, data);
    whole.resize((whole.size() + 3) & ~size_t{3});
    const std::vector<BYTE> second = ResourceFile(10, kName, data);
    whole.insert(whole.end(), second.begin(), second.end());
    // In the program, so that it counts as the program's.
    static BYTE area[256];
    ASSERT_LE(whole.size(), sizeof area);
    std::copy(whole.begin(), whole.end(), area);
    for (size_t size = 0; size <= whole.size(); ++size) {
        SCOPED_TRACE(size);
        const ZekResources announced(area, area + size);
        const HRSRC found = FindResourceA(nullptr, MAKEINTRESOURCEA(kName), RT_RCDATA);
        EXPECT_EQ(size == whole.size(), found != nullptr);
        EXPECT_EQ(found ? data.size() : 0, SizeofResource(nullptr, found));
    }
    EXPECT_EQ(nullptr, FindResourceA(nullptr, MAKEINTRESOURCEA(kName), RT_RCDATA));
}

TEST(DamagedResources, LieWithoutHarm)
{
    std::mt19937 random(20261121);
    static BYTE area[128];
    const std::vector<BYTE> whole = ResourceFile(6, 1, std::vector<BYTE>(40, 1));
    for (int round = 0; round < 2000; ++round) {
        std::copy(whole.begin(), whole.end(), area);
        for (int flips = 0; flips < 4; ++flips)
            area[random() % whole.size()] = static_cast<BYTE>(random());
        const ZekResources announced(area, area + whole.size());
        const HRSRC found = FindResourceA(nullptr, MAKEINTRESOURCEA(1), RT_STRING);
        const auto* data = static_cast<const BYTE*>(LockResource(LoadResource(nullptr, found)));
        EXPECT_EQ(found != nullptr, data != nullptr);
        if (found) {
            EXPECT_LE(data + SizeofResource(nullptr, found), area + whole.size());
        }
        char text[64];
        EXPECT_LT(LoadStringA(nullptr, random() % 16, text, sizeof text), 64);
    }
}
