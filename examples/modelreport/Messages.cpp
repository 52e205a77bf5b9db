#include "Messages.h"

CString MessageOf(CException* e)
{
    constexpr int kLongest = 2048;
    CString text;
    e->GetErrorMessage(text.GetBuffer(kLongest), kLongest);
    text.ReleaseBuffer();
    e->Delete();
    text.Replace("\r", "");
    text.Replace('\n', ' ');
    return text.IsEmpty() ? CString("unknown error") : text;
}
