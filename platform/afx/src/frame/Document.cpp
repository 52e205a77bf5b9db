#include <afxwin.h>

#include <algorithm>
#include <vector>

// clang-format off
IMPLEMENT_DYNAMIC(CDocument, CCmdTarget)
// clang-format on

namespace {

std::vector<CView*> ViewsOf(const CDocument& document)
{
    std::vector<CView*> views;
    for (POSITION position = document.GetFirstViewPosition(); position;)
        views.push_back(document.GetNextView(position));
    return views;
}

// The frames of the views, each once, in the order of the views.
std::vector<CFrameWnd*> FramesOf(const CDocument& document)
{
    std::vector<CFrameWnd*> frames;
    for (const CView* view : ViewsOf(document)) {
        CFrameWnd* frame = view->GetParentFrame();
        if (frame && std::find(frames.begin(), frames.end(), frame) == frames.end())
            frames.push_back(frame);
    }
    return frames;
}

CString FileNameOf(const CString& path)
{
    int start = 0;
    for (LPCSTR next = path; *next; next = ::CharNext(next))
        if (*next == '\\' || *next == '/' || *next == ':')
            start = static_cast<int>(next - path.GetString()) + 1;
    return path.Mid(start);
}

CString FullPath(LPCSTR path)
{
    constexpr int kLongest = 32768;
    CString whole;
    const DWORD length = ::GetFullPathNameA(path, kLongest, whole.GetBuffer(kLongest), nullptr);
    const bool known = length > 0 && length < kLongest;
    whole.ReleaseBuffer(known ? static_cast<int>(length) : 0);
    return known ? whole : CString(path);
}

} // namespace

CDocument::CDocument() = default;

CDocument::~CDocument()
{
    DisconnectViews();
}

void CDocument::DisconnectViews()
{
    while (!m_viewList.IsEmpty())
        static_cast<CView*>(m_viewList.RemoveHead())->m_pDocument = nullptr;
}

void CDocument::AddView(CView* view)
{
    if (view->m_pDocument == this)
        return;
    if (view->m_pDocument)
        view->m_pDocument->RemoveView(view);
    m_viewList.AddTail(view);
    view->m_pDocument = this;
    OnChangedViewList();
}

void CDocument::RemoveView(CView* view)
{
    const POSITION position = m_viewList.Find(view);
    if (!position)
        return;
    m_viewList.RemoveAt(position);
    view->m_pDocument = nullptr;
    OnChangedViewList();
}

POSITION CDocument::GetFirstViewPosition() const
{
    return m_viewList.GetHeadPosition();
}

CView* CDocument::GetNextView(POSITION& position) const
{
    return position ? static_cast<CView*>(m_viewList.GetNext(position)) : nullptr;
}

void CDocument::UpdateAllViews(CView* sender, LPARAM hint, CObject* hintObject)
{
    for (CView* view : ViewsOf(*this))
        if (view != sender && m_viewList.Find(view))
            view->OnUpdate(sender, hint, hintObject);
}

void CDocument::SetTitle(LPCSTR title)
{
    m_strTitle = title;
    UpdateFrameCounts();
}

void CDocument::SetPathName(LPCSTR path, BOOL)
{
    m_strPathName = FullPath(path);
    SetTitle(FileNameOf(m_strPathName));
}

BOOL CDocument::OnNewDocument()
{
    DeleteContents();
    m_strPathName.Empty();
    SetModifiedFlag(FALSE);
    return TRUE;
}

void CDocument::DeleteContents()
{
}

void CDocument::OnCloseDocument()
{
    const BOOL autoDelete = m_bAutoDelete;
    m_bAutoDelete = FALSE; // the views that go must not take the document along
    for (CFrameWnd* frame : FramesOf(*this)) {
        PreCloseFrame(frame);
        frame->DestroyWindow();
    }
    DisconnectViews(); // views without a window
    DeleteContents();
    m_bAutoDelete = autoDelete;
    if (m_bAutoDelete)
        delete this;
}

bool CDocument::IsShownOnlyBy(const CFrameWnd* frame) const
{
    const auto frames = FramesOf(*this);
    return std::all_of(frames.begin(), frames.end(), [frame](CFrameWnd* shown) { return shown == frame; });
}

BOOL CDocument::CanCloseFrame(CFrameWnd* frame)
{
    return !IsShownOnlyBy(frame) || SaveModified();
}

BOOL CDocument::SaveModified()
{
    return TRUE;
}

void CDocument::PreCloseFrame(CFrameWnd*)
{
}

void CDocument::OnChangedViewList()
{
    if (m_viewList.IsEmpty() && m_bAutoDelete)
        OnCloseDocument();
    else
        UpdateFrameCounts();
}

void CDocument::UpdateFrameCounts()
{
    const auto frames = FramesOf(*this);
    int number = frames.size() > 1 ? 1 : 0;
    for (CFrameWnd* frame : frames) {
        frame->m_nWindow = number > 0 ? number++ : 0;
        frame->OnUpdateFrameTitle(TRUE);
    }
}
