// The special characters of engineering labels, as the user's code page can show them.
//
//   CSpecialChar::FillWindowChar(&dialog, IDC_AREA, CSpecialChar::m_cs2Square);   // "Area (m%s)"
//
// Each symbol is one character of the code page that goes with CLocaleLib::csLocale ("0412" 949, "0411" 932,
// "0804" 936), or a word or sign in plain letters where that page has none or the language is another. They
// are set when the library is loaded, after the locale, and belong to the host then.
// They are those bytes whatever the system's own code page is: where that is UTF-8, it cannot show them.
// Errors: CMemoryException when memory runs out. Threads: the user-interface thread.
#pragma once

#include <afx.h>

class CWnd;

class AFX_EXT_CLASS CSpecialChar
{
public:
    CSpecialChar() = default;
    CSpecialChar(const CSpecialChar&) {}
    CSpecialChar& operator=(const CSpecialChar&) { return *this; }
    virtual ~CSpecialChar();

    static CString m_csMulSign;
    static CString m_cs2Square; // powers of units
    static CString m_cs3Square;
    static CString m_cs4Square;
    static CString m_cs6Square;
    static CString m_csAlpha;
    static CString m_csBeta;
    static CString m_csGamma;
    static CString m_csDelta;
    static CString m_csTheta;
    static CString m_csRho;
    static CString m_csSigma;
    static CString m_csPhi;
    static CString m_csTau;
    static CString m_csDegree;
    static CString m_csNu;
    static CString m_csMu;
    static CString m_csLamda;
    static CString m_csGammaC; // the capital
    static CString m_csEta;
    static int m_bInit; // 1 once the symbols are set

    // Fills the texts into the caption of the child nID, which is a format with a %s for each, and answers 1;
    // 0 when there is no such window. What else stands in the caption behind a '%' and needs another
    // argument, or one more, stays as it is written. In a caption that holds more than ASCII, a text that the
    // process's code page does not know, as UTF-8 does not know the symbols' bytes, is taken to be in the
    // page of CLocaleLib::csLocale.
    static int FillWindowChar(CWnd* pWnd, int nID, const CString& str1);
    static int FillWindowChar(CWnd* pWnd, int nID, const CString& str1, const CString& str2);

protected:
    // Sets the symbols for CLocaleLib::csLocale as it is now. Always 1.
    static int InitSpecialChar();
};
