// Documents and their views.
//
//   class CModelView : public CView { void OnDraw(CDC* dc) override; void OnUpdate(CView*, LPARAM, CObject*)
//   override; }; document.AddView(&view); document.UpdateAllViews(&view, kNodesMoved);      // OnUpdate of
//   every other view
//
// Both work without windows as well. Ownership: a view knows its document and is taken out of it when it
// ends; a document that ends lets its views go. A view's window deletes the view as it ends. Threads:
// documents and views belong to one thread. Differs: no serialization, no templates, no printing. Nothing is
// painted by messages, so OnDraw is called only by who wants the view drawn into a device context.
#pragma once

#include "afxcoll.h"
#include "afxwnd_.h"

class CDC;
class CDocument;
class CFrameWnd;

class AFX_CORE_CLASS CView : public CWnd
{
    DECLARE_DYNAMIC(CView)
    DECLARE_MESSAGE_MAP()
public:
    ~CView() override;

    CDocument* GetDocument() const { return m_pDocument; } // null without one
    virtual void OnInitialUpdate();                        // the first OnUpdate, without a hint

    BOOL PreCreateWindow(CREATESTRUCTA& description) override;
    // Asks the view, then its document.
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo) override;

protected:
    friend class CDocument;
    friend class CFrameWnd;
    friend class CMDIChildWnd;

    CView();

    virtual void OnDraw(CDC* dc) = 0;
    // The document has changed; `sender` and the hints are those of UpdateAllViews. Has the view drawn anew.
    virtual void OnUpdate(CView* sender, LPARAM hint, CObject* hintObject);
    // The view becomes active (the keyboard goes to it if its frame has it) or inactive.
    virtual void OnActivateView(BOOL activate, CView* activateView, CView* deactivateView);
    // The view's frame becomes active or inactive (WA_...).
    virtual void OnActivateFrame(UINT state, CFrameWnd* frame);
    void PostNcDestroy() override; // deletes the object

    afx_msg int OnCreate(LPCREATESTRUCTA description);
    afx_msg void OnDestroy();
    afx_msg LRESULT OnMouseActivate(WPARAM wParam, LPARAM lParam);

    CDocument* m_pDocument = nullptr;
};

class AFX_CORE_CLASS CDocument : public CCmdTarget
{
    DECLARE_DYNAMIC(CDocument)
public:
    CDocument();
    ~CDocument() override;

    // In the order in which they were added.
    void AddView(CView* view);
    void RemoveView(CView* view); // does nothing for a view of another document
    virtual POSITION GetFirstViewPosition() const;
    virtual CView* GetNextView(POSITION& position) const; // null when `position` is
    // Calls OnUpdate of every view but `sender` (null: of every view).
    // A view may leave, or others come, during the call: who has left is not called any more, who came is
    // not.
    void UpdateAllViews(CView* sender, LPARAM hint = 0, CObject* hintObject = nullptr);

    const CString& GetTitle() const { return m_strTitle; }
    virtual void SetTitle(LPCSTR title);
    const CString& GetPathName() const { return m_strPathName; }
    // The path made whole; its file's name becomes the title. Differs: there is no list of recent files.
    virtual void SetPathName(LPCSTR path, BOOL addToRecentFiles = TRUE);
    virtual BOOL IsModified() { return m_bModified; }
    virtual void SetModifiedFlag(BOOL modified = TRUE) { m_bModified = modified; }

    // Empties the document: DeleteContents, no path, not modified. FALSE: could not.
    virtual BOOL OnNewDocument();
    virtual void DeleteContents(); // by default nothing
    // Ends the frames of the views, empties the document and, with m_bAutoDelete, deletes it.
    virtual void OnCloseDocument();
    // Whether the frame may close: asks SaveModified when no other frame shows the document.
    virtual BOOL CanCloseFrame(CFrameWnd* frame);
    // FALSE keeps the document open. Differs: TRUE without a question; who can save overrides it.
    virtual BOOL SaveModified();
    virtual void PreCloseFrame(CFrameWnd* frame);
    // A view came or went. The last one takes a document with m_bAutoDelete along.
    virtual void OnChangedViewList();
    // Numbers the document's frames and writes their captions anew.
    virtual void UpdateFrameCounts();

    BOOL m_bAutoDelete = TRUE;

protected:
    CString m_strTitle;
    CString m_strPathName;
    BOOL m_bModified = FALSE;
    CPtrList m_viewList;

private:
    friend class CFrameWnd;
    bool IsShownOnlyBy(const CFrameWnd* frame) const;
    void DisconnectViews();
};
