#include "automation/Arguments.h"

#include "spreadsheet/model/Unicode.h"

#include <utility>

namespace zek::office {
namespace {

// A converted copy that ends itself.
class Converted
{
public:
    Converted(const VARIANT& value, VARTYPE type)
    {
        VariantInit(&m_value);
        m_result = VariantChangeTypeEx(&m_value, const_cast<VARIANT*>(&value), kEnglish, 0, type);
    }
    ~Converted() { VariantClear(&m_value); }
    Converted(const Converted&) = delete;
    Converted& operator=(const Converted&) = delete;

    HRESULT Result() const { return m_result; }
    const VARIANT& operator*() const { return m_value; }

private:
    static constexpr LCID kEnglish = 0x409;
    VARIANT m_value;
    HRESULT m_result;
};

} // namespace

void Argument::Refuse(HRESULT result) const
{
    throw ArgumentError(result, m_index);
}

const VARIANT& Argument::Value() const
{
    if (IsMissing())
        Refuse(DISP_E_PARAMNOTOPTIONAL);
    return *m_value;
}

LONG Argument::Long() const
{
    if (Value().vt == VT_I4)
        return m_value->lVal;
    const Converted converted(*m_value, VT_I4);
    if (FAILED(converted.Result()))
        Refuse(converted.Result());
    return (*converted).lVal;
}

double Argument::Number() const
{
    if (Value().vt == VT_R8)
        return m_value->dblVal;
    const Converted converted(*m_value, VT_R8);
    if (FAILED(converted.Result()))
        Refuse(converted.Result());
    return (*converted).dblVal;
}

bool Argument::Flag() const
{
    if (Value().vt == VT_BOOL)
        return m_value->boolVal != VARIANT_FALSE;
    const Converted converted(*m_value, VT_BOOL);
    if (FAILED(converted.Result()))
        Refuse(converted.Result());
    return (*converted).boolVal != VARIANT_FALSE;
}

std::string Argument::Text() const
{
    if (Value().vt == VT_BSTR)
        return ToUtf8(TextView());
    const Converted converted(*m_value, VT_BSTR);
    if (FAILED(converted.Result()))
        Refuse(converted.Result());
    return ToUtf8({(*converted).bstrVal, SysStringLen((*converted).bstrVal)});
}

IDispatch* Argument::Object() const
{
    if (Value().vt != VT_DISPATCH)
        Refuse();
    return m_value->pdispVal;
}

Arguments::Arguments(const DISPPARAMS& params, bool isPut)
    : m_params(params), m_count(isPut && params.cArgs > 0 ? params.cArgs - 1 : params.cArgs)
{
}

Arguments::~Arguments()
{
    while (m_copied > 0)
        VariantClear(&m_copies[--m_copied]);
}

Argument Arguments::operator[](UINT index) const
{
    if (index >= m_count)
        return {nullptr, 0};
    const UINT raw = m_params.cArgs - 1 - index;
    return {Followed(raw), raw};
}

Argument Arguments::PutValue() const
{
    if (m_params.cArgs == 0)
        return {nullptr, 0};
    return {Followed(0), 0};
}

const VARIANT* Arguments::Followed(UINT rawIndex) const
{
    VARIANT& argument = m_params.rgvarg[rawIndex];
    if (!(argument.vt & VT_BYREF))
        return &argument;
    if (argument.vt == (VT_BYREF | VT_VARIANT) && argument.pvarVal && !(argument.pvarVal->vt & VT_BYREF))
        return argument.pvarVal;
    if (m_copied == kMost)
        throw ArgumentError(DISP_E_OVERFLOW, rawIndex);
    VARIANT& copy = m_copies[m_copied];
    VariantInit(&copy);
    if (!argument.byref || FAILED(VariantCopyInd(&copy, &argument)))
        throw ArgumentError(DISP_E_TYPEMISMATCH, rawIndex);
    ++m_copied;
    return &copy;
}

} // namespace zek::office
