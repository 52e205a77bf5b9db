// Dialogs.
//
//   class CSizeDlg : public CDialog {
//   public:
//       explicit CSizeDlg(CWnd* parent) : CDialog(IDD_SIZE, parent) {}
//   protected:
//       void DoDataExchange(CDataExchange* exchange) override;
//   };
//   CSizeDlg dialog(parent);
//   if (dialog.DoModal() == IDOK) ...
//
// Templates are those of the program and its extension libraries (AfxFindResourceHandle). A template at the
// place 0, 0 without DS_CENTER, DS_CENTERMOUSE or DS_ABSALIGN is shown in the middle of its owner.
// Differs: no help identifiers, no controls from outside libraries, no initial list entries from resources.
#pragma once

#include "afxwnd_.h"

// A dialog's Create hides that of a plain window, and is meant to.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"

class AFX_CORE_CLASS CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)
    DECLARE_MESSAGE_MAP()
public:
    // For Create, CreateIndirect or InitModalIndirect.
    CDialog() = default;
    // For DoModal. The name is copied. `parent` null: the application's main window.
    explicit CDialog(LPCSTR templateName, CWnd* parent = nullptr);
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    ~CDialog() override;

    // Modeless. FALSE when there is no such template (then nothing else happens), when the dialog cannot be
    // made, and when OnInitDialog has ended it. `parent` null: the application's main window.
    virtual BOOL Create(LPCSTR templateName, CWnd* parent = nullptr);
    virtual BOOL Create(UINT templateId, CWnd* parent = nullptr);
    virtual BOOL CreateIndirect(LPCDLGTEMPLATEA shape, CWnd* parent = nullptr);

    // DoModal shall take this template, which must live until then.
    BOOL InitModalIndirect(LPCDLGTEMPLATEA shape, CWnd* parent = nullptr);
    // Shows the dialog, its owner disabled, until EndDialog; what that was given. -1 when it cannot be made,
    // when its window goes otherwise, when the thread is to quit, and for a dialog that has a window.
    virtual INT_PTR DoModal();
    // Hides the dialog and ends DoModal with `result`; a modeless dialog is hidden only.
    void EndDialog(int result);

    void MapDialogRect(LPRECT rect) const { ::MapDialogRect(m_hWnd, rect); }
    // Move the keyboard.
    void NextDlgCtrl() const { SendMessage(WM_NEXTDLGCTL); }
    void PrevDlgCtrl() const { SendMessage(WM_NEXTDLGCTL, 1); }
    void GotoDlgCtrl(CWnd* control);
    // The button that Enter presses; the high word is DC_HASDEFID, or the answer 0 without such a button.
    DWORD GetDefID() const { return static_cast<DWORD>(SendMessage(DM_GETDEFID)); }
    void SetDefID(UINT id) { SendMessage(DM_SETDEFID, id); }

    // Fills the controls. TRUE: the keyboard goes to the first control; FALSE: it has been set.
    virtual BOOL OnInitDialog();
    virtual void OnSetFont(CFont* font); // before the controls are made

    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo) override;
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    virtual void OnOK();     // takes the data; ends with IDOK unless one is refused
    virtual void OnCancel(); // ends with IDCANCEL

    // Before and after DoModal's window.
    virtual HWND PreModal(); // the owner
    virtual void PostModal();

    LPCSTR m_lpszTemplateName = nullptr;
    LPCDLGTEMPLATEA m_lpDialogTemplate = nullptr; // InitModalIndirect's
    CWnd* m_pParentWnd = nullptr;
    HWND m_hWndTop = nullptr; // a top-level window besides the owner that DoModal has disabled

private:
    BOOL MakeWindow(LPCDLGTEMPLATEA shape, HWND parent, HINSTANCE module);
    LRESULT OnWmInitDialog(WPARAM wParam, LPARAM lParam);
    LRESULT OnWmSetFont(WPARAM wParam, LPARAM lParam);
    void RunModal(LPCDLGTEMPLATEA shape, HWND owner, HINSTANCE module);
    void EndModal(HWND owner, bool wasEnabled);

    CString m_nameCopy;
    bool m_autoCenter = false;
};

#pragma GCC diagnostic pop
