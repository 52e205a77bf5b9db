// A text cut at delimiter characters into tokens that are read by number.
//
//   char line[] = "12,, 7,";
//   StringTokenizer numbers(line, ", ");
//   for (int i = 0; i < numbers.GetTokenCount(); ++i)
//       Use(numbers.GetToken(i));                         // "12", "7"
//
// Runs of delimiters count as one; delimiters at either end make no empty tokens. Both texts are read
// character by character as _mbstok reads them: the second byte of a double-byte character is no delimiter,
// and a double-byte character may be one. Null counts as the empty text.
// Errors: std::bad_alloc when memory runs out. Threads: any; unlike _mbstok it leaves no trace in the thread.
#pragma once

#include <afx.h>

#include <vector>

// Copies have tokens of their own.
class AFX_EXT_CLASS StringTokenizer
{
public:
    // Works on a copy; the text is not changed.
    StringTokenizer(char* lpszText, const char* lpszDelimiters);
    StringTokenizer(const StringTokenizer&) = default;
    StringTokenizer& operator=(const StringTokenizer&) = default;
    virtual ~StringTokenizer();

    int GetTokenCount();
    // The token of that number, from 0, for as long as the object lives. The number is not checked.
    const char* GetToken(int nIndex);

private:
    // The tokens one after another, each with its terminator, and where each begins.
    struct Record {
        std::vector<char> texts;
        std::vector<unsigned int> offsets;
    };
    Record m_record;
};
