#include <float.h>

#include <cfenv>
#include <cmath>

#ifdef __x86_64__
#include <xmmintrin.h>
#endif

namespace {

struct BitName {
    unsigned word; // of the Windows run-time library
    unsigned unit;
};

// The bits of `from` under their other name.
template <std::size_t n>
unsigned ToWord(const BitName (&names)[n], unsigned unit)
{
    unsigned word = 0;
    for (const BitName& name : names)
        word |= unit & name.unit ? name.word : 0;
    return word;
}

template <std::size_t n>
unsigned ToUnit(const BitName (&names)[n], unsigned word)
{
    unsigned unit = 0;
    for (const BitName& name : names)
        unit |= word & name.word ? name.unit : 0;
    return unit;
}

constexpr BitName kExceptions[] = {{_EM_INEXACT, FE_INEXACT},
                                   {_EM_UNDERFLOW, FE_UNDERFLOW},
                                   {_EM_OVERFLOW, FE_OVERFLOW},
                                   {_EM_ZERODIVIDE, FE_DIVBYZERO},
                                   {_EM_INVALID, FE_INVALID}};

struct Rounding {
    unsigned word;
    int mode;
};
constexpr Rounding kRoundings[] = {
    {_RC_NEAR, FE_TONEAREST}, {_RC_DOWN, FE_DOWNWARD}, {_RC_UP, FE_UPWARD}, {_RC_CHOP, FE_TOWARDZERO}};

unsigned ReadRounding()
{
    const int mode = std::fegetround();
    for (const Rounding& rounding : kRoundings)
        if (rounding.mode == mode)
            return rounding.word;
    return _RC_NEAR;
}

void WriteRounding(unsigned word)
{
    for (const Rounding& rounding : kRoundings)
        if (rounding.word == (word & _MCW_RC))
            std::fesetround(rounding.mode);
}

#ifdef __x86_64__

// Bits of MXCSR: DAZ, FZ, the denormal exception and its mask; the masks stand seven bits above the flags.
constexpr unsigned kOperandsAreZero = 0x0040, kResultsAreZero = 0x8000, kDenormal = 0x0002;
constexpr unsigned kMaskShift = 7, kMasks = 0x1f80;

constexpr BitName kDenormalMask[] = {{_EM_DENORMAL, kDenormal << kMaskShift}};

// Both, operands only, results only: not one bit for each.
constexpr BitName kDenormals[] = {{0x01000000, kOperandsAreZero | kResultsAreZero},
                                  {0x02000000, kOperandsAreZero},
                                  {0x03000000, kResultsAreZero}};
constexpr unsigned kDenormalModes = kOperandsAreZero | kResultsAreZero;

unsigned DenormalsWord(unsigned unit)
{
    for (const BitName& name : kDenormals)
        if (name.unit == (unit & kDenormalModes))
            return name.word;
    return _DN_SAVE;
}

unsigned DenormalsUnit(unsigned word)
{
    for (const BitName& name : kDenormals)
        if (name.word == (word & _MCW_DN))
            return name.unit;
    return 0;
}

unsigned ReadTraps()
{
    const unsigned unit = _mm_getcsr();
    return ToWord(kExceptions, unit >> kMaskShift) | ToWord(kDenormalMask, unit) | DenormalsWord(unit);
}

// The old unit, which serves `long double`, is not unmasked: there an exception that has already happened
// would trap at once.
void WriteTraps(unsigned word)
{
    fedisableexcept(static_cast<int>(ToUnit(kExceptions, word)));
    const unsigned masks = ToUnit(kExceptions, word) << kMaskShift | ToUnit(kDenormalMask, word);
    _mm_setcsr((_mm_getcsr() & ~(kMasks | kDenormalModes)) | masks | DenormalsUnit(word));
}

unsigned ReadDenormalStatus()
{
    return _mm_getcsr() & kDenormal ? _SW_DENORMAL : 0;
}

void ClearDenormalStatus()
{
    _mm_setcsr(_mm_getcsr() & ~kDenormal);
}

#else

unsigned ReadTraps()
{
    return ToWord(kExceptions, ~static_cast<unsigned>(fegetexcept())) | _EM_DENORMAL;
}

void WriteTraps(unsigned word)
{
    const auto masked = static_cast<int>(ToUnit(kExceptions, word));
    fedisableexcept(masked);
    feenableexcept(FE_ALL_EXCEPT & ~masked);
}

unsigned ReadDenormalStatus()
{
    return 0;
}

void ClearDenormalStatus()
{
}

#endif

} // namespace

unsigned int _control87(unsigned int value, unsigned int mask)
{
    const unsigned old = ReadTraps() | ReadRounding();
    const unsigned word = (old & ~mask) | (value & mask);
    if (mask) {
        WriteRounding(word);
        WriteTraps(word);
    }
    return ReadTraps() | ReadRounding();
}

unsigned int _controlfp(unsigned int value, unsigned int mask)
{
    return _control87(value, mask & ~static_cast<unsigned>(_EM_DENORMAL));
}

unsigned int _statusfp()
{
    const auto happened = static_cast<unsigned>(std::fetestexcept(FE_ALL_EXCEPT));
    return ToWord(kExceptions, happened) | ReadDenormalStatus();
}

unsigned int _clearfp()
{
    const unsigned status = _statusfp();
    std::feclearexcept(FE_ALL_EXCEPT);
    ClearDenormalStatus();
    return status;
}

int _isnan(double value)
{
    return std::isnan(value);
}

int _finite(double value)
{
    return std::isfinite(value);
}

double _nextafter(double from, double to)
{
    return std::nextafter(from, to);
}
