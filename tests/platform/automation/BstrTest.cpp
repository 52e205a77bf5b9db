#include <gtest/gtest.h>

#include <windows.h>
#include <oleauto.h>

#include <cstring>
#include <string>

namespace {

using Text = std::basic_string<OLECHAR>;

TEST(Bstr, CarriesItsLengthAndATerminator)
{
    for (const UINT length : {0u, 1u, 2u, 3u, 7u, 8u, 255u, 1000u, 100000u}) {
        SCOPED_TRACE(length);
        const Text source(length, OLESTR('x'));
        const BSTR text = SysAllocStringLen(source.c_str(), length);
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(SysStringLen(text), length);
        EXPECT_EQ(SysStringByteLen(text), 2 * length);
        EXPECT_EQ(Text(text, length + 1), source + OLECHAR{0});
        SysFreeString(text);
    }
}

TEST(Bstr, NullIsAnEmptyText)
{
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0u);
    EXPECT_EQ(SysStringByteLen(nullptr), 0u);
    SysFreeString(nullptr);
}

TEST(Bstr, HoldsZeroCharactersAndOddByteCounts)
{
    const Text source(OLESTR("a\0b"), 3);
    const BSTR whole = SysAllocStringLen(source.data(), 3);
    EXPECT_EQ(Text(whole, SysStringLen(whole)), source);
    SysFreeString(whole);
    const BSTR cut = SysAllocString(source.c_str());
    EXPECT_EQ(SysStringLen(cut), 1u);
    SysFreeString(cut);
    const BSTR odd = SysAllocStringByteLen("abc", 3);
    EXPECT_EQ(SysStringByteLen(odd), 3u);
    EXPECT_EQ(SysStringLen(odd), 1u);
    EXPECT_EQ(std::memcmp(odd, "abc\0", 5), 0);
    SysFreeString(odd);
    const BSTR unset = SysAllocStringLen(nullptr, 5);
    EXPECT_EQ(SysStringLen(unset), 5u);
    EXPECT_EQ(unset[5], OLECHAR{0});
    SysFreeString(unset);
}

TEST(Bstr, IsReplacedByPartsOfItself)
{
    BSTR text = SysAllocString(OLESTR("prefix and rest"));
    EXPECT_NE(SysReAllocStringLen(&text, text + 7, 3), FALSE);
    EXPECT_EQ(Text(text, SysStringLen(text)), OLESTR("and"));
    EXPECT_NE(SysReAllocString(&text, OLESTR("another")), FALSE);
    EXPECT_EQ(Text(text, SysStringLen(text)), OLESTR("another"));
    SysFreeString(text);
}

} // namespace
