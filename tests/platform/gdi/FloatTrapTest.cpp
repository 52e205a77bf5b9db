// What an unmasked exception does: here it is a signal.
#include <float.h>
#include <gtest/gtest.h>

#include <csignal>

namespace {

void DivideByZeroUnmasked()
{
    std::signal(SIGFPE, SIG_DFL); // sanitizers have a handler of their own
    volatile double one = 1, zero = 0;
    _controlfp(0, _EM_ZERODIVIDE);
    volatile double infinite = one / zero;
    static_cast<void>(infinite);
}

TEST(FloatControl, UnmaskedDivisionByZeroEndsTheProgram)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(DivideByZeroUnmasked(), testing::KilledBySignal(SIGFPE), "");
}

} // namespace
