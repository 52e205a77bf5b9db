// Lists of numbers as short texts, and back: "1to9by2 15 17to20".
//
//   CArray<UINT, UINT> nodes, picked;                     // 1 3 5 7 9 15 17 18 19 20
//   CNumericOptimizer optimizer;
//   CString text = optimizer.OptimizeSortedArray(nodes);  // "1to9by2 15 17to20"
//   optimizer.SelectNumByStr(nodes, "1 to 5, 18to17by-1", picked);   // 1 3 5 17 18
//
// Texts made: items separated by one blank, each "a", "atob" (every number) or "atobbyc" (every c-th). A run
// has at least three neighbours, or four numbers with another step; runs of equal shape at equal distances
// are written across (1 2 3 11 12 13 ... as "1to..by10 2to..by10 3to..by10" where that is shorter).
// Texts read: the same, in any case, with blanks anywhere, commas for blanks, "t" for "to" and "b" for "by".
// A step may be negative; "10to1by-3" is 10 7 4 1.
//
// Units:   numbers are signed 32-bit; UINT values beyond 2147483647 count as the negative number of the same
//          bits. Digits beyond 32 bits wrap.
// Errors:  by result: 1, or 0 for a text that is not understood. CMemoryException when memory runs out.
// Threads: different objects, and one object's const use, may be used at the same time.
//
// Order of numbers is that of their values everywhere but in comparei.
#pragma once

#include <afxtempl.h>

// One run: start, start + step, ... end. A single number v is (v, v, 1).
struct STB_OPT_NODE {
    LONG start;
    LONG end;
    LONG step;
};

class AFX_EXT_CLASS CNumericOptimizer
{
public:
    CNumericOptimizer() = default;
    virtual ~CNumericOptimizer() = default;

    // ---- Numbers to text ----
    // The numbers are ascending and free of repeats. Repeats are not looked for; one that leaves a single
    // number where a run starts ends in CMemoryException.

    // "" for n < 1.
    CString Optimize(LONG* values, LONG n);
    CString Optimize(CArray<UINT, UINT>& a);
    CString OptimizeSortedArray(CArray<UINT, UINT>& a);
    // Takes any order and leaves the array sorted.
    CString OptimizeUnsortedArray(CArray<UINT, UINT>& a);

    // The same as a list: the runs by ascending start, then the single numbers, ascending. Always 1.
    int OptimizeSortedArray(CArray<UINT, UINT>& a, CArray<STB_OPT_NODE, STB_OPT_NODE&>& nodes);
    int OptimizeUnsortedArray(CArray<UINT, UINT>& a, CArray<STB_OPT_NODE, STB_OPT_NODE&>& nodes);

    // ---- Text to numbers ----
    // Selects from `base`, which is ascending: numbers that it does not hold are passed over. An empty base
    // gives 1 before the text is read. A range costs no more than the part of the base that it spans.

    // Adds the selection to `out`, in the order of the text, repeats kept. After 0 `out` is as it was.
    int SelectNumByStrBase(LONG* base, LONG n, const char* s, CArray<LONG, LONG>& out);
    // The selection ascending and free of repeats, into an array with room for it; count is 0 after 0.
    int SelectNumByStr(LONG* base, LONG n, const char* s, LONG* out, LONG& count);
    // As before; out is empty after 0.
    int SelectNumByStr(CArray<UINT, UINT>& base, const char* s, CArray<UINT, UINT>& out);
    // The selection in the order of the text; with bUnique != 0 only the first of each repeated number.
    // out is empty after 0.
    int SelectNumByStrKeepSeq(CArray<UINT, UINT>& base, const char* s, CArray<UINT, UINT>& out, int bUnique);

    // ---- The parser ----

    // Reads the token of s at byte pos: 1, pos behind it and type 1 number, 2 one blank or the end, 3 "to",
    // 4 "by". 0 for anything else, a '-' without a number or within one, and a number of more than 128
    // characters; then nothing is written. Commas are not understood here. value is written for numbers only.
    int GetToken(const char* s, int& pos, int& type, int& value);
    // Writes the shortest form of s that reads the same ("1 to 10 by 2, 15" as "1t10b2 15"): 1. 0 where the
    // items are not well formed; dst then holds what stood before. dst needs the bytes of s with its NUL, and
    // one more for each number beyond 31 bits, whose sign may be added. It may be s.
    int StrCpyRemoveSpace(char* dst, const char* src);

    // The difference *a - *b of two LONG, which wraps: for qsort.
    static int comparei(const void* a, const void* b);
};
