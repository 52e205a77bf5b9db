#include "TestObject.h"

#include <afxole.h>
#include <gmock/gmock.h>

#include <string>

namespace {

constexpr DISPID kMember = 0x123;

const BYTE* Bytes(const char* text)
{
    return reinterpret_cast<const BYTE*>(text);
}

template <class ACTION>
SCODE ThrownCode(ACTION action)
{
    try {
        action();
    } catch (COleException* e) {
        const SCODE sc = e->m_sc;
        e->Delete();
        return sc;
    }
    return S_OK;
}

class DispatchDriver : public testing::Test
{
protected:
    // Answers `value` to the next calls.
    void Answer(const COleVariant& value)
    {
        m_object.m_onCall = [value](const TestObject::Call& call) {
            if (call.result)
                *call.result = COleVariant(value).Detach();
            return S_OK;
        };
    }

    // The only argument that a call with this parameter gives the object.
    template <class VALUE>
    COleVariant ArgumentOf(const char* type, VALUE value)
    {
        COleVariant seen;
        m_object.m_onCall = [&seen](const TestObject::Call& call) {
            EXPECT_EQ(call.arguments->cArgs, 1u);
            seen = call.arguments->rgvarg[0];
            return S_OK;
        };
        m_driver.InvokeHelper(kMember, DISPATCH_METHOD, VT_EMPTY, nullptr, Bytes(type), value);
        return seen;
    }

    TestObject m_object;
    COleDispatchDriver m_driver{&m_object, FALSE};
};

TEST_F(DispatchDriver, ArgumentsTravelWithTheirTypes)
{
    CY amount;
    amount.int64 = 12345;
    const COleVariant inner("inner");
    const COleVariant rows[][2] = {
        {ArgumentOf(VTS_I2, -3), COleVariant(static_cast<short>(-3))},
        {ArgumentOf(VTS_I4, static_cast<LONG>(-70000)), COleVariant(-70000)},
        {ArgumentOf(VTS_R4, 1.5), COleVariant(1.5f)},
        {ArgumentOf(VTS_R8, 0.1), COleVariant(0.1)},
        {ArgumentOf(VTS_BSTR, "t\xC3\xA9xt"), COleVariant("t\xC3\xA9xt")},
        {ArgumentOf(VTS_WBSTR, OLESTR("wide")), COleVariant("wide")},
        {ArgumentOf(VTS_SCODE, static_cast<SCODE>(DISP_E_PARAMNOTFOUND)),
         COleVariant(static_cast<LONG>(DISP_E_PARAMNOTFOUND), VT_ERROR)},
        {ArgumentOf(VTS_BOOL, 256), COleVariant(static_cast<short>(1), VT_BOOL)},
        {ArgumentOf(VTS_BOOL, 0), COleVariant(static_cast<short>(0), VT_BOOL)},
        {ArgumentOf(VTS_VARIANT, static_cast<LPCVARIANT>(inner)), inner},
        {ArgumentOf(VTS_UI1, 200), COleVariant(static_cast<BYTE>(200))},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(row[0] == row[1]) << &row - rows;
    EXPECT_EQ(ArgumentOf(VTS_CY, &amount).cyVal.int64, 12345);
    EXPECT_EQ(ArgumentOf(VTS_DATE, 36526.5).vt, VT_DATE);
    EXPECT_EQ(ArgumentOf(VTS_I8, 1LL << 40).llVal, 1LL << 40);
    EXPECT_EQ(ArgumentOf(VTS_DISPATCH, static_cast<IDispatch*>(&m_object)).pdispVal, &m_object);
    EXPECT_EQ(ArgumentOf(VTS_UNKNOWN, static_cast<IUnknown*>(&m_object)).punkVal,
              static_cast<IUnknown*>(&m_object));
    EXPECT_EQ(m_object.m_references, 1u);
}

TEST_F(DispatchDriver, ReferencesComeBackChanged)
{
    short number = 1;
    double real = 0;
    BOOL truth = 5;
    VARIANT any{};
    m_object.m_onCall = [](const TestObject::Call& call) {
        VARIANT* const last = call.arguments->rgvarg;
        EXPECT_EQ(last[3].vt, VT_BYREF | VT_I2);
        EXPECT_EQ(last[1].vt, VT_BYREF | VT_BOOL);
        EXPECT_EQ(*last[1].pboolVal, VARIANT_TRUE);
        *last[3].piVal = 7;
        *last[2].pdblVal = 2.5;
        *last[1].pboolVal = VARIANT_TRUE;
        *last[0].pvarVal = COleVariant(8).Detach();
        return S_OK;
    };
    m_driver.InvokeHelper(kMember, DISPATCH_METHOD, VT_EMPTY, nullptr,
                          Bytes(VTS_PI2 VTS_PR8 VTS_PBOOL VTS_PVARIANT), &number, &real, &truth, &any);
    EXPECT_EQ(number, 7);
    EXPECT_EQ(real, 2.5);
    EXPECT_EQ(truth, TRUE);
    EXPECT_EQ(any.lVal, 8);
}

TEST_F(DispatchDriver, ManyArgumentsArriveLastFirst)
{
    std::string seen;
    m_object.m_onCall = [&](const TestObject::Call& call) {
        EXPECT_EQ(call.arguments->cNamedArgs, 0u);
        for (UINT i = call.arguments->cArgs; i-- > 0;)
            seen += std::to_string(call.arguments->rgvarg[i].lVal).append(" ");
        return S_OK;
    };
    m_driver.InvokeHelper(kMember, DISPATCH_METHOD, VT_EMPTY, nullptr,
                          Bytes(VTS_I4 VTS_I4 VTS_I4 VTS_I4 VTS_I4 VTS_I4 VTS_I4 VTS_I4 VTS_I4 VTS_I4 VTS_I4
                                    VTS_I4 VTS_I4 VTS_I4 VTS_I4 VTS_I4 VTS_I4 VTS_I4),
                          1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18);
    EXPECT_EQ(seen, "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 ");
}

TEST_F(DispatchDriver, PropertiesArePutByValueAndObjectsByReference)
{
    WORD kind = 0;
    m_object.m_onCall = [&](const TestObject::Call& call) {
        kind = call.kind;
        EXPECT_EQ(call.arguments->cNamedArgs, 1u);
        EXPECT_EQ(call.arguments->rgdispidNamedArgs[0], DISPID_PROPERTYPUT);
        return S_OK;
    };
    m_driver.SetProperty(kMember, VT_BSTR, "text");
    EXPECT_EQ(kind, DISPATCH_PROPERTYPUT);
    m_driver.SetProperty(kMember, VT_DISPATCH, static_cast<IDispatch*>(&m_object));
    EXPECT_EQ(kind, DISPATCH_PROPERTYPUTREF);
}

TEST_F(DispatchDriver, ResultsAreConverted)
{
    CString text("before");
    Answer(COleVariant("t\xC3\xA9xt"));
    m_driver.GetProperty(kMember, VT_BSTR, &text);
    EXPECT_EQ(text, "t\xC3\xA9xt");
    Answer(COleVariant(42));
    m_driver.GetProperty(kMember, VT_BSTR, &text);
    EXPECT_EQ(text, "42");

    double real = 0;
    m_driver.GetProperty(kMember, VT_R8, &real);
    EXPECT_EQ(real, 42.0);
    short whole = 0;
    m_driver.GetProperty(kMember, VT_I2, &whole);
    EXPECT_EQ(whole, 42);
    BOOL truth = -7;
    m_driver.GetProperty(kMember, VT_BOOL, &truth);
    EXPECT_EQ(truth, TRUE);

    VARIANT object{};
    object.vt = VT_DISPATCH;
    object.pdispVal = &m_object;
    Answer(object);
    LPDISPATCH result = nullptr;
    m_driver.GetProperty(kMember, VT_DISPATCH, &result);
    EXPECT_EQ(result, &m_object);
    const ULONG held = m_object.m_references;
    result->Release();
    EXPECT_EQ(m_object.m_references, held - 1);
}

TEST_F(DispatchDriver, FailuresThrowAndLeaveTheResult)
{
    LONG number = 5;
    const auto read = [&] { m_driver.GetProperty(kMember, VT_I4, &number); };
    Answer(COleVariant("no number"));
    EXPECT_EQ(ThrownCode(read), static_cast<SCODE>(DISP_E_TYPEMISMATCH));
    m_object.m_onCall = [](const TestObject::Call&) { return DISP_E_MEMBERNOTFOUND; };
    EXPECT_EQ(ThrownCode(read), static_cast<SCODE>(DISP_E_MEMBERNOTFOUND));
    EXPECT_EQ(number, 5);
    EXPECT_EQ(ThrownCode([&] {
                  m_driver.InvokeHelper(kMember, DISPATCH_METHOD, VT_EMPTY, nullptr, Bytes(VTS_BSTR "\x3F"),
                                        "text", 1);
              }),
              static_cast<SCODE>(DISP_E_BADVARTYPE));
    m_driver.ReleaseDispatch();
    EXPECT_EQ(ThrownCode(read), static_cast<SCODE>(CO_E_OBJNOTCONNECTED));
}

TEST_F(DispatchDriver, WhatTheObjectRaisesIsTold)
{
    m_object.m_onCall = [](const TestObject::Call& call) {
        call.raised->wCode = 1004;
        call.raised->dwHelpContext = 77;
        call.raised->bstrSource = SysAllocString(OLESTR("Source"));
        call.raised->pfnDeferredFillIn = [](EXCEPINFO* info) -> HRESULT {
            info->bstrDescription = SysAllocString(OLESTR("It cannot be done."));
            info->bstrHelpFile = SysAllocString(OLESTR("help.chm"));
            return S_OK;
        };
        return DISP_E_EXCEPTION;
    };
    try {
        m_driver.InvokeHelper(kMember, DISPATCH_METHOD, VT_EMPTY, nullptr, VTS_NONE);
        ADD_FAILURE() << "nothing thrown";
    } catch (COleDispatchException* e) {
        EXPECT_EQ(e->m_wCode, 1004);
        EXPECT_EQ(e->m_scError, S_OK);
        EXPECT_EQ(e->m_strSource, "Source");
        EXPECT_EQ(e->m_strDescription, "It cannot be done.");
        EXPECT_EQ(e->m_strHelpFile, "help.chm");
        EXPECT_EQ(e->m_dwHelpContext, 77u);
        e->Delete();
    }
}

TEST_F(DispatchDriver, HoldsOneReferenceEach)
{
    {
        m_object.AddRef();
        COleDispatchDriver own(&m_object);
        COleDispatchDriver copy(own);
        COleDispatchDriver assigned;
        assigned = copy;
        assigned = assigned;
        EXPECT_EQ(m_object.m_references, 4u);
        COleDispatchDriver(m_driver).ReleaseDispatch();
        EXPECT_EQ(m_object.m_references, 4u) << "a copy of a driver that holds none has one of its own";
        copy.DetachDispatch()->Release();
        EXPECT_EQ(copy.m_lpDispatch, nullptr);
        assigned.AttachDispatch(nullptr);
        EXPECT_EQ(m_object.m_references, 2u);
        own.AttachDispatch(&m_object, FALSE);
        EXPECT_EQ(m_object.m_references, 1u);
    }
    EXPECT_EQ(m_object.m_references, 1u);
}

TEST_F(DispatchDriver, ClassesThatNobodyServesAreToldInTheError)
{
    ASSERT_TRUE(AfxOleInit());
    static const struct {
        const char* name;
        HRESULT error;
    } kRows[] = {
        {"No.Such.Program.Anywhere", CO_E_CLASSSTRING},
        {"{5B4C1E70-3D0F-4C52-9A11-276E408DC3FF}", REGDB_E_CLASSNOTREG},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        COleException error;
        EXPECT_FALSE(m_driver.CreateDispatch(row.name, &error));
        EXPECT_EQ(error.m_sc, static_cast<SCODE>(row.error));
        EXPECT_FALSE(m_driver.CreateDispatch(row.name));
        EXPECT_EQ(m_driver.m_lpDispatch, &m_object) << "a failure changes nothing";
    }
}

TEST(OleInit, ThreadsHaveAFilterWhileOleRuns)
{
    ASSERT_TRUE(AfxOleInit());
    ASSERT_TRUE(AfxOleInit());
    COleMessageFilter* const filter = AfxOleGetMessageFilter();
    ASSERT_NE(filter, nullptr);
    EXPECT_TRUE(filter->IsBusyDialogEnabled());
    filter->EnableNotRespondingDialog(FALSE);
    EXPECT_FALSE(AfxOleGetMessageFilter()->IsNotRespondingDialogEnabled());
    AfxOleTerm(TRUE);
    EXPECT_EQ(AfxOleGetMessageFilter(), filter);
    AfxOleTerm();
    EXPECT_EQ(AfxOleGetMessageFilter(), nullptr);
    AfxOleTerm();
}

TEST(OleInit, ABusyProgramIsAskedAgainForAWhile)
{
    ASSERT_TRUE(AfxOleInit());
    LPMESSAGEFILTER filter = nullptr;
    ASSERT_EQ(CoRegisterMessageFilter(nullptr, &filter), S_OK);
    ASSERT_NE(filter, nullptr);
    const DWORD giveUp = static_cast<DWORD>(-1);
    EXPECT_NE(filter->RetryRejectedCall(nullptr, 0, SERVERCALL_RETRYLATER), giveUp);
    EXPECT_NE(filter->RetryRejectedCall(nullptr, 9999, SERVERCALL_RETRYLATER), giveUp);
    EXPECT_EQ(filter->RetryRejectedCall(nullptr, 10000, SERVERCALL_RETRYLATER), giveUp);
    EXPECT_EQ(filter->RetryRejectedCall(nullptr, 0, SERVERCALL_REJECTED), giveUp);
    AfxOleGetMessageFilter()->SetRetryReply(0);
    EXPECT_EQ(filter->RetryRejectedCall(nullptr, 0, SERVERCALL_RETRYLATER), giveUp);
    EXPECT_EQ(filter->MessagePending(nullptr, 0, 0), static_cast<DWORD>(PENDINGMSG_WAITDEFPROCESS));
    EXPECT_EQ(filter->HandleInComingCall(0, nullptr, 0, nullptr), static_cast<DWORD>(SERVERCALL_ISHANDLED));
    AfxOleTerm();
    filter->Release();
}

} // namespace
