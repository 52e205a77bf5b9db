#include "../Error.h"
#include "../windows/BackendLoader.h"

#include <algorithm>
#include <iterator>
#include <mutex>
#include <utility>

namespace {

// The numbers behind IDC_...
constexpr WORD kShapes[] = {32512, 32513, 32514, 32515, 32516, 32642, 32643,
                            32644, 32645, 32646, 32648, 32649, 32650, 32651};

constexpr ULONG_PTR kArrow = 32512;

struct Cursor {
    std::mutex mutex;
    ULONG_PTR shape = kArrow; // 0: none
    int showCount = 0;
};

Cursor& TheCursor()
{
    static auto* const cursor = new Cursor;
    return *cursor;
}

// What other threads set is shown with the next change.
void Display(WORD shape)
{
    if (UiThread() == GetCurrentThreadId() && CanShowWindows())
        Backend()->SetCursor(shape);
}

WORD VisibleShape(const Cursor& cursor)
{
    return cursor.showCount < 0 ? WORD{0} : static_cast<WORD>(cursor.shape);
}

} // namespace

// A handle is its shape's number, which no window or object bears.
HCURSOR WINAPI LoadCursorA(HINSTANCE module, LPCSTR name)
{
    const auto number = reinterpret_cast<ULONG_PTR>(name);
    if (!module && std::find(std::begin(kShapes), std::end(kShapes), number) != std::end(kShapes))
        return reinterpret_cast<HCURSOR>(number);
    Fail(ERROR_RESOURCE_NAME_NOT_FOUND);
    return nullptr;
}

HCURSOR WINAPI SetCursor(HCURSOR cursor)
{
    Cursor& state = TheCursor();
    std::unique_lock lock(state.mutex);
    const ULONG_PTR old = std::exchange(state.shape, reinterpret_cast<ULONG_PTR>(cursor));
    const WORD visible = VisibleShape(state);
    lock.unlock();
    Display(visible);
    return reinterpret_cast<HCURSOR>(old);
}

HCURSOR WINAPI GetCursor()
{
    Cursor& state = TheCursor();
    const std::lock_guard lock(state.mutex);
    return reinterpret_cast<HCURSOR>(state.shape);
}

int WINAPI ShowCursor(BOOL show)
{
    Cursor& state = TheCursor();
    std::unique_lock lock(state.mutex);
    state.showCount += show ? 1 : -1;
    const int count = state.showCount;
    const WORD visible = VisibleShape(state);
    lock.unlock();
    Display(visible);
    return count;
}
