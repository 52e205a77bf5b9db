// CString: the 8-bit string of the framework, reference counted.
//
//   CString name("deck");
//   name += ".inp";
//   CString line;
//   line.Format("%s: %d", name, 42);          // "deck.inp: 42"
//
// Units: lengths and indices count bytes. Text is in the process's ANSI code page; comparing, searching, case
//   and reversing know its double-byte characters.
// Errors: when memory runs out or a length passes 2^31 - 1, CMemoryException; for an index outside the text,
//   CInvalidArgException. The text is then unchanged.
// Threads: two threads may own copies of one text; one object belongs to one thread at a time.
//
// Differs from the original:
//  1. Format and its sisters know the types of their arguments (see Format).
//  2. Numbers are formatted without the C library's locale.
//  3. Adding to a text grows its buffer by half, so building a text piece by piece takes linear time.
//  4. A text may be assigned, added to, inserted into or formatted from its own buffer.
//  5. No Format with the number of a text in the resources.
#pragma once

#include "afxfmt_.h"
#include "afxobj_.h"

#include <atomic>
#include <cstdarg>
#include <cstddef>

// Stands in memory before the characters of each text.
struct CStringData {
    std::atomic<int> nRefs; // owners; below 0: locked, never shared
    int nDataLength;
    int nAllocLength;

    char* data() { return reinterpret_cast<char*>(this + 1); }
};

// A text of any length, NUL bytes included. Exactly one pointer wide; may be moved as raw bytes.
class AFX_CORE_CLASS CString
{
public:
    CString() noexcept;
    CString(const CString& other);
    CString(CString&& other) noexcept;
    CString(char ch, int repeat = 1); // a repeat below 1 gives ""
    CString(LPCSTR text);             // null gives ""
    CString(LPCSTR text, int length); // keeps NUL bytes; a length below 1 gives ""
    CString(LPCWSTR text);            // converted to the ANSI code page
    CString(LPCWSTR text, int length);
    CString(const unsigned char* text);
    ~CString();

    CString& operator=(const CString& other);
    CString& operator=(CString&& other) noexcept;
    CString& operator=(char ch);
    CString& operator=(LPCSTR text);
    CString& operator=(LPCWSTR text);
    CString& operator=(const unsigned char* text);

    // ---- as a whole
    int GetLength() const { return Data()->nDataLength; }
    int GetAllocLength() const { return Data()->nAllocLength; }
    BOOL IsEmpty() const { return Data()->nDataLength == 0; }
    void Empty(); // also releases the buffer
    operator LPCSTR() const { return m_pchData; }
    LPCSTR GetString() const { return m_pchData; }
    void SetString(LPCSTR text);
    void SetString(LPCSTR text, int length);

    // ---- one character; the index of the terminator may be read, not set
    char GetAt(int index) const
    {
        CheckIndex(index, GetLength());
        return m_pchData[index];
    }
    char operator[](int index) const { return GetAt(index); }
    void SetAt(int index, char ch);

    // ---- adding
    CString& operator+=(const CString& other);
    CString& operator+=(char ch);
    CString& operator+=(LPCSTR text);
    CString& operator+=(LPCWSTR text);
    void Append(LPCSTR text);
    void Append(LPCSTR text, int length);
    void Append(const CString& text) { *this += text; }
    void AppendChar(char ch) { *this += ch; }

    // ---- comparing: below, equal to, above 0. All stop at the first NUL byte.
    int Compare(LPCSTR text) const; // character by character, unsigned
    int CompareNoCase(LPCSTR text) const;
    int Collate(LPCSTR text) const; // as the "C" locale orders, which is what programs start with
    int CollateNoCase(LPCSTR text) const;

    // ---- parts; places and counts outside the text are cut to it
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString Left(int count) const;
    CString Right(int count) const;
    CString SpanIncluding(LPCSTR characters) const;
    CString SpanExcluding(LPCSTR characters) const;

    // The next run of characters that are not in `separators`, from `start` on; `start` moves behind it.
    // At the end of the text it answers "" and `start` is -1.
    CString Tokenize(LPCSTR separators, int& start) const;

    // ---- searching: index, or -1. A `start` outside the text finds nothing.
    int Find(char ch, int start = 0) const;
    int Find(LPCSTR text, int start = 0) const;
    int ReverseFind(char ch) const;
    int FindOneOf(LPCSTR characters) const;

    // ---- changing
    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();
    CString& TrimLeft();
    CString& TrimLeft(char ch);
    CString& TrimLeft(LPCSTR characters);
    CString& TrimRight();
    CString& TrimRight(char ch);
    CString& TrimRight(LPCSTR characters);
    CString& Trim();
    CString& Trim(char ch);
    CString& Trim(LPCSTR characters);
    int Replace(char oldChar, char newChar);     // how many were replaced
    int Replace(LPCSTR oldText, LPCSTR newText); // how many were replaced; "" and null replace nothing
    int Remove(char ch);                         // how many were removed
    int Insert(int index, char ch);              // the new length; an index outside is cut to the text
    int Insert(int index, LPCSTR text);
    int Delete(int index, int count = 1); // the new length
    void Truncate(int length);            // to at most `length` bytes

    // ---- formatting
    // Sets the text as printf does, with the home platform's size prefixes: %ld takes a LONG, %I64d a
    // LONGLONG, %S a wide text. A CString among the arguments counts as its text, a null text is "(null)".
    // A placeholder stands in the result as written when it has no argument, its argument is of another kind
    // (whole numbers, fractions, texts, wide texts and other pointers are the kinds), it is wider or more
    // precise than 1,048,576 characters, or it is %n. Arguments beyond the placeholders are not used.
    template <class... Args>
    void Format(LPCSTR format, Args... args)
    {
        const AFX_FORMAT_ARG list[] = {AfxFormatDetail::Argument(args)..., {}};
        FormatList(format, list, sizeof...(args));
    }
    // Adds formatted text at the end.
    template <class... Args>
    void AppendFormat(LPCSTR format, Args... args)
    {
        CString tail;
        tail.Format(format, args...);
        *this += tail;
    }
    // Sets the text from a message with numbered places: "%1 of %2!d!"; %n ends a line, %0 ends the message.
    template <class... Args>
    void FormatMessage(LPCSTR format, Args... args)
    {
        const AFX_FORMAT_ARG list[] = {AfxFormatDetail::Argument(args)..., {}};
        FormatMessageList(format, list, sizeof...(args));
    }
    // The same as Format from a C argument list, which must match the format.
    void FormatV(LPCSTR format, va_list args);
    void FormatList(LPCSTR format, const AFX_FORMAT_ARG* args, std::size_t count);
    void FormatMessageList(LPCSTR format, const AFX_FORMAT_ARG* args, std::size_t count);

    // ---- resources
    // Text `id` of the string tables, searched for in the program and its extension libraries, or of one
    // module. FALSE and "" when there is none.
    BOOL LoadString(UINT id);
    BOOL LoadString(HINSTANCE module, UINT id);

    // ---- the buffer itself
    // A writable buffer of at least `minimum` characters and a NUL, holding the text. Until ReleaseBuffer no
    // other member may be called.
    LPSTR GetBuffer(int minimum = 0);
    // The same, the text's length set to `length` at once.
    LPSTR GetBufferSetLength(int length);
    // Ends GetBuffer; -1: the text ends at its first NUL.
    void ReleaseBuffer(int length = -1);
    void ReleaseBufferSetLength(int length) { ReleaseBuffer(length); }
    void FreeExtra(); // gives memory beyond the text back
    void Preallocate(int length);
    LPSTR LockBuffer(); // copies of a locked text get a buffer of their own
    void UnlockBuffer();

    // The text as an automation text (BSTR), which the caller frees with SysFreeString.
    LPWSTR AllocSysString() const;
    // The same in place of *text, which is freed.
    LPWSTR SetSysString(LPWSTR* text) const;

    void AnsiToOem();
    void OemToAnsi();

private:
    CStringData* Data() const { return reinterpret_cast<CStringData*>(m_pchData) - 1; }
    void CheckIndex(int index, int last) const
    {
        if (static_cast<unsigned>(index) > static_cast<unsigned>(last))
            ThrowBadIndex();
    }
    [[noreturn]] static void ThrowBadIndex();

    void Attach(CStringData* data) noexcept;
    void AssignCopy(LPCSTR text, std::size_t length);
    void AssignWide(LPCWSTR text, int length);
    void Concat(LPCSTR text, std::size_t length);
    void Splice(int index, int removed, LPCSTR text, std::size_t length);
    void CopyBeforeWrite(int minimum);
    void SetLength(int length);

    LPSTR m_pchData;
};

AFX_CORE_API CString AFXAPI operator+(const CString& a, const CString& b);
AFX_CORE_API CString AFXAPI operator+(const CString& a, LPCSTR b);
AFX_CORE_API CString AFXAPI operator+(LPCSTR a, const CString& b);
AFX_CORE_API CString AFXAPI operator+(const CString& a, char b);
AFX_CORE_API CString AFXAPI operator+(char a, const CString& b);

// clang-format off
inline bool operator==(const CString& a, const CString& b) { return a.Compare(b) == 0; }
inline bool operator==(const CString& a, LPCSTR b) { return a.Compare(b) == 0; }
inline bool operator==(LPCSTR a, const CString& b) { return b.Compare(a) == 0; }
inline bool operator!=(const CString& a, const CString& b) { return a.Compare(b) != 0; }
inline bool operator!=(const CString& a, LPCSTR b) { return a.Compare(b) != 0; }
inline bool operator!=(LPCSTR a, const CString& b) { return b.Compare(a) != 0; }
inline bool operator<(const CString& a, const CString& b) { return a.Compare(b) < 0; }
inline bool operator<(const CString& a, LPCSTR b) { return a.Compare(b) < 0; }
inline bool operator<(LPCSTR a, const CString& b) { return b.Compare(a) > 0; }
inline bool operator>(const CString& a, const CString& b) { return a.Compare(b) > 0; }
inline bool operator>(const CString& a, LPCSTR b) { return a.Compare(b) > 0; }
inline bool operator>(LPCSTR a, const CString& b) { return b.Compare(a) < 0; }
inline bool operator<=(const CString& a, const CString& b) { return a.Compare(b) <= 0; }
inline bool operator<=(const CString& a, LPCSTR b) { return a.Compare(b) <= 0; }
inline bool operator<=(LPCSTR a, const CString& b) { return b.Compare(a) >= 0; }
inline bool operator>=(const CString& a, const CString& b) { return a.Compare(b) >= 0; }
inline bool operator>=(const CString& a, LPCSTR b) { return a.Compare(b) >= 0; }
inline bool operator>=(LPCSTR a, const CString& b) { return b.Compare(a) <= 0; }
// clang-format on

static_assert(sizeof(CString) == sizeof(void*));
