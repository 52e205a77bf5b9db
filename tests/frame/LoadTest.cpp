// What stands when the library has been loaded.
#include <ZEK_lib.h>

#include <afxwin.h>

#include <float.h>
#include <gtest/gtest.h>

#include <cmath>
#include <thread>

namespace {

class ExposedProduct : public CProduct
{
public:
    using CProduct::Initialize;
};

TEST(Load, TheProductIsInitialised)
{
    EXPECT_EQ(CProduct::m_bInit, 1);
    EXPECT_EQ(ExposedProduct::Initialize(), 1);
}

TEST(Load, TheEntryIsExportedWithoutDecoration)
{
    Init_ZEK_libdll();
    const HMODULE library = GetModuleHandleA("ZEK_lib.dll");
    ASSERT_NE(library, nullptr);
    EXPECT_NE(GetProcAddress(library, "Init_ZEK_libdll"), nullptr);
}

// The library's own classes are found by name because its entry has put it among the extension libraries.
TEST(Load, ItsRunTimeClassesAreFound)
{
    EXPECT_EQ(CRuntimeClass::FromName("CWinApp"), RUNTIME_CLASS(CWinApp));
    EXPECT_EQ(CRuntimeClass::FromName("CNobody"), nullptr);
}

// Changes the control word of a thread of its own.
void OnAThread(void (*work)())
{
    std::thread(work).join();
}

TEST(EnableDivideByZero, MasksAgainWhatAHostHasUnmasked)
{
    OnAThread([] {
        _controlfp(0, _EM_ZERODIVIDE | _EM_OVERFLOW);
        ASSERT_EQ(_controlfp(0, 0) & _EM_ZERODIVIDE, 0U);
        EnableDivideByZero();
        EXPECT_EQ(_controlfp(0, 0) & (_EM_ZERODIVIDE | _EM_OVERFLOW),
                  unsigned{_EM_ZERODIVIDE | _EM_OVERFLOW});
        volatile double zero = 0.0;
        EXPECT_TRUE(std::isinf(1.0 / zero));
    });
}

TEST(EnableDivideByZero, ClearsNothing)
{
    OnAThread([] {
        _controlfp(_RC_UP, _MCW_RC);
        const unsigned int before = _controlfp(0, 0);
        EnableDivideByZero();
        const unsigned int after = _controlfp(0, 0);
        EXPECT_EQ(after & before, before);
        EXPECT_EQ(after & _MCW_RC, unsigned{_RC_UP});
    });
}

} // namespace
