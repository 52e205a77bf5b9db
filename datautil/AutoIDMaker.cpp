#include "AutoIDMaker.h"

#include <afxconv_.h>
#include <afxwin.h>
#include <oleauto.h>

namespace {

constexpr int kNoType = -1;

// "The text is not valid. Please specify it again."
constexpr WCHAR kInvalidText[] = OLESTR("[Error] 유효하지 않은 문자열 입니다. 다시 지정하여 주십시오.");

} // namespace

CAutoIDMaker::CAutoIDMaker() : m_nCounterType(kNoType)
{
}

CAutoIDMaker::~CAutoIDMaker() = default;

void CAutoIDMaker::SetStartID(CString& strID)
{
    const CString id = strID;
    m_nCounterType = kNoType;
    m_strFixed.Empty();
    m_strCounter.Empty();
    if (!IsValidID(strID)) {
        AfxMessageBox(CString(kInvalidText), 0, 0);
        return;
    }
    m_nCounterType = GetCharacterType(GetLastChar(strID));
    int counted = id.GetLength();
    while (counted > 0 && GetCharacterType(id[counted - 1]) == m_nCounterType)
        --counted;
    m_strFixed = id.Left(counted);
    m_strCounter = id.Mid(counted);
}

CString CAutoIDMaker::GetNextID()
{
    return MakeNextID() ? m_strFixed + m_strCounter : CString();
}

int CAutoIDMaker::IsValidID(CString& strID)
{
    for (int i = 0; i < strID.GetLength(); ++i) {
        if (GetCharacterType(strID[i]) == kNoType)
            return 0;
    }
    return !strID.IsEmpty();
}

int CAutoIDMaker::GetCharacterType(char c)
{
    if (c >= '0' && c <= '9')
        return 0;
    if (c >= 'A' && c <= 'Z')
        return 1;
    return c >= 'a' && c <= 'z' ? 2 : kNoType;
}

char CAutoIDMaker::GetLastChar(CString& str)
{
    return str.IsEmpty() ? ' ' : str[str.GetLength() - 1];
}

int CAutoIDMaker::MakeNextID()
{
    if (m_nCounterType < 0 || m_nCounterType > 2)
        return 0;
    if (m_nCounterType == 0) {
        m_strCounter.Format("%d", static_cast<int>(static_cast<UINT>(AfxAtoI(m_strCounter)) + 1));
        return 1;
    }
    const char first = m_nCounterType == 1 ? 'A' : 'a';
    const char last = m_nCounterType == 1 ? 'Z' : 'z';
    int at = m_strCounter.GetLength() - 1;
    for (; at >= 0 && m_strCounter[at] == last; --at)
        m_strCounter.SetAt(at, first);
    if (at >= 0)
        m_strCounter.SetAt(at, static_cast<char>(m_strCounter[at] + 1));
    else
        m_strCounter.Insert(0, first);
    return 1;
}
