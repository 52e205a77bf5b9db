#include "KeyText.h"

#include <algorithm>
#include <cctype>

namespace {

bool IsSameMessage(const MSG& a, const MSG& b)
{
    return a.hwnd == b.hwnd && a.message == b.message && a.wParam == b.wParam && a.lParam == b.lParam &&
           a.time == b.time;
}

std::string ToAnsi(const std::u16string& text)
{
    const int units = static_cast<int>(text.size());
    if (units == 0)
        return "";
    std::string bytes(text.size() * 4, 0);
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), units, bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<size_t>(std::max(size, 0)));
    return bytes;
}

std::string PlainKey(const MessageQueue& queue, WPARAM key)
{
    constexpr std::pair<WPARAM, char> kControls[] = {
        {VK_BACK, '\b'}, {VK_TAB, '\t'}, {VK_RETURN, '\r'}, {VK_ESCAPE, '\x1b'}, {VK_SPACE, ' '}};
    for (const auto& [code, character] : kControls)
        if (key == code)
            return std::string(1, character);
    if (key >= '0' && key <= '9')
        return std::string(1, static_cast<char>(key));
    if (key < 'A' || key > 'Z')
        return "";
    const bool upper = (queue.KeyState(VK_SHIFT) < 0) != ((queue.KeyState(VK_CAPITAL) & 1) != 0);
    return std::string(1, static_cast<char>(upper ? key : key + ('a' - 'A')));
}

} // namespace

std::string TypedText(const MessageQueue& queue, const MSG& message)
{
    const PostedMessage& last = queue.LastKey();
    return last.isKey && IsSameMessage(last.message, message) ? ToAnsi(last.typed)
                                                              : PlainKey(queue, message.wParam);
}
