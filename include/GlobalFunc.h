// Small helpers that hosts call directly: message boxes with formatted texts, some of which close by
// themselves, sounds, a comparison of numbers, what runs and where, names that end in a number, sizes of hash
// tables.
//
//   FmtMessageBox("%s has %d elements", name, count);
//   if (FmtMessageBox(*pWnd, nullptr, MB_YESNO, "Delete %d nodes?", count) == IDYES)
//       ...
//   TimedMessageBox(nullptr, nullptr, MB_OK, 3000, "Saved as %s", path);
//
// Formatted texts are written as CString::Format does: placeholders that do not fit the arguments stand in
// the text as they are.
//
// Errors: none is reported but through the results. Texts that do not fit into memory throw CMemoryException.
// Threads: any, but for TimedMessageBox and GetActiveView, which belong to the user-interface thread.
#pragma once

#include <afxwin.h>

#include <concepts>
#include <cstddef>
#include <type_traits>

// Does nothing. A host calls it so that it links against the library, and so loads it.
extern "C" AFX_EXT_API void Init_ZEK_libdll();

// Sets, for the calling thread, every bit of the floating-point control word that was set when the library
// had been loaded: dividing by zero yields an infinity again after a host had it trap, and so does whatever
// else was masked at that time. Clears no bit.
AFX_EXT_API void EnableDivideByZero();

// 0 if the numbers are equal or neighbours, one unit in the last place apart, or either is not a number; else
// 1 if a > b and -1 if a < b.
AFX_EXT_API int SafeCompareReal(double a, double b);

// ---- message boxes

// What the message boxes below do with their finished texts.
AFX_EXT_API unsigned int ShowTimedMessageBox(HWND hWnd, const char* lpszCaption, unsigned int nType,
                                             DWORD dwTimeout, const CString& strText);
AFX_EXT_API unsigned int ShowMessageBox(HWND hWnd, const char* lpszCaption, unsigned int nType,
                                        const CString& strText);

// Shows a message box that closes itself after dwTimeout milliseconds (0: never), and answers its button, or
// 0 when it closed itself. The owner is hWnd or, if that is null, the main window.
//
// The caption is never shown: the title is the application's name if lpszCaption is null, and empty
// otherwise. Nothing is shown and the answer is 0 while the thread has no main window or that is not visible.
// What closes is the first dialog found among the thread's windows: another one, if the host has one open.
template <class... Args>
unsigned int TimedMessageBox(HWND hWnd, const char* lpszCaption, unsigned int nType, DWORD dwTimeout,
                             const char* lpszFormat, Args... args)
{
    CString text;
    text.Format(lpszFormat, args...);
    return ShowTimedMessageBox(hWnd, lpszCaption, nType, dwTimeout, text);
}

// Shows a message box and answers its button. The caption counts as in TimedMessageBox.
template <class... Args>
unsigned int FmtMessageBox(HWND hWnd, const char* lpszCaption, unsigned int nType, const char* lpszFormat,
                           Args... args)
{
    CString text;
    text.Format(lpszFormat, args...);
    return ShowMessageBox(hWnd, lpszCaption, nType, text);
}

namespace FmtMessageBoxDetail {

template <class T>
concept Text = std::convertible_to<T, const char*> && !std::is_null_pointer_v<T>;

// A text or a null, which the compiler may take for a number.
template <class T>
concept TextOrNull = std::convertible_to<T, const char*> || std::integral<T>;

// clang-format off
// Whether what follows the first argument fits the form with a window. That form is preferred where the first
// argument is a null that could be either's.
template <class... Args>
inline constexpr bool kFitsWindowForm = false;
template <class CAPTION, class TYPE, class FORMAT, class... Args>
inline constexpr bool kFitsWindowForm<CAPTION, TYPE, FORMAT, Args...> =
    TextOrNull<CAPTION> && std::convertible_to<TYPE, unsigned int> && TextOrNull<FORMAT>;

} // namespace FmtMessageBoxDetail

// Shows a text in the framework's message box, with an OK button, and answers the button.
template <FmtMessageBoxDetail::Text FORMAT, class... Args>
int FmtMessageBox(const FORMAT& lpszFormat, Args... args)
{
    const char* const format = lpszFormat;
    CString text;
    text.Format(format, args...);
    return AfxMessageBox(text, 0, 0);
}
// The same for a null text.
template <class... Args>
    requires(!FmtMessageBoxDetail::kFitsWindowForm<Args...>)
int FmtMessageBox(std::nullptr_t, Args...)
{
    return AfxMessageBox("", 0, 0);
}
// clang-format on

// 1 silent, 2 two tones, 3 the system's default sound and a fifth of a second of waiting; others silent.
AFX_EXT_API void ErrorSound(int nType);

// ---- the program and its surroundings

// The folder of the running program, not of this library, with a backslash at its end. A name without any
// backslash is answered whole, an unknown one as "". A path of more than 260 characters is cut there.
AFX_EXT_API CString GetProgramPath();

// 1 if the path names a file or folder whose status can be read, else 0.
AFX_EXT_API int ExistFile(const char* lpszPath);

// The active view of the active frame of the application's main window; null if there is none of these.
AFX_EXT_API CView* GetActiveView();

// The system's class: 1 Win32s, 2 Windows 95, 3 Windows 98 and later of its kind, 4 NT 4, 5 NT 5, 6 any other
// NT, 7 anything else. Found out once per process.
AFX_EXT_API int GetOS();

// ---- names and numbers

// Splits the decimal number at the end off a name: "BEAM12" gives "BEAM", 1 and 12; "007" gives "", 1 and 7;
// "X-3" gives "X-", 1 and 3. Without digits at its end the whole text is the name, bHasNo and nNo are 0. A
// number of more than 32 bits wraps. lpszSrc may point into strName; null counts as empty.
AFX_EXT_API void SeparateNameAndNo(const char* lpszSrc, CString& strName, int& bHasNo, int& nNo);

// A prime size for a hash table (CMap::InitHashTable) of about nCount elements: 11 to 1000003.
AFX_EXT_API int GF_GetHashSizeByCount(int nCount);
