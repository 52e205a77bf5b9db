#include <afxapp_.h>
#include <afxdd_.h>

#include "NumberText.h"

#include <cfloat>
#include <cmath>

namespace {

CString TextOf(HWND control)
{
    CString text;
    CWnd::FromHandle(control)->GetWindowText(text);
    return text;
}

// Leaves a control alone that shows the text already, so that it does not flicker.
void Show(HWND control, const CString& text)
{
    if (TextOf(control) != text)
        ::SetWindowTextA(control, text);
}

[[noreturn]] void Refuse(CDataExchange* exchange, const CString& text)
{
    AfxMessageBox(text, MB_ICONEXCLAMATION);
    exchange->Fail();
}

void ExchangeReal(CDataExchange* exchange, int id, double& value, double greatest, int digits)
{
    const HWND control = exchange->PrepareEditCtrl(id);
    CString text;
    if (!exchange->m_bSaveAndValidate) {
        text.Format("%.*g", digits, value);
        Show(control, text);
        return;
    }
    double parsed = 0;
    if (!AfxParseReal(TextOf(control), parsed) || std::fabs(parsed) > greatest)
        Refuse(exchange, "Type a number.");
    value = parsed;
}

CString WholeRange(LONGLONG low, LONGLONG high)
{
    CString text;
    text.Format("Type a whole number from %I64d to %I64d.", low, high);
    return text;
}

void CheckWhole(CDataExchange* exchange, LONGLONG value, LONGLONG low, LONGLONG high)
{
    if (exchange->m_bSaveAndValidate && (value < low || value > high))
        Refuse(exchange, WholeRange(low, high));
}

void CheckReal(CDataExchange* exchange, double value, double low, double high, int digits)
{
    // Written so that what is not a number is refused.
    if (!exchange->m_bSaveAndValidate || (value >= low && value <= high))
        return;
    CString text;
    text.Format("Type a number from %.*g to %.*g.", digits, low, digits, high);
    Refuse(exchange, text);
}

} // namespace

void AFXAPI DDX_Text(CDataExchange* exchange, int id, CString& value)
{
    const HWND control = exchange->PrepareEditCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = TextOf(control);
    else
        Show(control, value);
}

void AFXAPI DDX_Text(CDataExchange* exchange, int id, double& value)
{
    ExchangeReal(exchange, id, value, DBL_MAX, DBL_DIG);
}

void AFXAPI DDX_Text(CDataExchange* exchange, int id, float& value)
{
    double number = static_cast<double>(value);
    ExchangeReal(exchange, id, number, static_cast<double>(FLT_MAX), FLT_DIG);
    value = static_cast<float>(number);
}

LONGLONG AFXAPI AfxExchangeNumber(CDataExchange* exchange, int id, LONGLONG value, LONGLONG low,
                                  LONGLONG high)
{
    const HWND control = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        CString text;
        text.Format("%I64d", value);
        Show(control, text);
        return value;
    }
    LONGLONG parsed = 0;
    if (!AfxParseWhole(TextOf(control), parsed) || parsed < low || parsed > high)
        Refuse(exchange, WholeRange(low, high));
    return parsed;
}

void AFXAPI DDV_MinMaxByte(CDataExchange* exchange, BYTE value, BYTE low, BYTE high)
{
    CheckWhole(exchange, value, low, high);
}

void AFXAPI DDV_MinMaxShort(CDataExchange* exchange, short value, short low, short high)
{
    CheckWhole(exchange, value, low, high);
}

void AFXAPI DDV_MinMaxInt(CDataExchange* exchange, int value, int low, int high)
{
    CheckWhole(exchange, value, low, high);
}

void AFXAPI DDV_MinMaxLong(CDataExchange* exchange, LONG value, LONG low, LONG high)
{
    CheckWhole(exchange, value, low, high);
}

void AFXAPI DDV_MinMaxUInt(CDataExchange* exchange, UINT value, UINT low, UINT high)
{
    CheckWhole(exchange, value, low, high);
}

void AFXAPI DDV_MinMaxDWord(CDataExchange* exchange, DWORD value, DWORD low, DWORD high)
{
    CheckWhole(exchange, value, low, high);
}

void AFXAPI DDV_MinMaxFloat(CDataExchange* exchange, const float& value, float low, float high)
{
    CheckReal(exchange, static_cast<double>(value), static_cast<double>(low), static_cast<double>(high),
              FLT_DIG);
}

void AFXAPI DDV_MinMaxDouble(CDataExchange* exchange, const double& value, double low, double high)
{
    CheckReal(exchange, value, low, high, DBL_DIG);
}

void AFXAPI DDV_MaxChars(CDataExchange* exchange, const CString& value, int count)
{
    if (!exchange->m_bSaveAndValidate) {
        if (exchange->m_hWndLastControl && exchange->m_bEditLastControl)
            ::SendMessageA(exchange->m_hWndLastControl, EM_LIMITTEXT, static_cast<WPARAM>(count), 0);
        return;
    }
    if (value.GetLength() <= count)
        return;
    CString text;
    text.Format("Type no more than %d characters.", count);
    Refuse(exchange, text);
}
