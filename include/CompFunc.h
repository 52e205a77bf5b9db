// Orderings for qsort, bsearch and nearest-element searches.
//
//   int numbers[] = {3, -1, 2};
//   qsort(numbers, 3, sizeof(int), CCompFunc::intAsc);                         // -1 2 3
//   double levels[] = {1.0, 2.0, 4.0, 8.0}, key = 7.0;
//   CCompFunc::FindNearest(&key, levels, 4, sizeof(double), CCompFunc::doubleDist);   // 3
//
// A comparison is negative when a stands before b, positive when behind it, 0 when neither; test its sign
// only. Names ending in Asc or A order ascending, Desc descending.
//
// Units:   elements are those of the platform's types; `long` is LONG, 32 bits everywhere.
// Threads: all functions may be called from any thread.
#pragma once

#include <afxver_.h>
#include <windows.h>

// What the comparisons of pairs compare: a value, and the position it came from.
struct T_POS_INT_PAIR {
    int index;
    int value;
};
struct T_POS_DBL_PAIR {
    int index;
    double value;
};
struct T_POS_DBL2_PAIR {
    int index;
    double coordinate[2];
};
struct T_POS_DBL3_PAIR {
    int index;
    double coordinate[3];
};
struct T_POS_NAME_PAIR {
    int index;
    const char* name;
};

class AFX_EXT_CLASS CCompFunc
{
public:
    virtual ~CCompFunc() = default;

    // ---- Whole numbers ----

    // The difference a - b (b - a), which wraps at 32 bits: values 2^31 or more apart come in the wrong
    // order.
    static int intAsc(const void* a, const void* b);
    static int intDesc(const void* a, const void* b);
    static int longAsc(const void* a, const void* b);
    static int longDesc(const void* a, const void* b);
    // The same on the low 32 bits of 64-bit elements: the high halves do not count.
    static int int64Asc(const void* a, const void* b);
    static int int64Desc(const void* a, const void* b);

    static int UINTAsc(const void* a, const void* b);
    static int UINTDesc(const void* a, const void* b);
    static int shortAsc(const void* a, const void* b);
    static int shortDesc(const void* a, const void* b);
    static int charAsc(const void* a, const void* b); // one signed character
    static int charDesc(const void* a, const void* b);
    static int BYTEAsc(const void* a, const void* b);
    static int BYTEDesc(const void* a, const void* b);
    static int i16x16Asc(const void* a, const void* b); // the low 16 bits of an unsigned int
    static int i20x12Asc(const void* a, const void* b); // the low 20 bits of an unsigned int

    // ---- Numbers with a fraction ----

    // As FastCompDouble: equal when closer than 1e-12, -1 for what is no number.
    static int floatAsc(const void* a, const void* b);
    static int floatDesc(const void* a, const void* b);
    static int doubleAsc(const void* a, const void* b);
    static int doubleDesc(const void* a, const void* b);
    // Any record that begins with a double, without tolerance; 0 for what is no number.
    static int TDblUintAsc(const void* a, const void* b);

    // ---- Texts ----

    // The element is a CString or a char*: character by character in the active code page.
    static int stringAsc(const void* a, const void* b);
    static int stringDesc(const void* a, const void* b);
    // The element is the text itself, in a buffer of fixed width: byte by byte, unsigned.
    static int charpAsc(const void* a, const void* b);
    static int charpDesc(const void* a, const void* b);

    // ---- Pairs ----

    static int PosIntPairA(const void* a, const void* b); // the difference, as intAsc
    // Exact, coordinate by coordinate; -1 as soon as a coordinate is no number.
    static int PosDblPairA(const void* a, const void* b);
    static int PosDbl2PairA(const void* a, const void* b);
    static int PosDbl3PairA(const void* a, const void* b);
    // By CompReal, coordinate by coordinate.
    static int PosDblPairTolA(const void* a, const void* b);
    static int PosDbl2PairTolA(const void* a, const void* b);
    static int PosDbl3PairTolA(const void* a, const void* b);
    // Without regard to case, in the active code page.
    static int PosNamePairA(const void* a, const void* b);

    // ---- Two doubles ----

    // -1, 0 or 1; 0 for values closer than 1e-15, within 32 units in the last place of the smaller one, or no
    // numbers. Minus infinity as the smaller one has no such unit and equals everything.
    static int CompReal(double a, double b);
    // -1, 0 or 1; 0 for values up to 1e-12 apart, -1 for what is no number.
    static int FastCompDouble(double a, double b);
    // FastCompDouble of the values as they come back from a text of 18 significant digits.
    static int SafeCompDouble(double a, double b);

    // ---- Distances and the nearest element ----

    // a - b of the elements as doubles.
    static double doubleDist(const void* a, const void* b);
    static double intDist(const void* a, const void* b);
    static double UINTDist(const void* a, const void* b);

    // The index of the element nearest to the key, of nCount elements of nWidth bytes in ascending order.
    // pfnDist(key, element) falls along the array, as the distances above do. Halving the array ends at one
    // element; of two equally near ones its neighbour is taken. 0 for an empty array.
    static int FindNearest(const void* pKey, const void* pBase, unsigned int nCount, unsigned int nWidth,
                           double (*pfnDist)(const void*, const void*));
};
