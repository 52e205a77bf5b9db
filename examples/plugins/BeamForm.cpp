#include "BeamForm.h"

#include <cstdio>

namespace {

constexpr UINT kJob = WM_APP + 1;

} // namespace

BEGIN_MESSAGE_MAP(CBeamForm, CDialog)
ON_BN_CLICKED(IDC_CALCULATE, &CBeamForm::Calculate)
ON_BN_CLICKED(IDC_LONGER, &CBeamForm::OnLonger)
ON_BN_CLICKED(ID_APP_EXIT, &CBeamForm::OnExit)
ON_MESSAGE(kJob, &CBeamForm::OnJob)
END_MESSAGE_MAP()

CBeamForm::CBeamForm(CBeam& beam) : m_beam(beam)
{
}

BOOL CBeamForm::OnInitDialog()
{
    m_bar.Begin(this, IDC_TROUGH, IDC_BAR);
    OnUpdate(nullptr, 0, nullptr);
    return CDialog::OnInitDialog();
}

void CBeamForm::OnUpdate(CView*, LPARAM, CObject*)
{
    const auto* changes = static_cast<CChangeCount*>(m_beam.GetState("Changes"));
    CString text;
    text.Format("Length %.1f m, load %.1f kN/m, changes: %d", m_beam.Data().length, m_beam.Data().load,
                changes ? changes->m_count : 0);
    SetDlgItemText(IDC_DATA, text);
}

void CBeamForm::Calculate()
{
    const auto* deflection = static_cast<IDeflection*>(m_beam.GetIntf("Deflection"));
    if (m_job || !deflection)
        return;
    m_job = std::make_shared<JobState>();
    auto job = std::make_unique<CDeflectionJob>(m_beam.Data(), *deflection, m_job);
    if (job->ThreadBegin(this, kJob))
        job.release(); // its thread's now
    else
        m_job = nullptr;
}

// The texts are the job's: read at once, and not kept.
LRESULT CBeamForm::OnJob(WPARAM progress, LPARAM text)
{
    if (progress == CDeflectionJob::kFinished) {
        ShowResult();
        return 0;
    }
    m_bar.Show(static_cast<int>(progress));
    SetDlgItemText(IDC_STATE, reinterpret_cast<LPCSTR>(text));
    return 0;
}

void CBeamForm::ShowResult()
{
    const double greatest = m_job->greatest;
    m_job = nullptr;
    double inches = greatest;
    CString text;
    if (CServiceHeadOffice::Instance()->ReqService("Units", kToInches, &inches) == 1)
        text.Format("Greatest deflection %.1f mm (%.2f in)", greatest * 1000, inches);
    else
        text.Format("Greatest deflection %.1f mm", greatest * 1000);
    SetDlgItemText(IDC_RESULT, text);
    if (m_isAlone) {
        PrintTexts();
        OnExit();
    }
}

void CBeamForm::RunAlone()
{
    m_isAlone = true;
    OnLonger();
    Calculate();
}

void CBeamForm::PrintTexts()
{
    for (const int label : {IDC_DATA, IDC_STATE, IDC_RESULT}) {
        CString text;
        GetDlgItemText(label, text);
        std::printf("%s\n", static_cast<LPCSTR>(text));
    }
    std::printf("Bar at %d %%\n", m_bar.Shown());
    std::fflush(stdout);
}

// Tells the observers of the beam, and then everybody who shows it.
void CBeamForm::OnLonger()
{
    m_beam.SetLength(m_beam.Data().length + 1);
    CNotifyCtrl::NotifyUpdate(nullptr, kBeamChanged, nullptr);
}

void CBeamForm::Stop()
{
    if (!m_job)
        return;
    m_job->stop = true;
    WaitForSingleObject(m_job->ended, INFINITE);
    m_job = nullptr;
}

void CBeamForm::OnExit()
{
    GetParentFrame()->PostMessage(WM_CLOSE);
}
