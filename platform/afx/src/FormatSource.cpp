#include "FormatWriter.h"

namespace {

// The arguments of a C call; the format alone says what they are.
class VaSource final : public CFormatSource
{
public:
    explicit VaSource(va_list args) { va_copy(m_args, args); }
    ~VaSource() override { va_end(m_args); }
    VaSource(const VaSource&) = delete;
    VaSource& operator=(const VaSource&) = delete;

    bool Next(AFX_FORMAT_ARG::Kind kind, int bytes, AFX_FORMAT_ARG& arg) override
    {
        arg.kind = kind;
        if (kind == AFX_FORMAT_ARG::kReal)
            arg.real = va_arg(m_args, double);
        else if (kind != AFX_FORMAT_ARG::kInteger)
            arg.isNull = !(arg.pointer = va_arg(m_args, const void*));
        else if (bytes > 4)
            arg.integer = va_arg(m_args, LONGLONG);
        else
            arg.integer = va_arg(m_args, int);
        return true;
    }

private:
    va_list m_args;
};

} // namespace

bool CListSource::Next(AFX_FORMAT_ARG::Kind, int, AFX_FORMAT_ARG& arg)
{
    if (m_count == 0)
        return false;
    arg = *m_args++;
    --m_count;
    return true;
}

void AfxWriteFormatV(std::string& out, LPCSTR format, va_list args)
{
    VaSource source(args);
    AfxWriteFormat(out, format, source);
}
