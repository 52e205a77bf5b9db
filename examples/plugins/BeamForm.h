// What fills the main window: the beam, how far the calculation is, and its result.
#pragma once

#include "DeflectionJob.h"
#include "ProgressBar.h"
#include "resource.h"

class CBeamForm : public CDialog, public CDBUpdateConnector
{
public:
    explicit CBeamForm(CBeam& beam);

    // Does what a person might, prints what the window says then, and closes it.
    void RunAlone();
    void Calculate();
    // Ends the calculation that is running, if any.
    void Stop();

    // The beam has changed.
    void OnUpdate(CView* sender, LPARAM hint, CObject* hintObject) override;

protected:
    BOOL OnInitDialog() override;
    // Neither Enter nor Esc closes the form.
    void OnOK() override {}
    void OnCancel() override {}

    void OnLonger();
    void OnExit();
    LRESULT OnJob(WPARAM progress, LPARAM text);

    DECLARE_MESSAGE_MAP()

private:
    void ShowResult();
    void PrintTexts();

    CBeam& m_beam;
    CProgressBar m_bar;
    std::shared_ptr<JobState> m_job; // while it runs
    bool m_isAlone = false;
};
