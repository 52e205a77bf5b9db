#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

class CMade : public CObject
{
    DECLARE_DYNCREATE(CMade)
};

class CNotMade : public CMade
{
    DECLARE_DYNAMIC(CNotMade)
};

// clang-format off
IMPLEMENT_DYNCREATE(CMade, CObject)
IMPLEMENT_DYNAMIC(CNotMade, CMade)
// clang-format on

constexpr UINT kLibraryText = 7001;

std::string Text(UINT id)
{
    CString text("before");
    const BOOL found = text.LoadString(id);
    EXPECT_EQ(found, !text.IsEmpty());
    return text.GetString();
}

// The library stays loaded while the object lives.
class Library
{
public:
    explicit Library(LPCSTR name) : m_module(::LoadLibraryA(name)) {}
    ~Library() { Free(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    void Free()
    {
        if (m_module)
            ::FreeLibrary(m_module);
        m_module = nullptr;
    }
    HMODULE Module() const { return m_module; }

private:
    HMODULE m_module;
};

} // namespace

TEST(CRuntimeClass, IsFoundByName)
{
    EXPECT_EQ(RUNTIME_CLASS(CMade), CRuntimeClass::FromName("CMade"));
    EXPECT_EQ(RUNTIME_CLASS(CNotMade), CRuntimeClass::FromName("CNotMade"));
    // The library's own, through its CDynLinkLibrary.
    EXPECT_EQ(RUNTIME_CLASS(CFrameWnd), CRuntimeClass::FromName("CFrameWnd"));
    for (LPCSTR name : {"cmade", "CMad", "CMade2", ""}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(nullptr, CRuntimeClass::FromName(name));
        EXPECT_EQ(nullptr, CRuntimeClass::CreateObject(name));
    }
    EXPECT_EQ(nullptr, CRuntimeClass::FromName(nullptr));
}

TEST(CRuntimeClass, MakesObjectsByName)
{
    const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("CMade"));
    ASSERT_NE(nullptr, object);
    EXPECT_EQ(RUNTIME_CLASS(CMade), object->GetRuntimeClass());
    EXPECT_EQ(nullptr, CRuntimeClass::CreateObject("CNotMade"));
    const CNotMade made; // by hand
    EXPECT_TRUE(made.IsKindOf(CRuntimeClass::FromName("CMade")));
}

TEST(CRuntimeClass, LeavesTheListWithItsModule)
{
    CRuntimeClass passing = {"CPassing", 1, 0xFFFF, nullptr, nullptr};
    {
        const AFX_CLASSINIT known(&passing);
        EXPECT_EQ(&passing, CRuntimeClass::FromName("CPassing"));
    }
    EXPECT_EQ(nullptr, CRuntimeClass::FromName("CPassing"));
    EXPECT_EQ(RUNTIME_CLASS(CMade), CRuntimeClass::FromName("CMade"));
}

TEST(ExtensionModule, ShowsItsClassesOnlyThroughALibraryObject)
{
    const char mark = 0;
    CRuntimeClass shape = {"CMarkedShape", 1, 0xFFFF, nullptr, nullptr};
    const AFX_CLASSINIT known(&shape, &mark);
    EXPECT_EQ(&shape, CRuntimeClass::FromName("CMarkedShape"));
    AFX_EXTENSION_MODULE state;
    const HMODULE module = AfxGetInstanceHandle();
    ASSERT_TRUE(AfxInitExtensionModule(state, module, &mark));
    EXPECT_TRUE(AfxInitExtensionModule(state, nullptr, nullptr)) << "again, without effect";
    EXPECT_EQ(module, state.hModule);
    EXPECT_EQ(nullptr, CRuntimeClass::FromName("CMarkedShape"));
    new CDynLinkLibrary(state);
    EXPECT_EQ(&shape, CRuntimeClass::FromName("CMarkedShape"));
    AfxTermExtensionModule(state);
    EXPECT_FALSE(state.bInitialized);
    EXPECT_EQ(&shape, CRuntimeClass::FromName("CMarkedShape")) << "nobody's any more, so the program's";
    AfxTermExtensionModule(state);
}

TEST(ExtensionModule, SearchesProgramThenNewestLibraryThenSystemOnes)
{
    const char marks[3] = {};
    CRuntimeClass types[3];
    AFX_EXTENSION_MODULE states[3];
    std::vector<std::unique_ptr<AFX_CLASSINIT>> known;
    for (int i = 0; i < 3; ++i) {
        types[i] = {"CTwin", i, 0xFFFF, nullptr, nullptr};
        known.push_back(std::make_unique<AFX_CLASSINIT>(&types[i], &marks[i]));
        // No module of that handle: only their own classes count here.
        ASSERT_TRUE(AfxInitExtensionModule(states[i], reinterpret_cast<HMODULE>(&types[i]), &marks[i]));
        states[i].hResource = nullptr;
    }
    new CDynLinkLibrary(states[0]);
    new CDynLinkLibrary(states[1]);
    new CDynLinkLibrary(states[2], TRUE);
    EXPECT_EQ(&types[1], CRuntimeClass::FromName("CTwin"));
    AfxTermExtensionModule(states[1]);
    known[1].reset();
    EXPECT_EQ(&types[0], CRuntimeClass::FromName("CTwin"));
    AfxTermExtensionModule(states[0]);
    known[0].reset();
    EXPECT_EQ(&types[2], CRuntimeClass::FromName("CTwin"));
    AfxTermExtensionModule(states[2]);
}

TEST(ExtensionModule, AddsItsResourcesAndClassesWhileLoaded)
{
    const LPCSTR table = MAKEINTRESOURCEA(kLibraryText / 16 + 1);
    const HINSTANCE program = AfxGetInstanceHandle();
    EXPECT_EQ("", Text(kLibraryText));
    EXPECT_EQ(program, AfxFindResourceHandle(table, RT_STRING));
    EXPECT_EQ(nullptr, CRuntimeClass::FromName("CShapeOfLibrary"));

    Library library("afxapp_shapes.dll");
    ASSERT_NE(nullptr, library.Module());
    EXPECT_EQ("a text of the library", Text(kLibraryText));
    EXPECT_EQ(library.Module(), AfxFindResourceHandle(table, RT_STRING));
    char shortText[7] = "xxxxxx";
    EXPECT_EQ(5, AfxLoadString(kLibraryText, shortText, 6));
    EXPECT_STREQ("a tex", shortText);
    EXPECT_EQ(0, AfxLoadString(kLibraryText, shortText, 0));
    const std::unique_ptr<CObject> shape(CRuntimeClass::CreateObject("CShapeOfLibrary"));
    EXPECT_NE(nullptr, shape);
}

TEST(ExtensionModule, TakesItsResourcesAndClassesAlong)
{
    Library library("afxapp_shapes.dll");
    ASSERT_NE(nullptr, CRuntimeClass::FromName("CShapeOfLibrary"));
    library.Free();
    EXPECT_EQ("", Text(kLibraryText));
    EXPECT_EQ(nullptr, CRuntimeClass::FromName("CShapeOfLibrary"));
}

TEST(ExtensionModule, IsNotLoadedWhenItRefuses)
{
    EXPECT_EQ(nullptr, Library("afxapp_refusing.dll").Module());
    EXPECT_EQ(static_cast<DWORD>(ERROR_DLL_INIT_FAILED), ::GetLastError());
    EXPECT_NE(nullptr, Library("afxapp_shapes.dll").Module()) << "others still come in";
}

TEST(AfxGetResourceHandle, IsTheProgramUnlessAnotherIsSet)
{
    EXPECT_EQ(AfxGetInstanceHandle(), AfxGetResourceHandle());
    const Library library("afxapp_shapes.dll");
    AfxSetResourceHandle(library.Module());
    EXPECT_EQ(library.Module(), AfxGetResourceHandle());
    AfxSetResourceHandle(nullptr);
    EXPECT_EQ(AfxGetInstanceHandle(), AfxGetResourceHandle());
}
