#include "RecordingServer.h"

#include "ProgramEntry.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

constexpr const char* kProgram = "Excel.Application";
constexpr CLSID kServerClass = {0x5b4c1e70, 0x3d0f, 0x4c52, {0x9a, 0x11, 0x27, 0x6e, 0x40, 0x8d, 0xc3, 0x01}};
constexpr const char* kServerClassText = "{5B4C1E70-3D0F-4C52-9A11-276E408DC301}";
constexpr const char* kNobodysClassText = "{5B4C1E70-3D0F-4C52-9A11-276E408DC302}";

constexpr DISPID kCount = 0x76;
constexpr DISPID kName = 0x6E;

using Sheet = std::shared_ptr<std::string>;

// Members that answer an object: owner, identifier, class of the answer.
constexpr struct {
    const char* owner;
    DISPID id;
    const char* answer;
} kObjects[] = {
    {"App", 0x23C, "Books"},     {"App", 0x1AE, "Windows"},     {"App", 0x2F7, "Window"},
    {"Books", 0xB5, "Book"},     {"Books", 0x2AA, "Book"},      {"Books", 0xAA, "Book"},
    {"Book", 0x1E5, "Sheets"},   {"Book", 0x1ED, "Styles"},     {"Sheet", 0xC5, "Range"},
    {"Sheet", 0xEE, "Cells"},    {"Sheet", 0x19C, "UsedRange"}, {"Sheet", 0x3E6, "PageSetup"},
    {"Sheet", 0x58A, "Breaks"},  {"Range", 0x102, "Rows"},      {"Range", 0xF1, "Columns"},
    {"Range", 0xF6, "Columns"},  {"Range", 0x92, "Font"},       {"Range", 0x81, "Interior"},
    {"Range", 0x1B3, "Borders"}, {"Borders", 0xAA, "Border"},   {"Styles", 0xB5, "Style"},
    {"Styles", 0xAA, "Style"},   {"Style", 0x92, "Font"},       {"Breaks", 0xB5, "Break"},
    {"Breaks", 0xAA, "Break"},
};

std::string Narrow(BSTR text)
{
    return std::string(CString(text ? text : OLESTR("")));
}

std::string Quoted(std::string text)
{
    text.insert(text.begin(), '"');
    text.push_back('"');
    return text;
}

std::string Format(const char* format, double value)
{
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

} // namespace

struct RecordingServer::State {
    std::vector<std::string> calls;
    std::map<std::string, COleVariant> answers;
    std::map<std::string, std::string> objects;
    std::map<std::string, std::pair<Fault, int>> faults;
    std::vector<Sheet> sheets;
    int added = 0;
    int live = 0;
    int instances = 0;

    std::vector<Sheet>::iterator Find(const VARIANT& index);
};

std::vector<Sheet>::iterator RecordingServer::State::Find(const VARIANT& index)
{
    if (index.vt == VT_I2)
        return index.iVal >= 1 && index.iVal <= static_cast<int>(sheets.size())
                   ? sheets.begin() + index.iVal - 1
                   : sheets.end();
    const std::string name = index.vt == VT_BSTR ? Narrow(index.bstrVal) : "";
    return std::find_if(sheets.begin(), sheets.end(), [&](const Sheet& sheet) { return *sheet == name; });
}

namespace {

using State = RecordingServer::State;

class Object final : public IDispatch
{
public:
    Object(std::shared_ptr<State> state, std::string kind, Sheet sheet = nullptr)
        : m_state(std::move(state)), m_kind(std::move(kind)), m_sheet(std::move(sheet))
    {
        ++m_state->live;
    }
    ~Object() { --m_state->live; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        *object = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID lcid, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID lcid, WORD kind, DISPPARAMS* call,
                                     VARIANT* result, EXCEPINFO* raised, UINT* badArgument) override;

private:
    // The objects that behave as a range are ranges for the tables.
    std::string Kind() const
    {
        return m_kind == "Cells" || m_kind == "UsedRange" || m_kind == "Columns" || m_kind == "Rows" ? "Range"
                                                                                                     : m_kind;
    }
    std::string Label() const { return m_sheet ? m_kind + "(" + *m_sheet + ")" : m_kind; }
    std::string Member(DISPID id) const
    {
        char buffer[24];
        std::snprintf(buffer, sizeof buffer, " 0x%X", static_cast<unsigned>(id));
        return m_kind + buffer;
    }
    void Record(DISPID id, LCID lcid, WORD kind, const DISPPARAMS& call);
    COleVariant Reply(DISPID id, WORD kind, const DISPPARAMS& call);
    COleVariant SheetsReply(DISPID id, const DISPPARAMS& call);
    void ChangeSheets(DISPID id, WORD kind, const DISPPARAMS& call);

    std::shared_ptr<State> m_state;
    std::string m_kind;
    Sheet m_sheet;
    ULONG m_references = 1;
};

COleVariant ObjectValue(Object* object)
{
    VARIANT value{};
    value.vt = VT_DISPATCH;
    value.pdispVal = object;
    COleVariant owner;
    owner.Attach(value);
    return owner;
}

std::string Describe(const VARIANT& value)
{
    switch (value.vt) {
    case VT_EMPTY:
        return "empty";
    case VT_I2:
        return Format("i2 %.0f", value.iVal);
    case VT_I4:
        return Format("i4 %.0f", value.lVal);
    case VT_R8:
        return Format("r8 %.17g", value.dblVal);
    case VT_BOOL:
        return value.boolVal == VARIANT_TRUE ? "bool true" : value.boolVal == 0 ? "bool false" : "bool odd";
    case VT_BSTR:
        return Quoted(Narrow(value.bstrVal));
    case VT_DISPATCH:
        return value.pdispVal ? "object" : "null object";
    case VT_ERROR:
        return value.scode == static_cast<SCODE>(DISP_E_PARAMNOTFOUND) ? "opt" : "error";
    default:
        return Format("vt %.0f", value.vt);
    }
}

const char* KindText(WORD kind)
{
    switch (kind) {
    case DISPATCH_METHOD:
        return "call";
    case DISPATCH_PROPERTYGET:
        return "get";
    case DISPATCH_PROPERTYPUT:
        return "put";
    case DISPATCH_PROPERTYPUTREF:
        return "putref";
    default:
        return "mixed";
    }
}

bool IsPut(WORD kind)
{
    return kind == DISPATCH_PROPERTYPUT || kind == DISPATCH_PROPERTYPUTREF;
}

void Object::Record(DISPID id, LCID lcid, WORD kind, const DISPPARAMS& call)
{
    const std::string member = Member(id);
    std::string text = Label() + member.substr(m_kind.size()) + " " + KindText(kind);
    for (UINT i = call.cArgs; i-- > 0;)
        text.append(" ").append(Describe(call.rgvarg[i]));
    const bool putNamed = call.cNamedArgs == 1 && call.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    if (lcid != 0)
        text += Format(" (locale %.0f)", lcid);
    if (IsPut(kind) != putNamed)
        text += " (named arguments wrong)";
    m_state->calls.push_back(text);
}

HRESULT STDMETHODCALLTYPE Object::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID lcid, DISPID* ids)
{
    const std::string name = Narrow(names[0]);
    m_state->calls.push_back(Label() + " id of " + name + (lcid == 0x400 ? "" : " (locale wrong)"));
    *ids = name == "Count" ? kCount : DISPID_UNKNOWN;
    return *ids == kCount ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT STDMETHODCALLTYPE Object::Invoke(DISPID id, REFIID, LCID lcid, WORD kind, DISPPARAMS* call,
                                         VARIANT* result, EXCEPINFO* raised, UINT*)
{
    Record(id, lcid, kind, *call);
    const auto fault = m_state->faults.find(Member(id));
    if (fault != m_state->faults.end() && fault->second.second-- > 0) {
        const HRESULT hr = fault->second.first(raised);
        if (FAILED(hr))
            return hr;
    }
    const auto answer = m_state->answers.find(Member(id));
    COleVariant value =
        IsPut(kind) || answer == m_state->answers.end() ? Reply(id, kind, *call) : answer->second;
    if (result)
        *result = value.Detach();
    return S_OK;
}

COleVariant Object::Reply(DISPID id, WORD kind, const DISPPARAMS& call)
{
    if (m_kind == "Sheets")
        return SheetsReply(id, call);
    if (m_kind == "Sheet" && (IsPut(kind) || kind == DISPATCH_METHOD))
        ChangeSheets(id, kind, call);
    if (IsPut(kind))
        return COleVariant();
    if (m_state->objects.count(Member(id)))
        return ObjectValue(new Object(m_state, m_state->objects[Member(id)]));
    if (m_kind == "Sheet" && id == kName)
        return COleVariant(m_sheet->c_str());
    for (const auto& row : kObjects)
        if (Kind() == row.owner && id == row.id)
            return ObjectValue(new Object(m_state, row.answer));
    return COleVariant();
}

COleVariant Object::SheetsReply(DISPID id, const DISPPARAMS& call)
{
    auto& sheets = m_state->sheets;
    if (id == kCount)
        return COleVariant(static_cast<LONG>(sheets.size()));
    if (id == 0xB5) {
        sheets.insert(sheets.begin(), std::make_shared<std::string>(Format("New%.0f", ++m_state->added)));
        return ObjectValue(new Object(m_state, "Sheet", sheets.front()));
    }
    const auto found = id == 0xAA && call.cArgs == 1 ? m_state->Find(call.rgvarg[0]) : sheets.end();
    return found == sheets.end() ? COleVariant() : ObjectValue(new Object(m_state, "Sheet", *found));
}

// `After` is the second argument of a move or copy, so it comes first.
void Object::ChangeSheets(DISPID id, WORD kind, const DISPPARAMS& call)
{
    auto& sheets = m_state->sheets;
    if (kind == DISPATCH_PROPERTYPUT && id == kName) {
        *m_sheet = Narrow(call.rgvarg[0].bstrVal);
        return;
    }
    const auto own = std::find(sheets.begin(), sheets.end(), m_sheet);
    if (id == 0x75 && own != sheets.end())
        sheets.erase(own);
    if ((id != 0x27D && id != 0x227) || call.rgvarg[0].vt != VT_DISPATCH)
        return;
    const Sheet after = static_cast<Object*>(call.rgvarg[0].pdispVal)->m_sheet;
    const Sheet moved = id == 0x27D ? m_sheet : std::make_shared<std::string>(*m_sheet + " (2)");
    if (id == 0x27D)
        sheets.erase(own);
    const auto place = std::find(sheets.begin(), sheets.end(), after);
    sheets.insert(place == sheets.end() ? place : place + 1, moved);
}

class Factory final : public IClassFactory
{
public:
    explicit Factory(std::shared_ptr<State> state) : m_state(std::move(state)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        *object = iid == IID_IUnknown || iid == IID_IClassFactory ? this : nullptr;
        return *object ? S_OK : E_NOINTERFACE;
    }
    // It lives as long as its registration.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override
    {
        ++m_state->instances;
        const COleVariant made = ObjectValue(new Object(m_state, "App"));
        return made.pdispVal->QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    std::shared_ptr<State> m_state;
};

} // namespace

class RecordingServer::Registration
{
public:
    explicit Registration(std::shared_ptr<State> state) : m_factory(std::move(state))
    {
        CoRegisterClassObject(kServerClass, &m_factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_cookie);
    }
    ~Registration() { CoRevokeClassObject(m_cookie); }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

private:
    Factory m_factory;
    ProgramEntry m_entry{kProgram, kServerClassText};
    DWORD m_cookie = 0;
};

RecordingServer::RecordingServer()
    : m_state(std::make_shared<State>()), m_registration(std::make_unique<Registration>(m_state))
{
    SetSheetNames({"Sheet1", "Sheet2", "Sheet3"});
    Answer("Rows 0x76", COleVariant(static_cast<LONG>(4)));
    Answer("Columns 0x76", COleVariant(static_cast<LONG>(3)));
    Answer("Breaks 0x76", COleVariant(static_cast<LONG>(2)));
    Answer("Book 0x6E", COleVariant("Book1"));
    Answer("Range 0x7A", COleVariant(48.0));
    Answer("Range 0x7B", COleVariant(12.75));
    Answer("Range 0x7F", COleVariant(96.0));
    Answer("Range 0x7E", COleVariant(25.5));
}

RecordingServer::~RecordingServer() = default;

std::vector<std::string> RecordingServer::TakeCalls()
{
    return std::exchange(m_state->calls, {});
}

void RecordingServer::AnswerObject(const std::string& member, const std::string& kind)
{
    m_state->objects[member] = kind;
}

int RecordingServer::LiveObjects() const
{
    return m_state->live;
}

int RecordingServer::Instances() const
{
    return m_state->instances;
}

void RecordingServer::Answer(const std::string& member, const COleVariant& value)
{
    m_state->answers[member] = value;
}

void RecordingServer::FailNext(const std::string& member, Fault fault, int times)
{
    m_state->faults[member] = {std::move(fault), times};
}

std::vector<std::string> RecordingServer::SheetNames() const
{
    std::vector<std::string> names;
    for (const Sheet& sheet : m_state->sheets)
        names.push_back(*sheet);
    return names;
}

void RecordingServer::SetSheetNames(const std::vector<std::string>& names)
{
    m_state->sheets.clear();
    for (const std::string& name : names)
        m_state->sheets.push_back(std::make_shared<std::string>(name));
}

HRESULT RaiseProgramError(EXCEPINFO* raised)
{
    raised->scode = static_cast<SCODE>(0x800A03EC);
    raised->bstrSource = SysAllocString(OLESTR("Recorder"));
    raised->bstrDescription = SysAllocString(OLESTR("It cannot be done."));
    return DISP_E_EXCEPTION;
}

class MissingServer::Entry : public ProgramEntry
{
public:
    Entry() : ProgramEntry(kProgram, kNobodysClassText) {}
};

MissingServer::MissingServer() : m_entry(std::make_unique<Entry>())
{
}

MissingServer::~MissingServer() = default;
