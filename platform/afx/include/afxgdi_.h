// Device contexts and fonts.
//
//   CClientDC dc(&label);
//   CFont* before = dc.SelectObject(label.GetFont());
//   const CSize size = dc.GetTextExtent(text);
//   dc.SelectObject(before);
//
// Units: logical units of the context's mapping mode, unless a comment says pixels.
// Errors: as the Win32 functions behind them: FALSE, null or 0, and GetLastError.
// Threads: an object belongs to the thread that made it, and so do those that FromHandle answers.
// Differs: what measures and maps is here; nothing draws, and of the drawing objects there is the font.
#pragma once

#include "afxobj_.h"
#include "afxstr_.h"
#include "afxtyp_.h"

class CDC;
class CWnd;

// The owner of an object's handle. Its destructor deletes the handle.
class AFX_CORE_CLASS CGdiObject : public CObject
{
    DECLARE_DYNAMIC(CGdiObject)
public:
    CGdiObject() = default;
    ~CGdiObject() override;

    HGDIOBJ m_hObject = nullptr;

    HGDIOBJ GetSafeHandle() const; // null also for a null object
    operator HGDIOBJ() const { return m_hObject; }
    BOOL operator==(const CGdiObject& object) const { return m_hObject == object.m_hObject; }
    BOOL operator!=(const CGdiObject& object) const { return m_hObject != object.m_hObject; }

    // FALSE for a null handle and for an object that has one.
    BOOL Attach(HGDIOBJ object);
    // The handle, which the object no longer owns.
    HGDIOBJ Detach();
    BOOL DeleteObject();

    int GetObject(int size, LPVOID object) const { return ::GetObject(m_hObject, size, object); }
    BOOL CreateStockObject(int index) { return Attach(::GetStockObject(index)); }

    // Deletes the thread's objects that FromHandle has made, not their handles; done when the program idles.
    static void DeleteTempMap();
};

class AFX_CORE_CLASS CFont : public CGdiObject
{
    DECLARE_DYNAMIC(CFont)
public:
    // The object that owns the handle, or a temporary one, valid until the program idles; null for null.
    static CFont* FromHandle(HFONT font);

    operator HFONT() const { return static_cast<HFONT>(m_hObject); }

    BOOL CreateFontIndirect(const LOGFONT* description);
    BOOL CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic,
                    BYTE underline, BYTE strikeOut, BYTE charSet, BYTE outPrecision, BYTE clipPrecision,
                    BYTE quality, BYTE pitchAndFamily, LPCSTR face);
    // Heights in tenths of a point, made into logical units of `dc` (null: of the screen).
    BOOL CreatePointFont(int pointSize, LPCSTR face, CDC* dc = nullptr);
    BOOL CreatePointFontIndirect(const LOGFONT* description, CDC* dc = nullptr);

    int GetLogFont(LOGFONT* description) const;
};

// A device context. It owns up to two: m_hDC is drawn to, m_hAttribDC is asked for measures; mostly they are
// the same. What sets something sets both; what asks asks m_hAttribDC.
class AFX_CORE_CLASS CDC : public CObject
{
    DECLARE_DYNAMIC(CDC)
public:
    CDC() = default;
    ~CDC() override; // deletes m_hDC

    // The object that owns the handle, or a temporary one, valid until the program idles; null for null.
    static CDC* FromHandle(HDC dc);
    // Deletes the thread's objects that FromHandle has made, not their handles; done when the program idles.
    static void DeleteTempMap();

    HDC m_hDC = nullptr;
    HDC m_hAttribDC = nullptr;
    BOOL m_bPrinting = FALSE;

    HDC GetSafeHdc() const; // null also for a null object
    operator HDC() const { return m_hDC; }
    BOOL IsPrinting() const { return m_bPrinting; }

    // Both contexts. FALSE for a null handle and for an object that has one.
    BOOL Attach(HDC dc);
    // m_hDC, which the object no longer owns; neither is set any more.
    HDC Detach();
    virtual void SetAttribDC(HDC dc) { m_hAttribDC = dc; }
    virtual void ReleaseAttribDC() { m_hAttribDC = nullptr; }
    // Not while the object owns a context.
    virtual void SetOutputDC(HDC dc) { m_hDC = dc; }
    virtual void ReleaseOutputDC() { m_hDC = nullptr; }

    // `dc` null: like the screen.
    BOOL CreateCompatibleDC(CDC* dc);
    virtual BOOL DeleteDC();

    // A level for RestoreDC; -1, the last level of each, where the contexts are two; 0 on failure.
    virtual int SaveDC();
    virtual BOOL RestoreDC(int level);

    // The object before; null on failure.
    virtual CFont* SelectObject(CFont* font);
    virtual CGdiObject* SelectStockObject(int index);
    CFont* GetCurrentFont() const;

    int GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hAttribDC, index); }

    // The mode before; 0 on failure.
    virtual int SetMapMode(int mode);
    int GetMapMode() const { return ::GetMapMode(m_hAttribDC); }

    // Origins and extents; the setting ones answer what was there before.
    virtual CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }
    virtual CPoint OffsetViewportOrg(int dx, int dy);
    virtual CSize SetViewportExt(int cx, int cy);
    CSize SetViewportExt(SIZE size) { return SetViewportExt(size.cx, size.cy); }
    CPoint SetWindowOrg(int x, int y);
    CPoint SetWindowOrg(POINT point) { return SetWindowOrg(point.x, point.y); }
    CPoint OffsetWindowOrg(int dx, int dy);
    virtual CSize SetWindowExt(int cx, int cy);
    CSize SetWindowExt(SIZE size) { return SetWindowExt(size.cx, size.cy); }
    CPoint GetViewportOrg() const;
    CSize GetViewportExt() const;
    CPoint GetWindowOrg() const;
    CSize GetWindowExt() const;

    // Between logical units and pixels: points, a rectangle's corners.
    void LPtoDP(LPPOINT points, int count = 1) const { ::LPtoDP(m_hAttribDC, points, count); }
    void LPtoDP(LPRECT rect) const { LPtoDP(reinterpret_cast<LPPOINT>(rect), 2); }
    void DPtoLP(LPPOINT points, int count = 1) const { ::DPtoLP(m_hAttribDC, points, count); }
    void DPtoLP(LPRECT rect) const { DPtoLP(reinterpret_cast<LPPOINT>(rect), 2); }
    // A size is scaled by the magnitudes of the extents alone: origins do not shift it, directions do not
    // turn its sign. A half is rounded away from zero.
    void LPtoDP(LPSIZE size) const;
    void DPtoLP(LPSIZE size) const;

    // 0 x 0 on failure.
    CSize GetTextExtent(LPCSTR text, int bytes) const;
    CSize GetTextExtent(const CString& text) const;
    CSize GetOutputTextExtent(LPCSTR text, int bytes) const; // of m_hDC
    CSize GetOutputTextExtent(const CString& text) const;
    BOOL GetTextMetrics(LPTEXTMETRIC metrics) const { return ::GetTextMetrics(m_hAttribDC, metrics); }
    BOOL GetOutputTextMetrics(LPTEXTMETRIC metrics) const { return ::GetTextMetrics(m_hDC, metrics); }
};

// The context of a window's client area, or of the screen (null), as long as the object lives. A context that
// cannot be had throws CResourceException.
class AFX_CORE_CLASS CClientDC : public CDC
{
    DECLARE_DYNAMIC(CClientDC)
public:
    explicit CClientDC(CWnd* window);
    ~CClientDC() override;

protected:
    HWND m_hWnd;
};

// Likewise of a window with its frame.
class AFX_CORE_CLASS CWindowDC : public CDC
{
    DECLARE_DYNAMIC(CWindowDC)
public:
    explicit CWindowDC(CWnd* window);
    ~CWindowDC() override;

protected:
    HWND m_hWnd;
};

// Shows the hourglass from its construction to its destruction; does nothing without an application object.
class AFX_CORE_CLASS CWaitCursor
{
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

    // Shows it again, after a message box for instance.
    void Restore();
};
