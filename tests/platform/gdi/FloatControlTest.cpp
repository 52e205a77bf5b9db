// The control word of the floating-point unit. Every case runs in a thread of its own, whose words go with
// it.
#include <float.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <cmath>
#include <limits>
#include <thread>

namespace {

constexpr unsigned kDefault = 0x0008001f; // everything masked, rounding to nearest

template <class Body>
void InOwnThread(Body body)
{
    std::thread(body).join();
}

TEST(FloatControl, ANewThreadStartsWithTheDefaultWord)
{
    InOwnThread([] { EXPECT_EQ(_controlfp(0, 0), kDefault); });
}

struct Step {
    const char* label;
    unsigned value, mask, word;
};

TEST(FloatControl, BitsOfTheMaskAreSet)
{
    static const Step kSteps[] = {
        {"a null mask only reads", 0xffffffff, 0, 0x0008001f},
        {"divide by zero unmasked", 0, 0x8, 0x00080017},
        {"a value outside the mask counts nothing", 0x10, 0x8, 0x00080017},
        {"and masked again", 0x8, 0x8, 0x0008001f},
        {"denormals stay masked", 0, 0x00080000, 0x0008001f},
        {"all others unmasked", 0, 0x0008001f, 0x00080000},
        {"inexact", 0x1, 0x1, 0x00080001},
        {"underflow", 0x2, 0x2, 0x00080003},
        {"overflow", 0x4, 0x4, 0x00080007},
        {"invalid", 0x10, 0x10, 0x00080017},
        {"rounding down", 0x100, 0x300, 0x00080117},
        {"rounding up", 0x200, 0x300, 0x00080217},
        {"cutting", 0x300, 0x300, 0x00080317},
        {"to nearest", 0, 0x300, 0x00080017},
        {"precision is not controlled", 0x20000, 0x30000, 0x00080017},
        {"nor is infinity", 0x40000, 0x40000, 0x00080017},
        {"denormals flushed", 0x01000000, 0x03000000, 0x01080017},
        {"only operands", 0x02000000, 0x03000000, 0x02080017},
        {"only results", 0x03000000, 0x03000000, 0x03080017},
        {"back to the default", kDefault, 0xffffffff, kDefault},
    };
    InOwnThread([] {
        for (const Step& step : kSteps) {
            SCOPED_TRACE(step.label);
            EXPECT_EQ(_controlfp(step.value, step.mask), step.word);
            EXPECT_EQ(_controlfp(0, 0), step.word);
        }
        EXPECT_EQ(_control87(0, _EM_DENORMAL), 0x0000001fu);
        EXPECT_EQ(_control87(_EM_DENORMAL, _EM_DENORMAL), kDefault);
    });
}

// The saved word as value and mask: it masks what the saved word masks and clears nothing.
TEST(FloatControl, ASavedWordAsItsOwnMaskOnlySetsBits)
{
    InOwnThread([] {
        const unsigned saved = _controlfp(_EM_ZERODIVIDE, _EM_ZERODIVIDE);
        _controlfp(0, _EM_ZERODIVIDE | _EM_INVALID);
        _controlfp(_RC_UP, _MCW_RC);
        EXPECT_EQ(_controlfp(saved, saved), saved | _RC_UP);
    });
}

TEST(FloatControl, RoundingReachesTheArithmetic)
{
    struct Row {
        unsigned rounding;
        double sum, negative;
    };
    static const double kHalfStep = std::ldexp(1, -53), kStep = std::ldexp(1, -52);
    static const Row kRows[] = {
        {_RC_NEAR, 1, -1}, {_RC_UP, 1 + kStep, -1}, {_RC_DOWN, 1, -1 - kStep}, {_RC_CHOP, 1, -1}};
    InOwnThread([] {
        for (const Row& row : kRows) {
            SCOPED_TRACE(row.rounding);
            volatile double one = 1, small = kHalfStep;
            _controlfp(row.rounding, _MCW_RC);
            volatile double sum = one + small, negative = -one - small;
            _controlfp(_RC_NEAR, _MCW_RC);
            EXPECT_EQ(sum, row.sum);
            EXPECT_EQ(negative, row.negative);
        }
    });
}

TEST(FloatControl, DenormalsAreFlushedOnDemand)
{
    InOwnThread([] {
        volatile double least = std::numeric_limits<double>::min(), half = 0.5;
        _controlfp(_DN_FLUSH, _MCW_DN);
        volatile double flushed = least * half;
        _controlfp(_DN_SAVE, _MCW_DN);
        volatile double kept = least * half;
        EXPECT_EQ(flushed, 0.0);
        EXPECT_GT(kept, 0.0);
    });
}

TEST(FloatControl, TheStatusTellsWhatHappened)
{
    InOwnThread([] {
        volatile double one = 1, zero = 0, most = std::numeric_limits<double>::max();
        _clearfp();
        EXPECT_EQ(_statusfp(), 0u);
        volatile double infinite = one / zero;
        EXPECT_EQ(_statusfp(), 0x8u);
        EXPECT_EQ(_clearfp(), 0x8u);
        volatile double none = zero / zero;
        EXPECT_EQ(_clearfp(), 0x10u);
        volatile double over = most * most;
        EXPECT_EQ(_clearfp(), 0x5u); // overflow, and inexact with it
        EXPECT_EQ(_statusfp(), 0u);
        EXPECT_TRUE(!_finite(infinite) && !_finite(over) && _isnan(none));
    });
}

TEST(FloatControl, NumbersBesideNumbers)
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(_nextafter(1, 2), 1 + std::ldexp(1, -52));
    EXPECT_EQ(_nextafter(1, 0), 1 - std::ldexp(1, -53));
    EXPECT_EQ(_nextafter(1, 1), 1);
    EXPECT_EQ(_nextafter(0, -1), -std::numeric_limits<double>::denorm_min());
    EXPECT_TRUE(_isnan(_nextafter(none, 1)));
    EXPECT_TRUE(_isnan(_nextafter(1, none)));
    EXPECT_TRUE(_finite(-1e308) && !_finite(none) && !_isnan(1));
}

} // namespace
