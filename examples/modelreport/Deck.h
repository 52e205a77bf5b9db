// Places in a deck, its keyword lines, and what is thrown when the deck cannot be read.
#pragma once

#include <ZEK_lib.h>

// A line of a file of the deck; `file` is named as the user would type it, lines count from 1. Line 0 stands
// for the file as a whole.
struct DeckPlace {
    CString file;
    LONG line = 0;
};

// A keyword line: "*ELEMENT, TYPE=C3D8, ELSET=Beam".
class CDeckCard
{
public:
    // `line` starts with '*'; further option lines may follow through AddOptions.
    void Set(const CString& line, const DeckPlace& place);
    void AddOptions(const CString& line);

    // In capitals, without the '*' and without blanks: "SOLIDSECTION".
    const CString& Keyword() const { return m_keyword; }
    const DeckPlace& Place() const { return m_place; }

    bool Has(LPCSTR option) const { return Find(option) >= 0; }
    // The option's value as the deck spells it, "" when the option is missing or has none.
    CString Value(LPCSTR option) const;
    // The same; throws CDeckException when there is none.
    CString RequiredValue(LPCSTR option) const;

private:
    int Find(LPCSTR option) const;

    CString m_keyword;
    CStringArray m_names;
    CStringArray m_values;
    DeckPlace m_place;
};

// The deck cannot be read. The text for the user is "FILE:LINE: what is wrong".
class CDeckException : public CException
{
public:
    CDeckException(const DeckPlace& place, const CString& what);

    BOOL GetErrorMessage(LPSTR text, UINT size, UINT* helpContext = nullptr) override;
    const CString& Text() const { return m_text; }

private:
    CString m_text;
};

[[noreturn]] void ThrowDeckError(const DeckPlace& place, const CString& what);
