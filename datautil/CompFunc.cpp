#include "CompFunc.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <mbstring.h>

namespace {

constexpr double kTolerance = 1e-12;
constexpr double kRealTolerance = 1e-15;
constexpr double kRealUlps = 32.0;

// Elements may lie anywhere and be wider than what takes part, so they are read as bytes.
template <class T>
T At(const void* element)
{
    T value;
    std::memcpy(&value, element, sizeof value);
    return value;
}

int WrappedDifference(const void* a, const void* b)
{
    return static_cast<int>(At<unsigned>(a) - At<unsigned>(b));
}

template <class T>
int Difference(const void* a, const void* b)
{
    return At<T>(a) - At<T>(b);
}

int LowBitsDifference(const void* a, const void* b, unsigned mask)
{
    return static_cast<int>(At<unsigned>(a) & mask) - static_cast<int>(At<unsigned>(b) & mask);
}

template <class T>
int Order(T a, T b)
{
    return (a > b) - (a < b);
}

int ExactOrder(double a, double b)
{
    if (a > b)
        return 1;
    return a == b ? 0 : -1;
}

int ByteOrder(const void* a, const void* b)
{
    const int order = std::strcmp(static_cast<const char*>(a), static_cast<const char*>(b));
    return Order(order, 0);
}

const unsigned char* Text(const void* element)
{
    return At<const unsigned char*>(element);
}

template <class Pair>
const Pair& PairAt(const void* element)
{
    return *static_cast<const Pair*>(element);
}

// The first coordinate that differs decides.
template <class Pair, int Dimensions>
int OrderOfCoordinates(const void* a, const void* b, int (*compare)(double, double))
{
    int order = 0;
    for (int i = 0; i < Dimensions && order == 0; ++i)
        order = compare(PairAt<Pair>(a).coordinate[i], PairAt<Pair>(b).coordinate[i]);
    return order;
}

// Through a text of "%.18g", whatever the locale.
double ReadBack(double value)
{
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 18);
    double back = 0.0;
    std::from_chars(text, written.ptr, back);
    return back;
}

} // namespace

int CCompFunc::intAsc(const void* a, const void* b)
{
    return WrappedDifference(a, b);
}

int CCompFunc::intDesc(const void* a, const void* b)
{
    return WrappedDifference(b, a);
}

int CCompFunc::longAsc(const void* a, const void* b)
{
    return WrappedDifference(a, b);
}

int CCompFunc::longDesc(const void* a, const void* b)
{
    return WrappedDifference(b, a);
}

int CCompFunc::int64Asc(const void* a, const void* b)
{
    // The low half stands first on every machine that the library runs on.
    return WrappedDifference(a, b);
}

int CCompFunc::int64Desc(const void* a, const void* b)
{
    return WrappedDifference(b, a);
}

int CCompFunc::UINTAsc(const void* a, const void* b)
{
    return Order(At<unsigned>(a), At<unsigned>(b));
}

int CCompFunc::UINTDesc(const void* a, const void* b)
{
    return UINTAsc(b, a);
}

int CCompFunc::shortAsc(const void* a, const void* b)
{
    return Difference<short>(a, b);
}

int CCompFunc::shortDesc(const void* a, const void* b)
{
    return Difference<short>(b, a);
}

int CCompFunc::charAsc(const void* a, const void* b)
{
    return Difference<signed char>(a, b);
}

int CCompFunc::charDesc(const void* a, const void* b)
{
    return Difference<signed char>(b, a);
}

int CCompFunc::BYTEAsc(const void* a, const void* b)
{
    return Difference<BYTE>(a, b);
}

int CCompFunc::BYTEDesc(const void* a, const void* b)
{
    return Difference<BYTE>(b, a);
}

int CCompFunc::i16x16Asc(const void* a, const void* b)
{
    return LowBitsDifference(a, b, 0xFFFF);
}

int CCompFunc::i20x12Asc(const void* a, const void* b)
{
    return LowBitsDifference(a, b, 0xFFFFF);
}

int CCompFunc::floatAsc(const void* a, const void* b)
{
    return FastCompDouble(At<float>(a), At<float>(b));
}

int CCompFunc::floatDesc(const void* a, const void* b)
{
    return floatAsc(b, a);
}

int CCompFunc::doubleAsc(const void* a, const void* b)
{
    return FastCompDouble(At<double>(a), At<double>(b));
}

int CCompFunc::doubleDesc(const void* a, const void* b)
{
    return doubleAsc(b, a);
}

int CCompFunc::TDblUintAsc(const void* a, const void* b)
{
    return Order(At<double>(a) - At<double>(b), 0.0);
}

int CCompFunc::stringAsc(const void* a, const void* b)
{
    return _mbscmp(Text(a), Text(b));
}

int CCompFunc::stringDesc(const void* a, const void* b)
{
    return stringAsc(b, a);
}

int CCompFunc::charpAsc(const void* a, const void* b)
{
    return ByteOrder(a, b);
}

int CCompFunc::charpDesc(const void* a, const void* b)
{
    return ByteOrder(b, a);
}

int CCompFunc::PosIntPairA(const void* a, const void* b)
{
    return WrappedDifference(&PairAt<T_POS_INT_PAIR>(a).value, &PairAt<T_POS_INT_PAIR>(b).value);
}

int CCompFunc::PosDblPairA(const void* a, const void* b)
{
    return ExactOrder(PairAt<T_POS_DBL_PAIR>(a).value, PairAt<T_POS_DBL_PAIR>(b).value);
}

int CCompFunc::PosDbl2PairA(const void* a, const void* b)
{
    return OrderOfCoordinates<T_POS_DBL2_PAIR, 2>(a, b, ExactOrder);
}

int CCompFunc::PosDbl3PairA(const void* a, const void* b)
{
    return OrderOfCoordinates<T_POS_DBL3_PAIR, 3>(a, b, ExactOrder);
}

int CCompFunc::PosDblPairTolA(const void* a, const void* b)
{
    return CompReal(PairAt<T_POS_DBL_PAIR>(a).value, PairAt<T_POS_DBL_PAIR>(b).value);
}

int CCompFunc::PosDbl2PairTolA(const void* a, const void* b)
{
    return OrderOfCoordinates<T_POS_DBL2_PAIR, 2>(a, b, CompReal);
}

int CCompFunc::PosDbl3PairTolA(const void* a, const void* b)
{
    return OrderOfCoordinates<T_POS_DBL3_PAIR, 3>(a, b, CompReal);
}

int CCompFunc::PosNamePairA(const void* a, const void* b)
{
    return _mbsicmp(Text(&PairAt<T_POS_NAME_PAIR>(a).name), Text(&PairAt<T_POS_NAME_PAIR>(b).name));
}

int CCompFunc::CompReal(double a, double b)
{
    const double distance = std::abs(a - b);
    if (distance < kRealTolerance || std::isnan(distance))
        return 0;
    const double smaller = std::fmin(a, b);
    const double step = std::nextafter(smaller, std::fmax(a, b)) - smaller;
    if (!(distance > kRealUlps * step))
        return 0;
    return a > b ? 1 : -1;
}

int CCompFunc::FastCompDouble(double a, double b)
{
    const double difference = a - b;
    if (difference > kTolerance)
        return 1;
    return difference >= -kTolerance ? 0 : -1;
}

int CCompFunc::SafeCompDouble(double a, double b)
{
    return FastCompDouble(ReadBack(a), ReadBack(b));
}

double CCompFunc::doubleDist(const void* a, const void* b)
{
    return At<double>(a) - At<double>(b);
}

double CCompFunc::intDist(const void* a, const void* b)
{
    return static_cast<double>(At<int>(a)) - At<int>(b);
}

double CCompFunc::UINTDist(const void* a, const void* b)
{
    return static_cast<double>(At<unsigned>(a)) - At<unsigned>(b);
}

int CCompFunc::FindNearest(const void* pKey, const void* pBase, unsigned int nCount, unsigned int nWidth,
                           double (*pfnDist)(const void*, const void*))
{
    if (nCount == 0)
        return 0;
    const auto distance = [=](int index) {
        return pfnDist(pKey, static_cast<const char*>(pBase) + static_cast<std::size_t>(index) * nWidth);
    };
    const int last = static_cast<int>(nCount - 1);
    int low = 0;
    int high = last;
    int middle = high / 2;
    while (middle != low && middle != high) {
        const double d = distance(middle);
        if (d == 0.0)
            return middle;
        (d > 0.0 ? low : high) = middle;
        middle = low + (high - low) / 2;
    }

    const double d = distance(middle);
    const int neighbour = middle + (d > 0.0) - (d < 0.0);
    if (neighbour == middle || neighbour < 0 || neighbour > last)
        return middle;
    return std::abs(distance(neighbour)) > std::abs(d) ? middle : neighbour;
}
