#include "FormatWriter.h"

#include "FormatNumber.h"

#include <afxstr_.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

// Wider fields stand in the result as written: a format that came from outside must not exhaust memory.
constexpr int kWidest = 1 << 20;

enum class TextWidth { kDefault, kNarrow, kWide };

struct SizePrefix {
    std::string_view name;
    int bytes;
    TextWidth text;
};

// The first prefix that fits counts: longer names stand before their beginnings.
constexpr SizePrefix kSizes[] = {
    {"I64", 8, TextWidth::kDefault},
    {"I32", 4, TextWidth::kDefault},
    {"I", static_cast<int>(sizeof(void*)), TextWidth::kDefault},
    {"ll", 8, TextWidth::kWide},
    {"l", 4, TextWidth::kWide},
    {"hh", 1, TextWidth::kNarrow},
    {"h", 2, TextWidth::kNarrow},
    {"w", 4, TextWidth::kWide},
    {"L", 8, TextWidth::kDefault},
    {"j", 8, TextWidth::kDefault},
    {"z", static_cast<int>(sizeof(void*)), TextWidth::kDefault},
    {"t", static_cast<int>(sizeof(void*)), TextWidth::kDefault},
};

// One pass over one format.
class Writer
{
public:
    Writer(std::string& out, LPCSTR format, CFormatSource& source)
        : m_out(out), m_next(format), m_source(source)
    {
    }

    void Run()
    {
        while (*m_next) {
            const std::size_t plain = std::strcspn(m_next, "%");
            m_out.append(m_next, plain);
            m_next += plain;
            if (*m_next)
                Conversion();
        }
    }

private:
    void Conversion();
    void Flags();
    bool Argument(AFX_FORMAT_ARG::Kind kind, int bytes, AFX_FORMAT_ARG& arg);
    bool Number(int& value);
    void Width();
    void Precision();
    void Size();
    bool Write();
    int BytesOf(const AFX_FORMAT_ARG& arg) const;
    bool WriteInteger();
    bool WritePointer();
    bool WriteReal();
    bool WriteCharacter();
    bool WriteText();
    std::string Narrowed(LPCWSTR text) const;

    std::string& m_out;
    LPCSTR m_next;
    CFormatSource& m_source;
    CFormatSpec m_spec;
    int m_bytes = 4;
    bool m_isLong = false;
    TextWidth m_text = TextWidth::kDefault;
    bool m_bad = false; // the conversion cannot be followed
};

void Writer::Flags()
{
    for (;; ++m_next) {
        switch (*m_next) {
        case '-':
            m_spec.left = true;
            break;
        case '+':
            m_spec.plus = true;
            break;
        case ' ':
            m_spec.blank = true;
            break;
        case '#':
            m_spec.alternate = true;
            break;
        case '0':
            m_spec.zero = true;
            break;
        default:
            return;
        }
    }
}

// The next argument, taken in any case. False when there is none or it is of another kind; a null may stand
// for any pointer.
bool Writer::Argument(AFX_FORMAT_ARG::Kind kind, int bytes, AFX_FORMAT_ARG& arg)
{
    if (!m_source.Next(kind, bytes, arg))
        return false;
    const bool isPointer = kind != AFX_FORMAT_ARG::kInteger && kind != AFX_FORMAT_ARG::kReal;
    return arg.kind == kind || (isPointer && arg.isNull);
}

// A width or precision, in digits or as an argument. False when it is too large or no number.
bool Writer::Number(int& value)
{
    LONGLONG number = 0;
    if (*m_next == '*') {
        ++m_next;
        AFX_FORMAT_ARG arg;
        if (!Argument(AFX_FORMAT_ARG::kInteger, 4, arg))
            return false;
        number = static_cast<int>(arg.integer);
    } else {
        for (; *m_next >= '0' && *m_next <= '9'; ++m_next)
            number = number > kWidest ? number : number * 10 + (*m_next - '0');
    }
    if (number > kWidest)
        return false;
    value = static_cast<int>(number);
    return true;
}

// A width below zero means the left.
void Writer::Width()
{
    if (!Number(m_spec.width) || m_spec.width < -kWidest) {
        m_bad = true;
    } else if (m_spec.width < 0) {
        m_spec.left = true;
        m_spec.width = -m_spec.width;
    }
}

// A precision below zero counts as none.
void Writer::Precision()
{
    if (*m_next != '.')
        return;
    ++m_next;
    if (!Number(m_spec.precision))
        m_bad = true;
    m_spec.precision = std::max(m_spec.precision, -1);
}

void Writer::Size()
{
    for (const SizePrefix& size : kSizes) {
        if (std::strncmp(m_next, size.name.data(), size.name.size()) != 0)
            continue;
        m_next += size.name.size();
        m_bytes = size.bytes;
        m_text = size.text;
        m_isLong = size.name == "l";
        return;
    }
}

void Writer::Conversion()
{
    const LPCSTR start = m_next++;
    m_spec = {};
    m_bytes = 4;
    m_isLong = false;
    m_text = TextWidth::kDefault;
    m_bad = false;
    Flags();
    Width();
    Precision();
    Size();
    m_spec.conversion = *m_next;
    if (*m_next)
        ++m_next;
    if (!Write())
        m_out.append(start, m_next);
}

// False when the conversion is to stand in the result as it was written.
bool Writer::Write()
{
    switch (m_spec.conversion) {
    case '%':
        m_out += '%';
        return true;
    case 'd':
    case 'i':
    case 'u':
    case 'o':
    case 'x':
    case 'X':
        return WriteInteger();
    case 'a':
    case 'A':
    case 'e':
    case 'E':
    case 'f':
    case 'F':
    case 'g':
    case 'G':
        return WriteReal();
    case 'c':
    case 'C':
        return WriteCharacter();
    case 's':
    case 'S':
        return WriteText();
    case 'p':
        return WritePointer();
    case 'n': { // never written through, but it has an argument
        AFX_FORMAT_ARG unused;
        m_source.Next(AFX_FORMAT_ARG::kPointer, 0, unused);
        return false;
    }
    default:
        return false;
    }
}

// %ld takes a LONG, but a `long` that is longer is written whole.
int Writer::BytesOf(const AFX_FORMAT_ARG& arg) const
{
    return m_isLong && arg.isWide ? static_cast<int>(sizeof(long)) : m_bytes;
}

bool Writer::WriteInteger()
{
    AFX_FORMAT_ARG arg;
    if (!Argument(AFX_FORMAT_ARG::kInteger, m_bytes, arg) || m_bad)
        return false;
    AfxWriteInteger(m_out, m_spec, arg.integer, BytesOf(arg));
    return true;
}

// Any pointer; that of a text is its address.
bool Writer::WritePointer()
{
    AFX_FORMAT_ARG arg;
    const bool isPointer = Argument(AFX_FORMAT_ARG::kPointer, 0, arg) || arg.IsText();
    if (!isPointer || m_bad)
        return false;
    CFormatSpec spec;
    spec.left = m_spec.left;
    spec.width = m_spec.width;
    spec.precision = 2 * static_cast<int>(sizeof(void*));
    spec.conversion = 'X';
    const auto address = arg.isNull ? INT_PTR{0} : reinterpret_cast<INT_PTR>(arg.pointer);
    AfxWriteInteger(m_out, spec, static_cast<LONGLONG>(address), 8);
    return true;
}

bool Writer::WriteReal()
{
    AFX_FORMAT_ARG arg;
    if (!Argument(AFX_FORMAT_ARG::kReal, 8, arg) || m_bad)
        return false;
    AfxWriteReal(m_out, m_spec, arg.real);
    return true;
}

bool Writer::WriteCharacter()
{
    AFX_FORMAT_ARG arg;
    if (!Argument(AFX_FORMAT_ARG::kInteger, 4, arg) || m_bad)
        return false;
    const bool wide =
        m_text == TextWidth::kWide || (m_spec.conversion == 'C' && m_text != TextWidth::kNarrow);
    std::string body(1, static_cast<char>(arg.integer));
    if (wide) {
        const auto unit = static_cast<WCHAR>(arg.integer);
        const CString narrowed(&unit, 1);
        body.assign(narrowed, static_cast<std::size_t>(narrowed.GetLength()));
    }
    AfxWritePadded(m_out, m_spec, {}, {}, body, m_spec.zero);
    return true;
}

// The wide text in the ANSI code page: whole characters of at most `precision` bytes.
std::string Writer::Narrowed(LPCWSTR text) const
{
    const auto limit = static_cast<std::size_t>(m_spec.precision); // -1: no limit
    std::string result;
    while (*text) {
        const int units = (static_cast<unsigned>(*text) & 0xFC00U) == 0xD800U && text[1] ? 2 : 1;
        const CString character(text, units);
        if (result.size() + static_cast<std::size_t>(character.GetLength()) > limit)
            break;
        result.append(character, static_cast<std::size_t>(character.GetLength()));
        text += units;
    }
    return result;
}

bool Writer::WriteText()
{
    const bool wide =
        m_text == TextWidth::kWide || (m_spec.conversion == 'S' && m_text != TextWidth::kNarrow);
    AFX_FORMAT_ARG arg;
    if (!Argument(wide ? AFX_FORMAT_ARG::kWideText : AFX_FORMAT_ARG::kText, 0, arg) || m_bad)
        return false;
    const auto limit = static_cast<std::size_t>(m_spec.precision);
    std::string body;
    if (arg.isNull)
        body = std::string_view("(null)").substr(0, limit);
    else if (wide)
        body = Narrowed(arg.wideText);
    else if (m_spec.precision < 0)
        body = arg.text;
    else
        body.assign(arg.text, strnlen(arg.text, limit));
    AfxWritePadded(m_out, m_spec, {}, {}, body, m_spec.zero);
    return true;
}

} // namespace

void AfxWriteFormat(std::string& out, LPCSTR format, CFormatSource& source)
{
    if (format)
        Writer(out, format, source).Run();
}
