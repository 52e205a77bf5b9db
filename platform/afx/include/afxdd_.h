// Exchange between a dialog's controls and its members, and validation.
//
//   void CSizeDlg::DoDataExchange(CDataExchange* exchange)
//   {
//       CDialog::DoDataExchange(exchange);
//       DDX_Text(exchange, IDC_COUNT, m_count);
//       DDV_MinMaxInt(exchange, m_count, 1, 99);      // right after the DDX_ call it belongs to
//   }
//
// Into the members when m_bSaveAndValidate, else into the controls. Numbers are decimal and never follow the
// locale; blanks round them are skipped.
// Errors: a refused text or value is told in a message box, the keyboard goes to its control, and
// CUserException ends the exchange (CWnd::UpdateData answers FALSE); the member is left as it was by a text
// that is no such number. CNotSupportedException for a control that does not exist.
#pragma once

#include "afxwnd_.h"

#include <concepts>
#include <limits>

// One run of DoDataExchange.
class AFX_CORE_CLASS CDataExchange
{
public:
    CDataExchange(CWnd* window, BOOL saveAndValidate);

    BOOL m_bSaveAndValidate;
    CWnd* m_pDlgWnd;

    // The control, noted as the one that Fail goes to. Throws CNotSupportedException when there is none.
    HWND PrepareCtrl(int id);
    HWND PrepareEditCtrl(int id); // for a control with a text: Fail selects it
    // Ends the exchange with CUserException; the user has been told by then.
    [[noreturn]] void Fail();

    HWND m_hWndLastControl = nullptr;
    BOOL m_bEditLastControl = FALSE;
};

// Gives `control` the window of the dialog's control, once.
AFX_CORE_API void AFXAPI DDX_Control(CDataExchange* exchange, int id, CWnd& control);

AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* exchange, int id, CString& value);
// Six and fifteen digits.
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* exchange, int id, float& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* exchange, int id, double& value);
// The common part of the next.
AFX_CORE_API LONGLONG AFXAPI AfxExchangeNumber(CDataExchange* exchange, int id, LONGLONG value, LONGLONG low,
                                               LONGLONG high);
// A whole number: signed, or unsigned of up to 32 bits; no character.
template <class Number>
requires(std::signed_integral<Number> ||
         (std::unsigned_integral<Number> && sizeof(Number) <= sizeof(DWORD))) void AFXAPI
    DDX_Text(CDataExchange* exchange, int id, Number& value)
{
    using Limits = std::numeric_limits<Number>;
    value = static_cast<Number>(AfxExchangeNumber(exchange, id, static_cast<LONGLONG>(value),
                                                  static_cast<LONGLONG>(Limits::min()),
                                                  static_cast<LONGLONG>(Limits::max())));
}

// 0, 1 or (of three states) 2; other values count as 0.
AFX_CORE_API void AFXAPI DDX_Check(CDataExchange* exchange, int id, int& value);
// `id` is the first button of its group; the value counts from 0, -1: none.
AFX_CORE_API void AFXAPI DDX_Radio(CDataExchange* exchange, int id, int& value);

// The selected entry's text, "" for none; selects the first entry that begins with the value (Exact: is it,
// whatever the case).
AFX_CORE_API void AFXAPI DDX_LBString(CDataExchange* exchange, int id, CString& value);
AFX_CORE_API void AFXAPI DDX_LBStringExact(CDataExchange* exchange, int id, CString& value);
AFX_CORE_API void AFXAPI DDX_LBIndex(CDataExchange* exchange, int id, int& index); // -1: none
// The text of a combo box; a value that no entry has is written into its edit field.
AFX_CORE_API void AFXAPI DDX_CBString(CDataExchange* exchange, int id, CString& value);
AFX_CORE_API void AFXAPI DDX_CBStringExact(CDataExchange* exchange, int id, CString& value);
AFX_CORE_API void AFXAPI DDX_CBIndex(CDataExchange* exchange, int id, int& index); // -1: none

// Refuse a value outside the range, both ends inside, when saving.
AFX_CORE_API void AFXAPI DDV_MinMaxByte(CDataExchange* exchange, BYTE value, BYTE low, BYTE high);
AFX_CORE_API void AFXAPI DDV_MinMaxShort(CDataExchange* exchange, short value, short low, short high);
AFX_CORE_API void AFXAPI DDV_MinMaxInt(CDataExchange* exchange, int value, int low, int high);
AFX_CORE_API void AFXAPI DDV_MinMaxLong(CDataExchange* exchange, LONG value, LONG low, LONG high);
AFX_CORE_API void AFXAPI DDV_MinMaxUInt(CDataExchange* exchange, UINT value, UINT low, UINT high);
AFX_CORE_API void AFXAPI DDV_MinMaxDWord(CDataExchange* exchange, DWORD value, DWORD low, DWORD high);
AFX_CORE_API void AFXAPI DDV_MinMaxFloat(CDataExchange* exchange, const float& value, float low, float high);
AFX_CORE_API void AFXAPI DDV_MinMaxDouble(CDataExchange* exchange, const double& value, double low,
                                          double high);
// Refuses a text of more than `count` bytes when saving; else has the edit control take no more.
AFX_CORE_API void AFXAPI DDV_MaxChars(CDataExchange* exchange, const CString& value, int count);
