// Writes printf-style text from arguments whose kinds are known, without the C library's locale.
#pragma once

#include <afxfmt_.h>

#include <cstdarg>
#include <string>

// Hands out the arguments of one format, in order.
class CFormatSource
{
public:
    virtual ~CFormatSource() = default;
    // The next argument, which the format calls a `kind`; `bytes` is an integer's width. False: there is
    // none.
    virtual bool Next(AFX_FORMAT_ARG::Kind kind, int bytes, AFX_FORMAT_ARG& arg) = 0;
};

// The arguments of a list.
class CListSource final : public CFormatSource
{
public:
    CListSource(const AFX_FORMAT_ARG* args, std::size_t count) : m_args(args), m_count(count) {}
    bool Next(AFX_FORMAT_ARG::Kind, int, AFX_FORMAT_ARG& arg) override;

private:
    const AFX_FORMAT_ARG* m_args;
    std::size_t m_count;
};

// Adds the formatted text to `out`.
void AfxWriteFormat(std::string& out, LPCSTR format, CFormatSource& source);
void AfxWriteFormatV(std::string& out, LPCSTR format, va_list args);

// Adds a message with numbered places to `out`.
void AfxWriteMessage(std::string& out, LPCSTR format, const AFX_FORMAT_ARG* args, std::size_t count);
