#include <ProfileMgr.h>

#include <afx.h>

namespace {

constexpr const char* kReportPath = "C:\\profile.txt";

class CProfileFilePrinter : public CProfilePrinterAdaptor
{
public:
    int BeforePrint() override
    {
        return m_file.Open(kReportPath, CFile::modeCreate | CFile::modeWrite | CFile::typeText) ? 1 : 0;
    }

    void PrintLine(const char* text) override
    {
        m_file.WriteString(text);
        m_file.WriteString("\n");
    }

    void AfterPrint() override { m_file.Close(); }

    // After a failure: nothing half-written stays.
    void GiveUp()
    {
        m_file.Abort();
        DeleteFileA(kReportPath);
    }

private:
    CStdioFile m_file;
};

void PrintToFile()
{
    CProfileFilePrinter printer;
    try {
        CProfileMgr::PrintST(&printer);
        return;
    } catch (CException* e) {
        e->Delete();
    } catch (...) {
    }
    printer.GiveUp();
}

} // namespace

CProfileReporter::CProfileReporter() : CProfileReporter(nullptr, 0)
{
}

CProfileReporter::CProfileReporter(CProfilePrinterAdaptor* adaptor, int bOwn)
    : m_adaptor(adaptor), m_bOwn(bOwn)
{
}

CProfileReporter::CProfileReporter(const CProfileReporter&) = default;
CProfileReporter& CProfileReporter::operator=(const CProfileReporter&) = default;

CProfileReporter::~CProfileReporter()
{
    if (!m_adaptor) {
        PrintToFile();
        return;
    }
    CProfileMgr::PrintST(m_adaptor);
    if (m_bOwn)
        delete m_adaptor;
    m_adaptor = nullptr;
}
