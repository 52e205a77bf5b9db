// The examples of docs/objects.md, as they stand there.
#include "Units.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

using testing::ElementsAre;

namespace {

class CHost
{
public:
    bool LoadPlugin(const char* name, const char* file);
    double ToInches(double metres);

    CDynModuleMgr m_plugins;
};

bool CHost::LoadPlugin(const char* name, const char* file)
{
    HMODULE module = LoadLibraryA(file); // stays loaded to the end
    FARPROC found = module ? GetProcAddress(module, "CreatePlugin") : nullptr;
    if (!found)
        return false;
    auto create = reinterpret_cast<CreatePluginFunc*>(reinterpret_cast<void (*)()>(found));
    std::unique_ptr<CDynModule> plugin(create());
    if (!m_plugins.AddDynModule(name, plugin.get()))
        return false; // the name is taken, and the plug-in still ours
    return plugin.release()->Initialize() == 1;
}

double CHost::ToInches(double metres)
{
    double length = metres;
    if (CServiceHeadOffice::Instance()->ReqService("Units", kToInches, &length) != 1)
        return 0; // no such service
    return length;
}

TEST(ObjectsGuide, Plugin)
{
    CHost host;
    EXPECT_EQ(0, host.ToInches(1));
    EXPECT_FALSE(host.LoadPlugin("None", "none_plugin.DLL"));
    EXPECT_TRUE(host.LoadPlugin("Units", "units_plugin.DLL"));
    EXPECT_FALSE(host.LoadPlugin("Units", "units_plugin.DLL")) << "the name is taken";
    EXPECT_NEAR(39.37, host.ToInches(1), 0.001);
    delete host.m_plugins.GetDynModule("Units");
    EXPECT_EQ(nullptr, host.m_plugins.GetDynModule("Units"));
}

class CThermalState : public CExtObjState
{
public:
    double m_temperature = 20;
};

class CElement : public CExtObj
{
};

TEST(ObjectsGuide, Parts)
{
    CElement element;
    auto state = std::make_unique<CThermalState>();
    if (element.AddState("Thermal", state.get()))
        state.release(); // the element's now

    auto* thermal = static_cast<CThermalState*>(element.GetState("Thermal"));
    if (thermal)
        thermal->m_temperature += 5;
    ASSERT_NE(nullptr, thermal);
    EXPECT_EQ(25, thermal->m_temperature);
    EXPECT_EQ(&element, thermal->GetExtObj());
}

constexpr int kNodesMoved = 1;

class CModel : public DP_CSubject
{
public:
    void MoveNodes() { Notify(kNodesMoved, nullptr); }
};

class CResults
{
public:
    explicit CResults(CModel& model)
    {
        m_observer.SetCallback(&CResults::OnModel, this);
        m_observer.Observe(&model);
    }

    bool m_valid = true;

private:
    static void OnModel(void* user, DP_CSubject*, int code, void*)
    {
        if (code == kNodesMoved)
            static_cast<CResults*>(user)->m_valid = false;
    }

    CObserver m_observer;
};

TEST(ObjectsGuide, Observers)
{
    auto model = std::make_unique<CModel>();
    CResults results(*model);
    EXPECT_TRUE(results.m_valid);
    model->MoveNodes();
    EXPECT_FALSE(results.m_valid);
    model.reset(); // and results.m_observer observes nothing any more
}

std::vector<std::string> g_shown;

class CStatusLine : public CDBUpdateConnector
{
public:
    CStatusLine() { SetPriority(10); } // before the others, which have 0

    void OnUpdate(CView*, LPARAM lHint, CObject*) override
    {
        if (lHint == kNodesMoved)
            Show("Nodes have moved");
    }

private:
    void Show(const char* text) { g_shown.emplace_back(text); }
};

TEST(ObjectsGuide, Broadcast)
{
    CStatusLine status;
    CNotifyCtrl::NotifyUpdate(nullptr, kNodesMoved, nullptr);
    EXPECT_THAT(g_shown, ElementsAre("Nodes have moved"));
}

constexpr UINT kProgress = WM_APP + 1;

class CMeshJob : public CThread
{
public:
    explicit CMeshJob(int parts) : m_parts(parts) {}

    void ThreadRun() override // on a thread of its own
    {
        for (int i = 1; i <= m_parts; ++i) {
            MeshPart(i);
            CString text;
            text.Format("Part %d of %d", i, m_parts);
            ProgressText(static_cast<UINT>(i * 100 / m_parts), text);
        }
    }

private:
    void MeshPart(int) {}

    int m_parts;
};

class CMeshFrame : public CFrameWnd
{
public:
    void Mesh()
    {
        auto job = std::make_unique<CMeshJob>(4);
        if (job->ThreadBegin(this, kProgress))
            job.release(); // its thread's now
    }

    std::vector<std::string> m_seen;

protected:
    LRESULT OnProgress(WPARAM percent, LPARAM text)
    {
        ShowProgress(static_cast<int>(percent), reinterpret_cast<LPCSTR>(text));
        return 0;
    }
    void PostNcDestroy() override {} // lives on the stack
    DECLARE_MESSAGE_MAP()

private:
    void ShowProgress(int percent, LPCSTR text)
    {
        m_seen.push_back(std::to_string(percent) + " " + text);
        if (percent == 100)
            ::PostQuitMessage(0);
    }
};

BEGIN_MESSAGE_MAP(CMeshFrame, CFrameWnd)
ON_MESSAGE(kProgress, &CMeshFrame::OnProgress)
END_MESSAGE_MAP()

TEST(ObjectsGuide, Job)
{
    CMeshFrame frame;
    ASSERT_TRUE(frame.Create(nullptr, "Mesh"));
    frame.Mesh();
    MSG message;
    while (::GetMessage(&message, nullptr, 0, 0) > 0)
        ::DispatchMessage(&message);
    frame.DestroyWindow();
    EXPECT_THAT(frame.m_seen,
                ElementsAre("25 Part 1 of 4", "50 Part 2 of 4", "75 Part 3 of 4", "100 Part 4 of 4"));
}

} // namespace
