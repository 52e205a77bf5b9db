// Dialogs for tests, made from templates in memory.
//
//   const DialogTemplate shape({{"EDIT", "", WS_TABSTOP, kEdit}});
//   TestDialog dialog;
//   ASSERT_TRUE(dialog.CreateIndirect(shape.Get()));
#pragma once

#include <afxwin.h>

#include <functional>
#include <string>
#include <vector>

struct TemplateItem {
    std::string className;
    std::string text;
    DWORD style = 0; // besides WS_CHILD and WS_VISIBLE
    WORD id = 0;
};

class DialogTemplate
{
public:
    explicit DialogTemplate(const std::vector<TemplateItem>& items,
                            DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU, short x = 0, short y = 0);

    LPCDLGTEMPLATEA Get() const { return reinterpret_cast<LPCDLGTEMPLATEA>(m_words.data()); }

private:
    void Add(DWORD value);
    void Add(const std::string& text);
    void AddItem(const TemplateItem& item, short row);

    std::vector<WORD> m_words;
};

// A dialog that does what its test says and keeps a list of what happened.
class TestDialog : public CDialog
{
    DECLARE_DYNAMIC(TestDialog)
    DECLARE_MESSAGE_MAP()
public:
    using CDialog::CDialog;
    ~TestDialog() override;

    BOOL OnInitDialog() override;
    using CDialog::OnCancel;
    using CDialog::OnOK;

    std::function<void()> m_atInit;
    std::function<void(CDataExchange*)> m_exchange;
    std::function<void(UINT_PTR)> m_atTimer;
    std::function<void()> m_atAction; // kAction is posted or sent
    std::vector<std::string>* m_log = nullptr;
    std::string m_name = "dialog";
    bool m_deleteItself = false;

    static constexpr UINT kAction = WM_USER + 100;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void PostNcDestroy() override;

    afx_msg void OnDestroy();
    afx_msg void OnTimer(UINT_PTR id);
    LRESULT OnAction(WPARAM wParam, LPARAM lParam);

private:
    void Log(const std::string& what);
};

// Handles what waits in the queue, until it is empty.
void DrainQueue();
