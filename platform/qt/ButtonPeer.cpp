#include "ButtonPeer.h"

#include "Drawing.h"
#include "MessageTable.h"
#include "Texts.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStylePainter>

#include <array>

namespace {

// What there is to know of each type, in the order of the types' numbers.
struct ButtonKind {
    UINT mostCheck;
    WORD dlgCode;
    bool isRadio;
    bool changesItself;
};
constexpr WORD kPush = DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
constexpr WORD kRadio = DLGC_BUTTON | DLGC_RADIOBUTTON;
constexpr std::array<ButtonKind, 16> kKinds = {{
    {BST_UNCHECKED, kPush, false, false},
    {BST_UNCHECKED, DLGC_BUTTON | DLGC_DEFPUSHBUTTON, false, false},
    {BST_CHECKED, DLGC_BUTTON, false, false},
    {BST_CHECKED, DLGC_BUTTON, false, true},
    {BST_CHECKED, kRadio, true, false},
    {BST_INDETERMINATE, DLGC_BUTTON, false, false},
    {BST_INDETERMINATE, DLGC_BUTTON, false, true},
    {BST_UNCHECKED, DLGC_STATIC, false, false},
    {BST_UNCHECKED, kPush, false, false},
    {BST_CHECKED, kRadio, true, true},
    {BST_UNCHECKED, DLGC_STATIC, false, false},
    {BST_UNCHECKED, kPush, false, false},
    {BST_UNCHECKED, kPush, false, false},
    {BST_UNCHECKED, kPush, false, false},
    {BST_UNCHECKED, kPush, false, false},
    {BST_UNCHECKED, kPush, false, false},
}};

// A toolkit button that leaves its check mark to its peer.
template <class Base>
class Inert : public Base
{
public:
    explicit Inert(ButtonPeer& peer) : m_peer(peer)
    {
        QObject::connect(this, &QAbstractButton::clicked, this, [this] { m_peer.Clicked(); });
    }

protected:
    void nextCheckState() override {}
    // All of the control, not its mark and text alone.
    bool hitButton(const QPoint& at) const override { return Base::rect().contains(at); }

    void mouseDoubleClickEvent(QMouseEvent* event) override
    {
        if (!m_peer.DoubleClicked())
            Base::mouseDoubleClickEvent(event);
    }

    ButtonPeer& m_peer;
};

// A push button whose text may stand at its left or right.
class PushButton final : public Inert<QPushButton>
{
public:
    explicit PushButton(ButtonPeer& peer) : Inert(peer) { setAutoDefault(false); }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        const DWORD side = m_peer.Style() & BS_CENTER;
        if (side != BS_LEFT && side != BS_RIGHT) {
            QPushButton::paintEvent(event);
            return;
        }
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        painter.drawControl(QStyle::CE_PushButtonBevel, option);
        constexpr int kIndent = 5;
        const QRect inside = style()
                                 ->subElementRect(QStyle::SE_PushButtonContents, &option, this)
                                 .adjusted(kIndent, 0, -kIndent, 0);
        const auto align = side == BS_LEFT ? Qt::AlignLeft : Qt::AlignRight;
        painter.drawItemText(inside, static_cast<int>(align) | Qt::AlignVCenter | Qt::TextShowMnemonic,
                             palette(), isEnabled(), text(), QPalette::ButtonText);
    }
};

// A line round what lies before it, with its text in the upper edge. The mouse goes through it.
class GroupBox final : public QWidget
{
public:
    explicit GroupBox(ButtonPeer& peer) : m_peer(peer) { setAttribute(Qt::WA_TransparentForMouseEvents); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        constexpr int kIndent = 8;
        constexpr int kGap = 2;
        QStylePainter painter(this);
        const QFontMetrics metrics = fontMetrics();
        const QString& text = m_peer.Text();
        const int wide = text.isEmpty() ? 0 : metrics.size(Qt::TextShowMnemonic, text).width() + 2 * kGap;
        const QRect title(kIndent, 0, std::min(wide, width() - 2 * kIndent), metrics.height());
        painter.save();
        painter.setClipRegion(QRegion(rect()) - title);
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(
            QRectF(0.5, metrics.height() / 2 + 0.5, width() - 1, height() - metrics.height() / 2 - 1), 2, 2);
        painter.restore();
        painter.drawItemText(title.adjusted(kGap, 0, 0, 0), Qt::AlignLeft | Qt::TextShowMnemonic, palette(),
                             isEnabled(), text, QPalette::WindowText);
    }

private:
    ButtonPeer& m_peer;
};

} // namespace

ButtonPeer::ButtonPeer(const PeerRequest& request, PeerEvents& events) : WindowPeer(request, events)
{
    QWidget* widget = MakeWidget();
    m_button = qobject_cast<QAbstractButton*>(widget);
    if (m_button) {
        m_button->setFocusPolicy(Qt::StrongFocus);
        m_button->setEnabled(IsEnabled());
    }
    Adopt(widget);
    SetText(request.text);
    SetClient(request.client);
}

QWidget* ButtonPeer::MakeWidget()
{
    const ButtonKind& kind = kKinds[Type()];
    if (Type() == BS_GROUPBOX)
        return new GroupBox(*this);
    if (kind.mostCheck == BST_UNCHECKED || Style() & BS_PUSHLIKE) {
        auto* button = new PushButton(*this);
        button->setCheckable(kind.mostCheck != BST_UNCHECKED);
        button->setDefault(Type() == BS_DEFPUSHBUTTON);
        button->setFlat(Style() & BS_FLAT);
        return button;
    }
    QAbstractButton* button = nullptr;
    if (kind.isRadio)
        button = new Inert<QRadioButton>(*this);
    else
        button = new Inert<QCheckBox>(*this);
    button->setAutoExclusive(false);
    if (Style() & BS_LEFTTEXT)
        button->setLayoutDirection(Qt::RightToLeft);
    return button;
}

void ButtonPeer::SetText(std::string_view text)
{
    m_text = FromAnsi(text);
    ShowText();
}

void ButtonPeer::ShowText()
{
    if (!Widget())
        return;
    if (!m_button) {
        Widget()->update();
        return;
    }
    const bool pictured = Style() & (BS_ICON | BS_BITMAP);
    const int inside = Widget()->width() - (kKinds[Type()].mostCheck ? 20 : 8); // beside mark and frame
    const bool wraps = Style() & BS_MULTILINE;
    m_button->setText(pictured ? QString()
                      : wraps  ? Wrapped(m_text, Widget()->fontMetrics(), inside)
                               : m_text);
}

void ButtonPeer::SetFont(const QFont& font)
{
    WindowPeer::SetFont(font);
    ShowText();
}

void ButtonPeer::Place(const QRect& outer)
{
    WindowPeer::Place(outer);
    if (Style() & BS_MULTILINE)
        ShowText();
}

void ButtonPeer::SetStyle(DWORD style, DWORD exStyle)
{
    WindowPeer::SetStyle(style, exStyle);
    if (auto* push = qobject_cast<QPushButton*>(m_button))
        push->setDefault(Type() == BS_DEFPUSHBUTTON);
    Repaint();
}

void ButtonPeer::ShowCheck()
{
    if (auto* box = qobject_cast<QCheckBox*>(m_button)) {
        box->setTristate(kKinds[Type()].mostCheck == BST_INDETERMINATE);
        box->setCheckState(m_check == BST_CHECKED         ? Qt::Checked
                           : m_check == BST_INDETERMINATE ? Qt::PartiallyChecked
                                                          : Qt::Unchecked);
    } else if (m_button && m_button->isCheckable()) {
        m_button->setChecked(m_check != BST_UNCHECKED);
    }
}

void ButtonPeer::SetCheck(UINT check)
{
    m_check = std::min(check, kKinds[Type()].mostCheck);
    ShowCheck();
    if (kKinds[Type()].isRadio)
        KeepTabStop();
}

// The keyboard reaches a group of radio buttons at the checked one.
void ButtonPeer::KeepTabStop()
{
    const DWORD style = m_check ? Style() | WS_TABSTOP : Style() & ~static_cast<DWORD>(WS_TABSTOP);
    if (style != Style() && Window())
        SetWindowLongA(Window(), GWL_STYLE, static_cast<LONG>(style));
}

void ButtonPeer::CheckInGroup()
{
    const HWND window = Window();
    const HWND dialog = GetParent(window);
    SendMessageA(window, BM_SETCHECK, BST_CHECKED, 0);
    HWND other = window;
    // As many steps as there may be windows, should handlers change the group meanwhile.
    for (int steps = 0; steps < 0xffff && Window() && IsChild(); ++steps) {
        other = GetNextDlgGroupItem(dialog, other, FALSE);
        if (!other || other == window)
            return;
        if (SendMessageA(other, WM_GETDLGCODE, 0, 0) == kRadio)
            SendMessageA(other, BM_SETCHECK, BST_UNCHECKED, 0);
    }
}

void ButtonPeer::Clicked()
{
    if (!Window())
        return;
    const ButtonKind& kind = kKinds[Type()];
    if (kind.changesItself && kind.isRadio)
        CheckInGroup();
    else if (kind.changesItself)
        SendMessageA(Window(), BM_SETCHECK, m_check == kind.mostCheck ? BST_UNCHECKED : m_check + 1, 0);
    Notify(BN_CLICKED);
}

bool ButtonPeer::DoubleClicked()
{
    const bool told =
        Style() & BS_NOTIFY || Type() == BS_RADIOBUTTON || Type() == BS_USERBUTTON || Type() == BS_OWNERDRAW;
    if (told)
        Notify(BN_DOUBLECLICKED);
    return told;
}

bool ButtonPeer::Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    static constexpr std::array<MessageRow<ButtonPeer>, 13> kRows = {{
        {BM_GETCHECK, &ButtonPeer::OnGetCheck},
        {BM_SETCHECK, &ButtonPeer::OnSetCheck},
        {BM_GETSTATE, &ButtonPeer::OnGetState},
        {BM_SETSTATE, &ButtonPeer::OnSetState},
        {BM_SETSTYLE, &ButtonPeer::OnSetStyle},
        {BM_CLICK, &ButtonPeer::OnClick},
        {BM_GETIMAGE, &ButtonPeer::OnGetImage},
        {BM_SETIMAGE, &ButtonPeer::OnSetImage},
        {WM_GETDLGCODE, &ButtonPeer::OnGetDlgCode},
        {WM_SETFOCUS, &ButtonPeer::OnSetFocus},
        {WM_KILLFOCUS, &ButtonPeer::OnKillFocus},
        {WM_KEYDOWN, &ButtonPeer::OnKeyDown},
        {WM_KEYUP, &ButtonPeer::OnKeyUp},
    }};
    return HandleMessage<ButtonPeer>(*this, kRows, message, wParam, lParam, result);
}

LRESULT ButtonPeer::OnSetCheck(WPARAM check, LPARAM)
{
    SetCheck(static_cast<UINT>(std::min<WPARAM>(check, BST_INDETERMINATE)));
    return 0;
}

LRESULT ButtonPeer::OnGetState(WPARAM, LPARAM)
{
    const bool pushed = m_button && m_button->isDown();
    const bool focused = Widget() && GetFocus() == Window();
    return static_cast<LRESULT>(m_check | (pushed ? BST_PUSHED : 0) | (focused ? BST_FOCUS : 0));
}

LRESULT ButtonPeer::OnSetState(WPARAM pushed, LPARAM)
{
    if (m_button)
        m_button->setDown(pushed != 0);
    return 0;
}

LRESULT ButtonPeer::OnSetStyle(WPARAM style, LPARAM)
{
    const DWORD kept = Style() & ~static_cast<DWORD>(BS_TYPEMASK);
    SetWindowLongA(Window(), GWL_STYLE, static_cast<LONG>(kept | (style & BS_TYPEMASK)));
    return 0;
}

LRESULT ButtonPeer::OnClick(WPARAM, LPARAM)
{
    ::SetFocus(Window());
    Clicked();
    return 0;
}

LRESULT ButtonPeer::OnSetImage(WPARAM kind, LPARAM image)
{
    if (kind != IMAGE_ICON || !m_button)
        return 0;
    const HICON before = std::exchange(m_icon, reinterpret_cast<HICON>(image));
    m_button->setIcon(StockIcon(*m_button->style(), m_icon, kIconSize));
    m_button->setIconSize({kIconSize, kIconSize});
    ShowText();
    return reinterpret_cast<LRESULT>(before);
}

LRESULT ButtonPeer::OnGetDlgCode(WPARAM, LPARAM)
{
    return kKinds[Type()].dlgCode;
}

LRESULT ButtonPeer::OnSetFocus(WPARAM, LPARAM)
{
    if (Style() & BS_NOTIFY)
        Notify(BN_SETFOCUS);
    return 0;
}

LRESULT ButtonPeer::OnKillFocus(WPARAM, LPARAM)
{
    if (m_button)
        m_button->setDown(false);
    if (Style() & BS_NOTIFY)
        Notify(BN_KILLFOCUS);
    return 0;
}

LRESULT ButtonPeer::OnKeyDown(WPARAM key, LPARAM)
{
    if (key == VK_SPACE && m_button)
        m_button->setDown(true);
    return 0;
}

LRESULT ButtonPeer::OnKeyUp(WPARAM key, LPARAM)
{
    if (key != VK_SPACE || !m_button || !m_button->isDown())
        return 0;
    m_button->setDown(false);
    Clicked();
    return 0;
}
