#include "TestDialog.h"

IMPLEMENT_DYNAMIC(TestDialog, CDialog)

BEGIN_MESSAGE_MAP(TestDialog, CDialog)
ON_WM_DESTROY()
ON_WM_TIMER()
ON_MESSAGE(TestDialog::kAction, &TestDialog::OnAction)
END_MESSAGE_MAP()

namespace {

constexpr WORD Word(short value)
{
    return static_cast<WORD>(value);
}

} // namespace

DialogTemplate::DialogTemplate(const std::vector<TemplateItem>& items, DWORD style, short x, short y)
{
    Add(style);
    Add(0UL);
    for (const WORD word : {static_cast<WORD>(items.size()), Word(x), Word(y), Word(160), Word(120)})
        m_words.push_back(word);
    for (const char* text : {"", "", "Test"}) // no menu, the usual class, the caption
        Add(std::string(text));
    short row = 0;
    for (const TemplateItem& item : items)
        AddItem(item, row++);
}

void DialogTemplate::Add(DWORD value)
{
    m_words.push_back(LOWORD(value));
    m_words.push_back(HIWORD(value));
}

void DialogTemplate::Add(const std::string& text)
{
    m_words.insert(m_words.end(), text.begin(), text.end());
    m_words.push_back(0);
}

void DialogTemplate::AddItem(const TemplateItem& item, short row)
{
    if (m_words.size() % 2 != 0)
        m_words.push_back(0);
    Add(item.style | WS_CHILD | WS_VISIBLE);
    Add(0UL);
    for (const WORD word : {Word(4), static_cast<WORD>(4 + 14 * row), Word(80), Word(12), item.id})
        m_words.push_back(word);
    Add(item.className);
    Add(item.text);
    m_words.push_back(0); // no creation data
}

TestDialog::~TestDialog()
{
    Log("deleted");
}

BOOL TestDialog::OnInitDialog()
{
    const BOOL result = CDialog::OnInitDialog();
    if (m_atInit)
        m_atInit();
    return result;
}

void TestDialog::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    if (m_exchange)
        m_exchange(exchange);
}

void TestDialog::PostNcDestroy()
{
    Log("gone");
    CDialog::PostNcDestroy();
    if (m_deleteItself)
        delete this;
}

void TestDialog::OnDestroy()
{
    Log("destroy");
    CDialog::OnDestroy();
}

void TestDialog::OnTimer(UINT_PTR id)
{
    // On the stack: the action may delete the dialog.
    const auto action = m_atTimer;
    if (action)
        action(id);
}

LRESULT TestDialog::OnAction(WPARAM, LPARAM)
{
    const auto action = m_atAction;
    if (action)
        action();
    return 1;
}

void TestDialog::Log(const std::string& what)
{
    if (m_log)
        m_log->push_back(m_name + " " + what);
}

void DrainQueue()
{
    MSG message;
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageA(&message);
    }
}
