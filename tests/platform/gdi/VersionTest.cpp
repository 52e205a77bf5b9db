#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>

namespace {

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // what every caller of this function means

TEST(Version, IsOfTheNtFamily)
{
    OSVERSIONINFOA version;
    std::memset(&version, 0x55, sizeof version);
    version.dwOSVersionInfoSize = 148;
    ASSERT_TRUE(GetVersionExA(&version));
    EXPECT_EQ(version.dwPlatformId, static_cast<DWORD>(VER_PLATFORM_WIN32_NT));
    EXPECT_GE(version.dwMajorVersion, 6u);
    EXPECT_LT(version.dwMajorVersion, 100u);
    EXPECT_LT(std::strlen(version.szCSDVersion), sizeof version.szCSDVersion);
}

TEST(Version, AnotherSizeFailsAndWritesNothing)
{
    for (const DWORD size : {0u, 147u, 149u, 0xffffffffu}) {
        SCOPED_TRACE(size);
        OSVERSIONINFOA version, before;
        std::memset(&version, 0x55, sizeof version);
        version.dwOSVersionInfoSize = size;
        before = version;
        EXPECT_FALSE(GetVersionExA(&version));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
        EXPECT_EQ(std::memcmp(&version, &before, sizeof version), 0);
    }
}

} // namespace
