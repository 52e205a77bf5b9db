#include <afxwin.h>

#include "Boxes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

// An application that keeps what its boxes would show.
class App : public CWinApp
{
public:
    using CWinApp::CWinApp;

    int DoMessageBox(LPCSTR text, UINT style, UINT helpContext) override
    {
        m_text = text;
        m_style = style;
        m_help = helpContext;
        return IDNO;
    }

    CString m_text;
    UINT m_style = 0;
    UINT m_help = 0;
};

void ExpectProfileWorks(CWinApp& app)
{
    EXPECT_STREQ("default", app.GetProfileString("Sec", "Text", "default"));
    EXPECT_STREQ("", app.GetProfileString("Sec", "Text"));
    EXPECT_EQ(7U, app.GetProfileInt("Sec", "Number", 7));
    EXPECT_TRUE(app.WriteProfileString("Sec", "Text", "some text"));
    EXPECT_TRUE(app.WriteProfileInt("Sec", "Number", -12));
    EXPECT_STREQ("some text", app.GetProfileString("sec", "TEXT", "default"));
    EXPECT_EQ(static_cast<UINT>(-12), app.GetProfileInt("Sec", "Number", 7));

    BYTE stored[] = {0, 1, 0x7F, 0x80, 0xFF};
    EXPECT_TRUE(app.WriteProfileBinary("Sec", "Bytes", stored, sizeof stored));
    LPBYTE read = nullptr;
    UINT size = 0;
    ASSERT_TRUE(app.GetProfileBinary("Sec", "Bytes", &read, &size));
    EXPECT_EQ(std::string(stored, stored + sizeof stored), std::string(read, read + size));
    delete[] read;
    EXPECT_FALSE(app.GetProfileBinary("Sec", "None", &read, &size));
    EXPECT_EQ(nullptr, read);
    EXPECT_EQ(0U, size);

    const std::string longText(9000, 'x');
    EXPECT_TRUE(app.WriteProfileString("Sec", "Long", longText.c_str()));
    EXPECT_STREQ(longText.c_str(), app.GetProfileString("Sec", "Long"));

    EXPECT_TRUE(app.WriteProfileString("Sec", "Text", nullptr));
    EXPECT_STREQ("default", app.GetProfileString("Sec", "Text", "default"));
    EXPECT_EQ(static_cast<UINT>(-12), app.GetProfileInt("Sec", "Number", 7));
    EXPECT_TRUE(app.WriteProfileString("Sec", nullptr, nullptr));
    EXPECT_EQ(7U, app.GetProfileInt("Sec", "Number", 7));
}

} // namespace

TEST(CWinApp, IsFoundWhileItLives)
{
    EXPECT_EQ(nullptr, AfxGetApp());
    EXPECT_EQ(nullptr, AfxGetThread());
    EXPECT_STREQ("platform_afx_test", AfxGetAppName());
    {
        App app("Given Name");
        EXPECT_EQ(&app, AfxGetApp());
        EXPECT_STREQ("Given Name", AfxGetAppName());
        EXPECT_STREQ("platform_afx_test", app.m_pszExeName);
        EXPECT_EQ(AfxGetInstanceHandle(), app.m_hInstance);
        EXPECT_TRUE(app.InitInstance());
        EXPECT_EQ(0, app.Run());
    }
    EXPECT_EQ(nullptr, AfxGetApp());
    EXPECT_EQ(nullptr, AfxGetMainWnd());
}

TEST(CWinApp, KeepsItsProfileInAFile)
{
    App app;
    EXPECT_STREQ("platform_afx_test.INI", app.m_pszProfileName);
    ExpectProfileWorks(app);
}

TEST(CWinApp, KeepsItsProfileInTheRegistry)
{
    App app("Given Name");
    app.SetRegistryKey("ZEK afx test");
    ExpectProfileWorks(app);
    EXPECT_TRUE(app.WriteProfileString("Sec", "Text", "seen"));
    HKEY key = nullptr;
    EXPECT_EQ(ERROR_SUCCESS, ::RegOpenKeyExA(HKEY_CURRENT_USER, "Software\\ZEK afx test\\Given Name\\Sec", 0,
                                             KEY_READ, &key));
    ::RegCloseKey(key);

    // Values of another kind or size count as missing.
    const BYTE wide[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    ASSERT_EQ(ERROR_SUCCESS, ::RegCreateKeyExA(HKEY_CURRENT_USER, "Software\\ZEK afx test\\Given Name\\Sec",
                                               0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr));
    EXPECT_EQ(ERROR_SUCCESS, ::RegSetValueExA(key, "Wide", 0, REG_DWORD, wide, sizeof wide));
    EXPECT_EQ(ERROR_SUCCESS, ::RegSetValueExA(key, "Open", 0, REG_SZ, wide, 3));
    ::RegCloseKey(key);
    EXPECT_EQ(9U, app.GetProfileInt("Sec", "Wide", 9));
    EXPECT_EQ(9U, app.GetProfileInt("Sec", "Text", 9));
    EXPECT_STREQ("none", app.GetProfileString("Sec", "Wide", "none"));
    EXPECT_STREQ("\1\2\3", app.GetProfileString("Sec", "Open"));
    EXPECT_TRUE(app.WriteProfileString("Sec", nullptr, nullptr));
    ::RegDeleteKeyA(HKEY_CURRENT_USER, "Software\\ZEK afx test\\Given Name");
    ::RegDeleteKeyA(HKEY_CURRENT_USER, "Software\\ZEK afx test");
}

TEST(AfxMessageBox, AsksTheApplication)
{
    App app;
    EXPECT_EQ(IDNO, AfxMessageBox("text", MB_YESNO | MB_ICONHAND, 3));
    EXPECT_STREQ("text", app.m_text);
    EXPECT_EQ(static_cast<UINT>(MB_YESNO | MB_ICONHAND), app.m_style);
    EXPECT_EQ(3U, app.m_help);
    EXPECT_EQ(IDNO, AfxMessageBox("other"));
    EXPECT_EQ(0U, app.m_style | app.m_help);
    EXPECT_EQ(IDNO, CFileException(CFileException::diskFull, -1, "part").ReportError(MB_OKCANCEL));
    EXPECT_NE(-1, app.m_text.Find("part"));
    EXPECT_EQ(static_cast<UINT>(MB_OKCANCEL), app.m_style);
}

TEST(AfxMessageBox, ChoosesTheIconByTheButtons)
{
    const struct {
        UINT asked;
        UINT shown;
        int answer;
    } kRows[] = {
        {MB_OK, MB_OK | MB_ICONEXCLAMATION, IDOK},
        {MB_OKCANCEL, MB_OKCANCEL | MB_ICONEXCLAMATION, IDCANCEL},
        {MB_YESNO, MB_YESNO | MB_ICONEXCLAMATION, IDNO},
        {MB_YESNOCANCEL, MB_YESNOCANCEL | MB_ICONEXCLAMATION, IDYES},
        {MB_RETRYCANCEL, MB_RETRYCANCEL, IDRETRY},
        {MB_ABORTRETRYIGNORE, MB_ABORTRETRYIGNORE, IDIGNORE},
        {MB_YESNO | MB_ICONQUESTION, MB_YESNO | MB_ICONQUESTION, IDYES},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.asked);
        const BoxCatcher boxes(row.answer);
        EXPECT_EQ(row.answer, AfxMessageBox("text", row.asked));
        ASSERT_EQ(1U, boxes.Caught().size());
        EXPECT_EQ("text", boxes.Caught()[0].text);
        EXPECT_EQ("platform_afx_test", boxes.Caught()[0].caption);
        EXPECT_EQ(row.shown, boxes.Caught()[0].style);
    }
}
