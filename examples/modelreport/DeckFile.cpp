#include "DeckFile.h"

namespace {

constexpr ULONGLONG kMostBytes = 1 << 30; // with an added CR for each byte an int still counts them
constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

CString Content(CFile& file)
{
    const int length = static_cast<int>(file.GetLength());
    CString content;
    const UINT read = file.Read(content.GetBuffer(length), static_cast<UINT>(length));
    content.ReleaseBuffer(static_cast<int>(read));
    return content;
}

// How many line feeds of `text` have no carriage return before them.
int CountBareLineFeeds(const CString& text)
{
    int bare = 0;
    const char* bytes = text;
    for (int i = 0; i < text.GetLength(); ++i)
        bare += bytes[i] == '\n' && (i == 0 || bytes[i - 1] != '\r');
    return bare;
}

CString WithCarriageReturns(const CString& text)
{
    const int bare = CountBareLineFeeds(text);
    if (bare == 0)
        return text;
    CString result;
    const char* from = text;
    char* to = result.GetBuffer(text.GetLength() + bare);
    for (int i = 0; i < text.GetLength(); ++i) {
        if (from[i] == '\n' && (i == 0 || from[i - 1] != '\r'))
            *to++ = '\r';
        *to++ = from[i];
    }
    result.ReleaseBuffer(text.GetLength() + bare);
    return result;
}

} // namespace

bool CDeckFile::Load(const CString& path)
{
    CFile file(path, CFile::modeRead | CFile::shareDenyNone);
    if (file.GetLength() >= kMostBytes)
        return false;
    CString content = Content(file);
    if (content.Left(3) == kByteOrderMark)
        content.Delete(0, 3);
    m_content = WithCarriageReturns(content);
    m_at = 0;
    return true;
}

UINT CDeckFile::Read(void* buffer, UINT count)
{
    const UINT left = static_cast<UINT>(m_content.GetLength() - m_at);
    const UINT read = count < left ? count : left;
    memcpy(buffer, LPCSTR(m_content) + m_at, read);
    m_at += static_cast<int>(read);
    return read;
}

ULONGLONG CDeckFile::Seek(LONGLONG offset, UINT from)
{
    const int length = m_content.GetLength();
    const LONGLONG base = from == begin ? 0 : from == current ? m_at : length;
    const LONGLONG target = base + offset;
    m_at = target < 0 ? 0 : target > length ? length : static_cast<int>(target);
    return static_cast<ULONGLONG>(m_at);
}
