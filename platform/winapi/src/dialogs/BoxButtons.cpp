#include "BoxButtons.h"

#include <winnls.h>

#include <algorithm>
#include <iterator>

namespace {

constexpr int kSets[][3] = {
    {IDOK, 0, 0},     {IDOK, IDCANCEL, 0},    {IDABORT, IDRETRY, IDIGNORE},      {IDYES, IDNO, IDCANCEL},
    {IDYES, IDNO, 0}, {IDRETRY, IDCANCEL, 0}, {IDCANCEL, IDTRYAGAIN, IDCONTINUE}};

struct Words {
    int id;
    const char16_t* english;
    const char16_t* korean;
    const char16_t* japanese;
    const char16_t* chinese;
};

constexpr Words kWords[] = {
    {IDOK, u"OK", u"확인", u"OK", u"确定"},
    {IDCANCEL, u"Cancel", u"취소", u"キャンセル", u"取消"},
    {IDABORT, u"&Abort", u"중단(&A)", u"中止(&A)", u"中止(&A)"},
    {IDRETRY, u"&Retry", u"다시 시도(&R)", u"再試行(&R)", u"重试(&R)"},
    {IDIGNORE, u"&Ignore", u"무시(&I)", u"無視(&I)", u"忽略(&I)"},
    {IDYES, u"&Yes", u"예(&Y)", u"はい(&Y)", u"是(&Y)"},
    {IDNO, u"&No", u"아니요(&N)", u"いいえ(&N)", u"否(&N)"},
    {IDHELP, u"Help", u"도움말", u"ヘルプ", u"帮助"},
    {IDTRYAGAIN, u"&Try again", u"다시 시도(&T)", u"再実行(&T)", u"再试一次(&T)"},
    {IDCONTINUE, u"&Continue", u"계속(&C)", u"続行(&C)", u"继续(&C)"},
};

} // namespace

bool IsButtonSet(UINT style)
{
    return (style & MB_TYPEMASK) < std::size(kSets);
}

BoxButtons::BoxButtons(UINT style)
{
    for (const int id : kSets[style & MB_TYPEMASK])
        if (id)
            m_ids[m_count++] = id;
    if (style & MB_HELP)
        m_ids[m_count++] = IDHELP;
    const UINT standard = (style & MB_DEFMASK) / MB_DEFBUTTON2;
    m_default = m_ids[standard < m_count ? standard : 0];
}

bool BoxButtons::Has(int id) const
{
    return std::find(m_ids, m_ids + m_count, id) != m_ids + m_count;
}

int BoxButtons::Cancel() const
{
    if (Has(IDCANCEL))
        return IDCANCEL;
    return Has(IDOK) ? IDOK : 0;
}

std::u16string ButtonText(int id, LANGID language)
{
    const auto* row = std::find_if(std::begin(kWords), std::end(kWords),
                                   [id](const Words& words) { return words.id == id; });
    switch (PRIMARYLANGID(language)) {
    case LANG_KOREAN:
        return row->korean;
    case LANG_JAPANESE:
        return row->japanese;
    case LANG_CHINESE:
        return row->chinese;
    default:
        return row->english;
    }
}
