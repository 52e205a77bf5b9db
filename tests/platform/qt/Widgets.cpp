#include "Widgets.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

namespace {

Widgets* g_test = nullptr;
std::vector<UINT> g_met;
std::string g_told;

} // namespace

LRESULT CALLBACK Widgets::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    g_met.push_back(message);
    if (message == WM_COMMAND) {
        g_told += (g_told.empty() ? "" : " ") + std::to_string(LOWORD(wParam)) + ":" +
                  std::to_string(HIWORD(wParam));
        // It may set another while it runs.
        if (const auto handler = g_test ? g_test->m_onCommand : nullptr)
            handler();
    }
    // The tests close windows themselves.
    return message == WM_CLOSE ? 0 : DefWindowProcA(window, message, wParam, lParam);
}

void Widgets::SetUp()
{
    g_test = this;
    WNDCLASSA shape = {};
    shape.lpfnWndProc = Procedure;
    shape.hInstance = GetModuleHandleA(nullptr);
    shape.lpszClassName = "Widgets";
    RegisterClassA(&shape);
    m_host = CreateWindowExA(0, shape.lpszClassName, "Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 400,
                             400, nullptr, nullptr, shape.hInstance, nullptr);
    ASSERT_NE(m_host, nullptr);
    SetForegroundWindow(m_host);
    Pump();
    Met();
}

void Widgets::TearDown()
{
    m_onCommand = nullptr;
    if (IsWindow(m_host))
        DestroyWindow(m_host);
    Pump();
    g_test = nullptr;
    Told();
}

HWND Widgets::Make(const char* className, DWORD style, const char* text, int x, int y, int width, int height,
                   int id)
{
    const HWND control = CreateWindowExA(0, className, text, WS_CHILD | WS_VISIBLE | style, x, y, width,
                                         height, m_host, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                         GetModuleHandleA(nullptr), nullptr);
    EXPECT_NE(control, nullptr);
    Pump();
    Told();
    return control;
}

QString Widgets::Caption(HWND window)
{
    std::string text(100, '\0');
    text.resize(static_cast<size_t>(GetWindowTextA(window, text.data(), 100)));
    return QString::fromStdString(text);
}

QWidget* Widgets::TopLevel(const QString& caption)
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->windowTitle() == caption)
            return widget;
    ADD_FAILURE() << "no widget with the caption " << caption.toStdString();
    return nullptr;
}

QWidget* Widgets::At(HWND window, int x, int y)
{
    QWidget* top = TopLevel(window);
    QWidget* child = top ? top->childAt(x, y) : nullptr;
    return child ? child : top;
}

void Widgets::Press(QWidget* widget, QEvent::Type type, const QPoint& at, Qt::MouseButton button)
{
    const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
    QMouseEvent event(type, at, widget->mapToGlobal(QPointF(at)), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void Widgets::Click(QWidget* widget, const QPoint& at)
{
    const QPointer<QWidget> kept(widget);
    Press(widget, QEvent::MouseButtonPress, at);
    if (kept)
        Press(kept, QEvent::MouseButtonRelease, at);
}

void Widgets::ClickFromLoop(const QPointer<QWidget>& widget)
{
    QMetaObject::invokeMethod(
        qApp, [widget] { Click(widget); }, Qt::QueuedConnection);
    Pump();
}

void Widgets::Pump()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

std::vector<UINT> Widgets::Met()
{
    return std::exchange(g_met, {});
}

std::string Widgets::Told()
{
    return std::exchange(g_told, {});
}
