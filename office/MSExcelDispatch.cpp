// Late-bound calls: members looked up by name.
#include <MSExcel.h>

#include <cstdarg>
#include <cstdlib>

namespace {

constexpr LPCTSTR kErrorCaption = "Error";
constexpr int kMostArguments = 255;

[[noreturn]] void EndForNullDispatch()
{
    MessageBoxA(nullptr, "NULL IDispatch passed to AutoWrap()", kErrorCaption,
                MB_ICONERROR | MB_SETFOREGROUND);
    std::exit(0);
}

HRESULT Invoke(IDispatch& object, DISPID id, int kind, VARIANT* result, VARIANT* arguments, int count)
{
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS call = {arguments, nullptr, static_cast<UINT>(count), 0};
    if (kind & DISPATCH_PROPERTYPUT) {
        call.rgdispidNamedArgs = &named;
        call.cNamedArgs = 1;
    }
    return object.Invoke(id, IID_NULL, LOCALE_SYSTEM_DEFAULT, static_cast<WORD>(kind), &call, result, nullptr,
                         nullptr);
}

} // namespace

HRESULT CMSExcel::AutoWrap(int kind, VARIANT* result, IDispatch* object, LPCOLESTR name, int count, ...)
{
    if (!object)
        EndForNullDispatch();
    if (count < 0 || count > kMostArguments)
        return E_INVALIDARG;

    // For whoever stops here in a debugger.
    char ansiName[256];
    WideCharToMultiByte(CP_ACP, 0, name, -1, ansiName, sizeof ansiName, nullptr, nullptr);

    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    DISPID id = DISPID_UNKNOWN;
    HRESULT hr = object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(hr))
        return hr;

    auto* const arguments = new VARIANT[static_cast<std::size_t>(count) + 1];
    va_list list;
    va_start(list, count);
    for (int i = 0; i < count; ++i)
        arguments[i] = va_arg(list, VARIANT);
    va_end(list);

    hr = Invoke(*object, id, kind, result, arguments, count);
    if (SUCCEEDED(hr))
        delete[] arguments; // after a failure it stays allocated: hosts count on nothing being freed then
    return hr;
}

int CMSExcel::GetPropertyCount(IDispatch* object)
{
    if (!object)
        return 0;
    COleVariant count;
    if (FAILED(AutoWrap(DISPATCH_PROPERTYGET, &count, object, OLESTR("Count"), 0))) {
        MessageBoxA(nullptr, "IDispatch Count Not Found", kErrorCaption, MB_SETFOREGROUND);
        return 0;
    }
    return count.lVal;
}

void CMSExcel::GetRangeCount(Excel9::Range range, int& rows, int& columns)
{
    const COleDispatchDriver allRows(range.GetRows());
    rows = GetPropertyCount(allRows.m_lpDispatch);
    const COleDispatchDriver allColumns(range.GetColumns());
    columns = GetPropertyCount(allColumns.m_lpDispatch);
    range.ReleaseDispatch();
}
