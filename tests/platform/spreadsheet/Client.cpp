#include "Client.h"

#include "spreadsheet/objects/ApplicationObject.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

using namespace zek::office;

namespace {

std::string Hex(HRESULT code)
{
    char text[16];
    std::snprintf(text, sizeof text, "%08X", static_cast<unsigned>(code));
    return text;
}

std::string Narrow(BSTR text)
{
    return ToUtf8({text, SysStringLen(text)});
}

std::string Digits(double number)
{
    char text[40];
    return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Cuts at `separator` outside quotes and parentheses.
std::vector<std::string_view> Split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    int depth = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        quoted ^= text[i] == '\'';
        depth += quoted ? 0 : text[i] == '(' ? 1 : text[i] == ')' ? -1 : 0;
        if (text[i] == separator && !quoted && depth == 0) {
            parts.push_back(text.substr(start, i - start));
            start = i + 1;
        }
    }
    parts.push_back(text.substr(start));
    return parts;
}

std::string ShownArray(SAFEARRAY* array)
{
    LONG rows = 0, columns = 0;
    SafeArrayGetUBound(array, 1, &rows);
    SafeArrayGetUBound(array, 2, &columns);
    std::string text;
    for (LONG row = 1; row <= rows; ++row)
        for (LONG column = 1; column <= columns; ++column) {
            LONG indices[] = {row, column};
            Value element;
            SafeArrayGetElement(array, indices, &*element);
            text += (column > 1 ? ", " : row > 1 ? "; " : "") + Shown(*element);
        }
    return "[" + text + "]";
}

} // namespace

std::string Shown(const VARIANT& value)
{
    switch (value.vt) {
    case VT_EMPTY:
        return "EMPTY";
    case VT_NULL:
        return "NULL";
    case VT_I4:
        return "I4 " + std::to_string(value.lVal);
    case VT_R8:
        return "R8 " + Digits(value.dblVal);
    case VT_DATE:
        return "DATE " + Digits(value.date);
    case VT_CY:
        return "CY " + std::to_string(value.cyVal.int64);
    case VT_BOOL:
        return value.boolVal ? "TRUE" : "FALSE";
    case VT_BSTR:
        return "'" + Narrow(value.bstrVal) + "'";
    case VT_ERROR:
        return "ERROR " + std::to_string(value.scode & 0xFFFF);
    case VT_DISPATCH:
        return value.pdispVal ? "object" : "nothing";
    case VT_ARRAY | VT_VARIANT:
        return ShownArray(value.parray);
    default:
        return "kind " + std::to_string(value.vt);
    }
}

Client::Client()
{
    m_roots["app"] = new ApplicationObject(std::make_shared<Session>());
    Name("wb", "app.Workbooks.Add");
    Name("ws", "wb.Sheets(1)");
}

Client::~Client()
{
    for (const auto& [name, object] : m_roots)
        object->Release();
}

void Client::Name(const std::string& name, std::string_view text)
{
    Value object = Evaluate(text);
    if (IDispatch* const old = std::exchange(m_roots[name], object.Detach().pdispVal))
        old->Release();
}

DISPID Client::MemberId(const std::string& root, std::string_view name)
{
    std::u16string wide = ToUtf16(name);
    LPOLESTR names[] = {wide.data()};
    DISPID id = 0;
    m_roots.at(root)->GetIDsOfNames(IID_NULL, names, 1, 0x800, &id);
    return id;
}

std::string Client::Ask(std::string_view text)
try {
    const std::vector<std::string_view> sides = Split(text, '=');
    if (sides.size() == 1)
        return Shown(*Evaluate(text));
    const std::string_view target = Trimmed(sides[0]);
    const std::vector<std::string_view> parts = Split(target, '.');
    const std::size_t last = static_cast<std::size_t>(parts.back().data() - target.data());
    Value object = Evaluate(last == 0 ? "ws" : target.substr(0, last - 1));
    Call call = ParseCall(parts.back());
    call.arguments.push_back(ParseArgument(Trimmed(sides[1])));
    Invoke(object->pdispVal, call, DISPATCH_PROPERTYPUT);
    return "";
} catch (const Failure& failure) {
    return failure.text;
}

std::string Client::Do(std::string_view text)
{
    const std::string answer = Ask(text);
    return answer.starts_with("error") || answer.starts_with("failed") ? answer : "";
}

Value Client::Evaluate(std::string_view text)
{
    const std::vector<std::string_view> parts = Split(Trimmed(text), '.');
    const auto root = m_roots.find(std::string(parts.front()));
    Value object;
    StoreResult(*object, root == m_roots.end() ? m_roots["ws"] : root->second);
    object->pdispVal->AddRef();
    for (std::size_t i = root == m_roots.end() ? 0 : 1; i < parts.size(); ++i) {
        Call call = ParseCall(parts[i]);
        if (object->vt != VT_DISPATCH || !object->pdispVal)
            throw Failure{"no object before " + call.member};
        // Item is the default member of a collection: Sheets(1).
        const bool indexed =
            !call.arguments.empty() && (call.member == "Sheets" || call.member == "Workbooks" ||
                                        call.member == "Styles" || call.member == "Windows");
        Call plain{call.member, {}};
        object = Invoke(object->pdispVal, indexed ? plain : call, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
        if (indexed) {
            call.member = "Item";
            object = Invoke(object->pdispVal, call, DISPATCH_PROPERTYGET);
        }
    }
    return object;
}

Client::Call Client::ParseCall(std::string_view part)
{
    const std::size_t open = part.find('(');
    Call call{std::string(part.substr(0, open)), {}};
    if (open != part.npos && part.size() > open + 2)
        for (const std::string_view argument : Split(part.substr(open + 1, part.size() - open - 2), ','))
            call.arguments.push_back(ParseArgument(Trimmed(argument)));
    return call;
}

Value Client::ParseArgument(std::string_view text)
{
    Value value;
    double number = 0;
    if (text.front() == '@')
        return Evaluate(text.substr(1));
    if (text.front() == '\'') {
        StoreResult(*value, std::string(text.substr(1, text.size() - 2)));
    } else if (text == "true" || text == "false") {
        StoreResult(*value, text == "true");
    } else if (text == "missing") {
        value->vt = VT_ERROR;
        value->scode = DISP_E_PARAMNOTFOUND;
    } else if (text == "null") {
        value->vt = VT_NULL;
    } else if (text.find_first_of(".eEn") == text.npos) {
        StoreResult(*value, static_cast<LONG>(std::stol(std::string(text))));
    } else {
        std::from_chars(text.data(), text.data() + text.size(), number);
        StoreResult(*value, number);
    }
    return value;
}

Value Client::Invoke(IDispatch* object, Call& call, WORD flags)
{
    DISPID id = 0;
    if (call.member.front() == '#') {
        id = static_cast<DISPID>(std::stol(call.member.substr(1), nullptr, 16));
    } else {
        std::u16string name = ToUtf16(call.member);
        LPOLESTR names[] = {name.data()};
        const HRESULT known = object->GetIDsOfNames(IID_NULL, names, 1, 0x800, &id);
        if (FAILED(known))
            throw Failure{"failed " + Hex(known) + " " + call.member};
    }
    std::vector<VARIANT> reversed;
    for (auto argument = call.arguments.rbegin(); argument != call.arguments.rend(); ++argument)
        reversed.push_back(**argument);
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS params{reversed.data(), &put, static_cast<UINT>(reversed.size()),
                      (flags & DISPATCH_PROPERTYPUT) != 0 ? 1u : 0u};
    Value result;
    EXCEPINFO exception{};
    UINT bad = 99;
    const HRESULT outcome = object->Invoke(id, IID_NULL, 0x400, flags, &params, &*result, &exception, &bad);
    const std::string description = exception.bstrDescription ? Narrow(exception.bstrDescription) : "";
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    if (outcome == DISP_E_EXCEPTION)
        throw Failure{"error " + Hex(exception.scode) + " " + description};
    if (FAILED(outcome))
        throw Failure{"failed " + Hex(outcome) + (bad == 99 ? "" : " argument " + std::to_string(bad))};
    return result;
}
