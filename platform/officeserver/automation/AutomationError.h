// What the automation objects throw; DispatchObject::Invoke turns it into what the caller sees.
#pragma once

#include <oleauto.h>

#include <exception>
#include <string>
#include <utility>

namespace zek::office {

// The server refuses: DISP_E_EXCEPTION with the number and the text (UTF-8). Without a text, the usual
// sentence about the member that was called is made.
class AutomationError : public std::exception
{
public:
    static constexpr LONG kApplicationDefined = 1004;
    static constexpr LONG kOverflow = 6;

    explicit AutomationError(std::string description = {}, LONG number = kApplicationDefined)
        : AutomationError(std::move(description),
                          static_cast<SCODE>(0x800A0000u | static_cast<ULONG>(number)), Exact{})
    {
    }

    // A collection has no such member: the code says so instead of a number.
    static AutomationError BadIndex() { return {"Invalid index.", DISP_E_BADINDEX, Exact{}}; }

    const char* what() const noexcept override { return m_description.c_str(); }
    const std::string& Description() const { return m_description; }
    SCODE Code() const { return m_code; }

private:
    struct Exact {
    };
    AutomationError(std::string description, SCODE code, Exact)
        : m_description(std::move(description)), m_code(code)
    {
    }

    std::string m_description;
    SCODE m_code;
};

// An argument that cannot be what the member needs: the HRESULT, and which one it is for the caller
// (counted as the caller's array of arguments is, last first).
class ArgumentError : public std::exception
{
public:
    ArgumentError(HRESULT result, UINT index) : m_result(result), m_index(index) {}

    const char* what() const noexcept override { return "unsuitable argument"; }
    HRESULT Result() const { return m_result; }
    UINT Index() const { return m_index; }

private:
    HRESULT m_result;
    UINT m_index;
};

} // namespace zek::office
