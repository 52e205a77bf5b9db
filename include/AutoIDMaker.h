// Identifiers one after another: B1, B2, ... or RA, RB, ...
//
//   CAutoIDMaker columns;
//   CString first("C9");
//   columns.SetStartID(first);
//   CString next = columns.GetNextID();       // "C10": the start itself is never handed out
//
// Threads: one object belongs to one thread at a time.
#pragma once

#include <afx.h>

class AFX_EXT_CLASS CAutoIDMaker
{
public:
    CAutoIDMaker();
    CAutoIDMaker(const CAutoIDMaker&) = default;
    CAutoIDMaker& operator=(const CAutoIDMaker&) = default;
    virtual ~CAutoIDMaker();

    // Takes a start apart: the digits, upper-case or lower-case letters at its end are counted, what stands
    // before them stays ("A1b": "A1" and "b"). Only ASCII digits and letters are allowed; anything else, and
    // the empty text, is refused with a message box, and there is no start then.
    void SetStartID(CString& strID);

    // The next identifier; "" without a start. Digits are counted as a number without leading zeros (B007 is
    // followed by B8), which wraps at 32 bits. Letters carry to the left (az, ba; RZ, SA; ZZ, AAA).
    CString GetNextID();

protected:
    // 1 when the text is not empty and all ASCII digits and letters, else 0.
    int IsValidID(CString& strID);
    // 0 digit, 1 upper-case letter, 2 lower-case letter, -1 anything else.
    int GetCharacterType(char c);
    // A blank for the empty text.
    char GetLastChar(CString& str);
    // Counts one up: 1; 0 without a start.
    int MakeNextID();

    int m_nCounterType; // as GetCharacterType tells it; -1: no start
    CString m_strFixed;
    CString m_strCounter;
};
