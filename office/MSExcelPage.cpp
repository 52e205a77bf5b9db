// View and page: grid, zeros, page breaks, margins, paper.
#include <MSExcel.h>

namespace {

// 72 points are 25.4 millimetres. Whole numbers, for 25.4 is none that a double holds.
double PointsOf(double millimetres)
{
    return millimetres * 720 / 254;
}

} // namespace

Excel9::Window CMSExcel::ActiveWindow()
{
    return Excel9::Window(m_application.GetActiveWindow());
}

void CMSExcel::SetDisplayZeros(bool show)
{
    ActiveWindow().SetDisplayZeros(show);
}

void CMSExcel::SetPageView(int pageBreaks)
{
    SetPageNormalView(pageBreaks == 0);
}

void CMSExcel::SetPageNormalView(bool normal)
{
    ActiveWindow().SetView(normal ? xlNormalView : xlPageBreakPreview);
}

void CMSExcel::SetGraduation(int show)
{
    ActiveWindow().SetDisplayGridlines(show);
}

void CMSExcel::SetPageSetup(XlPageOrientation orientation, XlPaperSize paperSize)
{
    m_pageSetup.AttachDispatch(m_worksheet.GetPageSetup());
    m_pageSetup.SetPaperSize(paperSize);
    m_pageSetup.SetOrientation(orientation);
}

double CMSExcel::GetValueFromMilimeterToPoint()
{
    return 2.834645669291339;
}

void CMSExcel::SetMargin(double left, double right, double top, double bottom)
{
    m_pageSetup.AttachDispatch(m_worksheet.GetPageSetup());
    m_pageSetup.SetLeftMargin(PointsOf(left));
    m_pageSetup.SetRightMargin(PointsOf(right));
    m_pageSetup.SetTopMargin(PointsOf(top));
    m_pageSetup.SetBottomMargin(PointsOf(bottom));
}

void CMSExcel::SetHPageBreakBeforeActiveCell(CString cell)
{
    m_pageBreaks.AttachDispatch(m_worksheet.GetHPageBreaks());
    const Excel9::HPageBreak added(m_pageBreaks.Add(TakeRange(cell)));
}

void CMSExcel::PageBreak(CString cell)
{
    SetHPageBreakBeforeActiveCell(cell);
    m_range.Select();
}

void CMSExcel::PageBreak()
{
    HeldSheets();
    TakeSheet(COleVariant("Table"));
    m_worksheet.Select(covOptional);
    m_range.AttachDispatch(m_worksheet.GetUsedRange());
    m_range.SetName(COleVariant("Page"));
}

void CMSExcel::SetHPageBreak(short rowsPerPage, short rows, short columns)
{
    m_worksheet.SetDisplayPageBreaks(TRUE);
    SetPageNormalView(false);
    m_pageSetup.AttachDispatch(m_worksheet.GetPageSetup());
    m_pageSetup.SetPrintArea("A1:" + GetCell(static_cast<short>(rows - 1), static_cast<short>(columns - 1)));
    m_pageBreaks.AttachDispatch(m_worksheet.GetHPageBreaks());
    const LONG count = m_pageBreaks.GetCount();
    for (LONG i = 1; i <= count; ++i) {
        Excel9::HPageBreak pageBreak(m_pageBreaks.GetItem(i));
        CString cell;
        cell.Format("A%d", rowsPerPage * i + 1);
        pageBreak.SetRefLocation(TakeRange(cell));
    }
}

void CMSExcel::MakeTable()
{
}

void CMSExcel::HeaderFooterSet(int)
{
}
