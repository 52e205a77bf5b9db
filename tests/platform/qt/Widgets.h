// A window with controls, the widgets behind it, and what the window was sent.
#pragma once

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <gmock/gmock.h>
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

class Widgets : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    HWND Make(const char* className, DWORD style, const char* text, int x, int y, int width, int height,
              int id = 7);
    HWND Host() const { return m_host; }

    // The widget that shows what lies at this place of the host's client area, or of another's.
    QWidget* At(int x, int y) const { return At(m_host, x, y); }
    static QWidget* At(HWND window, int x, int y);
    static QWidget* TopLevel(HWND window) { return TopLevel(Caption(window)); }
    static QWidget* TopLevel(const QString& caption);

    static void Press(QWidget* widget, QEvent::Type type, const QPoint& at,
                      Qt::MouseButton button = Qt::LeftButton);
    static void Click(QWidget* widget, const QPoint& at = {5, 5});
    // As the user does: the toolkit's loop brings it. Needed where the click may end the widget.
    static void ClickFromLoop(const QPointer<QWidget>& widget);
    // Dispatches what is queued until there is nothing left.
    static void Pump();

    // The messages that the host has met, and the commands as "id:code", since the last call.
    std::vector<UINT> Met();
    std::string Told();

    // Called for each WM_COMMAND.
    std::function<void()> m_onCommand;

private:
    static QString Caption(HWND window);
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_host = nullptr;
};
