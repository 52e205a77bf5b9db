#include <afxwin.h>

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class TestDocument : public CDocument
{
public:
    explicit TestDocument(bool* deleted = nullptr) : m_deleted(deleted)
    {
        m_bAutoDelete = deleted != nullptr;
    }
    ~TestDocument() override
    {
        if (m_deleted)
            *m_deleted = true;
    }
    void DeleteContents() override { ++m_emptied; }

    int m_emptied = 0;

private:
    bool* m_deleted;
};

// A view without a window.
class TestView : public CView
{
public:
    explicit TestView(std::vector<int>* log = nullptr, int number = 0) : m_log(log), m_number(number) {}

    void OnDraw(CDC*) override {}
    void OnUpdate(CView* sender, LPARAM hint, CObject* hintObject) override
    {
        m_sender = sender;
        m_hint = hint;
        m_hintObject = hintObject;
        if (m_log)
            m_log->push_back(m_number);
        if (m_onUpdate)
            m_onUpdate();
    }

    CView* m_sender = nullptr;
    LPARAM m_hint = 0;
    CObject* m_hintObject = nullptr;
    std::function<void()> m_onUpdate;

private:
    std::vector<int>* m_log;
    int m_number;
};

std::vector<CView*> ViewsOf(const CDocument& document)
{
    std::vector<CView*> views;
    for (POSITION position = document.GetFirstViewPosition(); position;)
        views.push_back(document.GetNextView(position));
    return views;
}

} // namespace

TEST(CDocument, KeepsItsViewsInOrder)
{
    TestDocument document, other;
    TestView a, b, c;
    for (TestView* view : {&a, &b, &c})
        document.AddView(view);
    document.AddView(&a); // already there
    EXPECT_THAT(ViewsOf(document), ElementsAre(&a, &b, &c));
    other.RemoveView(&b);
    EXPECT_EQ(&document, b.GetDocument()) << "not the other's";
    document.RemoveView(&b);
    EXPECT_EQ(nullptr, b.GetDocument());
    EXPECT_THAT(ViewsOf(document), ElementsAre(&a, &c));
    POSITION end = nullptr;
    EXPECT_EQ(nullptr, document.GetNextView(end));
}

TEST(CDocument, AndItsViewsEndInAnyOrder)
{
    auto document = std::make_unique<TestDocument>();
    auto first = std::make_unique<TestView>();
    TestView second;
    document->AddView(first.get());
    document->AddView(&second);
    first.reset();
    EXPECT_THAT(ViewsOf(*document), ElementsAre(&second));
    document.reset();
    EXPECT_EQ(nullptr, second.GetDocument());
}

TEST(CDocument, GoesWithItsLastView)
{
    bool deleted = false;
    auto* document = new TestDocument(&deleted);
    TestView a, b;
    document->AddView(&a);
    document->AddView(&b);
    document->RemoveView(&a);
    EXPECT_FALSE(deleted);
    document->RemoveView(&b);
    EXPECT_TRUE(deleted);
}

TEST(CDocument, ClosesWithoutWindows)
{
    bool deleted = false;
    auto* document = new TestDocument(&deleted);
    TestView view;
    document->AddView(&view);
    document->OnCloseDocument();
    EXPECT_TRUE(deleted);
    EXPECT_EQ(nullptr, view.GetDocument());

    TestDocument kept;
    kept.AddView(&view);
    kept.OnCloseDocument();
    EXPECT_EQ(1, kept.m_emptied);
    EXPECT_EQ(nullptr, view.GetDocument());
}

TEST(CDocument, UpdatesAllViewsButTheSender)
{
    std::vector<int> log;
    TestDocument document;
    TestView a(&log, 1), b(&log, 2), c(&log, 3);
    for (TestView* view : {&a, &b, &c})
        document.AddView(view);
    const auto hint = reinterpret_cast<LPARAM>(&log); // as wide as a pointer
    document.UpdateAllViews(&b, hint, &document);
    EXPECT_THAT(log, ElementsAre(1, 3));
    EXPECT_EQ(&b, c.m_sender);
    EXPECT_EQ(hint, c.m_hint);
    EXPECT_EQ(&document, c.m_hintObject);
    log.clear();
    document.UpdateAllViews(nullptr);
    EXPECT_THAT(log, ElementsAre(1, 2, 3));
    EXPECT_EQ(0, c.m_hint);
    EXPECT_EQ(nullptr, c.m_hintObject);
}

TEST(CDocument, SurvivesViewsThatLeaveAndComeDuringAnUpdate)
{
    std::vector<int> log;
    TestDocument document;
    TestView a(&log, 1), late(&log, 9);
    auto b = std::make_unique<TestView>(&log, 2);
    TestView c(&log, 3);
    document.AddView(&a);
    document.AddView(b.get());
    document.AddView(&c);
    a.m_onUpdate = [&] {
        b.reset();
        document.AddView(&late);
    };
    document.UpdateAllViews(nullptr);
    EXPECT_THAT(log, ElementsAre(1, 3));
}

TEST(CDocument, NamesItselfAfterItsFile)
{
    TestDocument document;
    document.SetPathName("C:\\models\\bridge.mdl");
    EXPECT_STREQ("C:\\models\\bridge.mdl", document.GetPathName());
    EXPECT_STREQ("bridge.mdl", document.GetTitle());
    document.SetTitle("A bridge");
    EXPECT_STREQ("A bridge", document.GetTitle());
    document.SetModifiedFlag();
    EXPECT_TRUE(document.IsModified());
    EXPECT_TRUE(document.OnNewDocument());
    EXPECT_FALSE(document.IsModified());
    EXPECT_STREQ("", document.GetPathName());
    EXPECT_EQ(1, document.m_emptied);
}

TEST(CFrameWnd, HandsActivityFromViewToView)
{
    struct ActiveView : TestView {
        explicit ActiveView(std::vector<CString>* log, LPCSTR name) : m_names(log), m_name(name) {}
        void OnActivateView(BOOL activate, CView*, CView*) override
        {
            m_names->push_back(m_name + (activate ? "+" : "-"));
        }
        std::vector<CString>* m_names;
        CString m_name;
    };
    std::vector<CString> log;
    TestDocument document;
    ActiveView a(&log, "a"), b(&log, "b");
    document.AddView(&b);
    CFrameWnd frame;
    EXPECT_EQ(nullptr, frame.GetActiveView());
    EXPECT_EQ(nullptr, frame.GetActiveDocument());
    EXPECT_EQ(&frame, frame.GetActiveFrame());
    frame.SetActiveView(&a);
    frame.SetActiveView(&a);
    frame.SetActiveView(&b);
    EXPECT_EQ(&b, frame.GetActiveView());
    EXPECT_EQ(&document, frame.GetActiveDocument());
    frame.SetActiveView(&a, FALSE);
    frame.SetActiveView(nullptr);
    EXPECT_THAT(log, ElementsAre("a+", "a-", "b+", "b-", "a-"));
}
