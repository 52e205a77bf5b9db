#include <afxdisp.h>
#include <gmock/gmock.h>

namespace {

TEST(OleException, TellsTheSystemsTextOrTheNumber)
{
    COleException error;
    char text[200] = "before";
    UINT context = 9;
    error.m_sc = E_OUTOFMEMORY;
    EXPECT_TRUE(error.GetErrorMessage(text, sizeof text, &context));
    EXPECT_NE(CString(text), "");
    EXPECT_EQ(CString(text).FindOneOf("\r\n"), -1);
    EXPECT_EQ(context, 0u);
    error.m_sc = static_cast<SCODE>(0x8FFF1234);
    EXPECT_TRUE(error.GetErrorMessage(text, sizeof text));
    EXPECT_STREQ(text, "Automation error 0x8FFF1234");
    char guarded[12] = "###########";
    EXPECT_TRUE(error.GetErrorMessage(guarded, 11));
    EXPECT_STREQ(guarded, "Automation");
    EXPECT_EQ(guarded[11], '\0');
    EXPECT_FALSE(error.GetErrorMessage(nullptr, 0));
}

TEST(OleException, EveryExceptionHasACode)
{
    COleException ole;
    ole.m_sc = E_ACCESSDENIED;
    COleDispatchException number("", 0, 1004);
    COleDispatchException code("", 0, 0);
    code.m_scError = static_cast<SCODE>(0x800A03EC);
    CMemoryException memory;
    CUserException user;
    const struct {
        const char* label;
        const CException* exception;
        SCODE code;
    } kRows[] = {
        {"OLE", &ole, E_ACCESSDENIED},
        {"raised with a number", &number, static_cast<SCODE>(0x800405EC)},
        {"raised with a code", &code, static_cast<SCODE>(0x800A03EC)},
        {"memory", &memory, E_OUTOFMEMORY},
        {"other", &user, E_UNEXPECTED},
        {"none", nullptr, E_UNEXPECTED},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(COleException::Process(row.exception), row.code);
    }
}

TEST(OleException, CheckThrowsByKind)
{
    EXPECT_NO_THROW(AfxCheckError(S_FALSE));
    try {
        AfxCheckError(E_OUTOFMEMORY);
        ADD_FAILURE() << "nothing thrown";
    } catch (CMemoryException* e) {
        e->Delete();
    }
    try {
        AfxCheckError(E_FAIL);
        ADD_FAILURE() << "nothing thrown";
    } catch (COleException* e) {
        EXPECT_EQ(e->m_sc, E_FAIL);
        e->Delete();
    }
}

TEST(OleException, RaisedOnesTravelThroughExcepInfo)
{
    try {
        AfxThrowOleDispatchException(1004, "cannot", 5);
    } catch (COleDispatchException* e) {
        EXCEPINFO info;
        COleDispatchException::Process(&info, e);
        EXPECT_EQ(info.wCode, 1004);
        EXPECT_EQ(info.dwHelpContext, 5u);
        EXPECT_EQ(CString(info.bstrDescription), "cannot");
        char text[20];
        EXPECT_TRUE(e->GetErrorMessage(text, sizeof text));
        EXPECT_STREQ(text, "cannot");
        for (BSTR owned : {info.bstrSource, info.bstrDescription, info.bstrHelpFile})
            SysFreeString(owned);
        e->Delete();
    }
}

} // namespace
