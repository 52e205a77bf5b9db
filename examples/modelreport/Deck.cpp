#include "Deck.h"

#include "Fields.h"

#include "Tracker.h"

void CDeckCard::Set(const CString& line, const DeckPlace& place)
{
    const int comma = line.Find(',');
    m_keyword = Folded(comma < 0 ? line.Mid(1) : line.Mid(1, comma - 1));
    m_place = place;
    m_names.RemoveAll();
    m_values.RemoveAll();
    if (comma >= 0)
        AddOptions(line.Mid(comma + 1));
}

void CDeckCard::AddOptions(const CString& line)
{
    CStringArray fields;
    SplitFields(line, fields);
    for (int i = 0; i < fields.GetSize(); ++i) {
        const CString field = fields[i];
        const int equals = field.Find('=');
        m_names.Add(Folded(equals < 0 ? field : field.Left(equals)));
        m_values.Add(equals < 0 ? CString() : Unquoted(field.Mid(equals + 1)));
    }
}

int CDeckCard::Find(LPCSTR option) const
{
    for (int i = 0; i < m_names.GetSize(); ++i)
        if (m_names[i] == option)
            return i;
    return -1;
}

CString CDeckCard::Value(LPCSTR option) const
{
    const int at = Find(option);
    return at < 0 ? CString() : CString(m_values[at]);
}

CString CDeckCard::RequiredValue(LPCSTR option) const
{
    CString value = Value(option);
    if (value.IsEmpty())
        ThrowDeckError(m_place, "*" + m_keyword + " needs the option " + option + "=");
    return value;
}

CDeckException::CDeckException(const DeckPlace& place, const CString& what)
{
    m_text.Format("%s:%d: %s", LPCSTR(place.file), int(place.line), LPCSTR(what));
}

BOOL CDeckException::GetErrorMessage(LPSTR text, UINT size, UINT*)
{
    if (!text || size == 0)
        return FALSE;
    const CString cut = m_text.Left(static_cast<int>(size) - 1);
    memcpy(text, LPCSTR(cut), static_cast<size_t>(cut.GetLength()) + 1);
    return TRUE;
}

void ThrowDeckError(const DeckPlace& place, const CString& what)
{
    throw new CDeckException(place, what);
}
