// CString's formatting members.
#include <afxexc_.h>
#include <afxstr_.h>

#include "FormatWriter.h"

#include <climits>
#include <new>
#include <stdexcept>

namespace {

// Runs `write`, which adds to a text; its failures to find memory become the framework's.
template <class WRITE>
CString Written(WRITE write)
{
    std::string out;
    try {
        write(out);
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    } catch (const std::length_error&) {
        AfxThrowMemoryException();
    }
    if (out.size() > INT_MAX)
        AfxThrowMemoryException();
    return {out.data(), static_cast<int>(out.size())};
}

} // namespace

void CString::FormatV(LPCSTR format, va_list args)
{
    *this = Written([&](std::string& out) { AfxWriteFormatV(out, format, args); });
}

void CString::FormatList(LPCSTR format, const AFX_FORMAT_ARG* args, std::size_t count)
{
    *this = Written([&](std::string& out) {
        CListSource source(args, count);
        AfxWriteFormat(out, format, source);
    });
}

void CString::FormatMessageList(LPCSTR format, const AFX_FORMAT_ARG* args, std::size_t count)
{
    *this = Written([&](std::string& out) { AfxWriteMessage(out, format, args, count); });
}
