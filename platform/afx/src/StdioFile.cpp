#include <afxfile_.h>

#include <cstring>
#include <new>

// clang-format off
IMPLEMENT_DYNAMIC(CStdioFile, CFile)
// clang-format on

namespace {

constexpr UINT kBufferSize = 8192;
constexpr int kEnd = -1;
constexpr char kCtrlZ = 0x1A;

} // namespace

CStdioFile::CStdioFile() = default;

CStdioFile::CStdioFile(LPCSTR fileName, UINT openFlags)
{
    CFileException error(FALSE);
    if (!CStdioFile::Open(fileName, openFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

// What could not be written is lost here; Close tells of it.
CStdioFile::~CStdioFile()
{
    try {
        if (m_bCloseOnDelete)
            CStdioFile::Close();
    } catch (CException* e) {
        e->Delete();
    }
}

void CStdioFile::Reset(bool text)
{
    m_next = m_filled = 0;
    m_writing = m_ended = false;
    m_text = text;
}

BOOL CStdioFile::Open(LPCSTR fileName, UINT openFlags, CFileException* error)
{
    if (!m_buffer)
        m_buffer.reset(new (std::nothrow) char[kBufferSize]);
    if (!m_buffer)
        AfxThrowMemoryException();
    if (m_hFile != hFileNull)
        CStdioFile::Close();
    Reset((openFlags & typeBinary) == 0);
    return CFile::Open(fileName, openFlags & ~static_cast<UINT>(typeText | typeBinary), error);
}

CFile* CStdioFile::Duplicate() const
{
    AfxThrowNotSupportedException();
}

// ---- reading

int CStdioFile::NextByte()
{
    if (m_writing)
        WriteOut();
    if (m_next == m_filled) {
        m_next = m_filled = 0;
        m_filled = CFile::Read(m_buffer.get(), kBufferSize);
        if (m_filled == 0)
            return kEnd;
    }
    return static_cast<unsigned char>(m_buffer[m_next++]);
}

// The next byte of the text: LF for CR LF, the end at Ctrl-Z.
int CStdioFile::NextCharacter()
{
    const int byte = m_ended ? kEnd : NextByte();
    if (!m_text || (byte != '\r' && byte != kCtrlZ))
        return byte;
    if (byte == kCtrlZ) {
        m_ended = true;
        --m_next;
        return kEnd;
    }
    const int following = NextByte();
    if (following == '\n')
        return '\n';
    if (following != kEnd)
        --m_next;
    return '\r';
}

UINT CStdioFile::Read(void* buffer, UINT count)
{
    auto* bytes = static_cast<char*>(buffer);
    UINT done = 0;
    for (int ch; done < count && (ch = NextCharacter()) != kEnd;)
        bytes[done++] = static_cast<char>(ch);
    return done;
}

LPSTR CStdioFile::ReadString(LPSTR text, UINT size)
{
    if (size == 0)
        return nullptr;
    UINT done = 0;
    for (int ch = 0; done + 1 < size && ch != '\n';) {
        ch = NextCharacter();
        if (ch == kEnd)
            break;
        text[done++] = static_cast<char>(ch);
    }
    text[done] = '\0';
    return done == 0 && size > 1 ? nullptr : text;
}

BOOL CStdioFile::ReadString(CString& line)
{
    line.Empty();
    int ch = NextCharacter();
    if (ch == kEnd)
        return FALSE;
    while (ch != kEnd && ch != '\n') {
        line += static_cast<char>(ch);
        TakeRun(line);
        ch = NextCharacter();
    }
    return TRUE;
}

// Moves what lies in the buffer and means itself to the end of `line`.
void CStdioFile::TakeRun(CString& line)
{
    const char* const run = m_buffer.get() + m_next;
    UINT length = 0;
    while (length < m_filled - m_next && run[length] != '\n' && run[length] != '\r' && run[length] != kCtrlZ)
        ++length;
    line.Append(run, static_cast<int>(length));
    m_next += length;
}

// ---- writing

void CStdioFile::WriteOut()
{
    const UINT count = m_next;
    m_next = 0;
    m_writing = false;
    CFile::Write(m_buffer.get(), count);
}

// Gives what was read ahead back to the file.
void CStdioFile::DropRead()
{
    const LONGLONG ahead = LONGLONG{m_filled} - m_next;
    m_next = m_filled = 0;
    m_ended = false;
    if (ahead > 0)
        CFile::Seek(-ahead, current);
}

void CStdioFile::PutByte(char byte)
{
    if (m_next == kBufferSize) {
        WriteOut();
        m_writing = true;
    }
    m_buffer[m_next++] = byte;
}

void CStdioFile::Write(const void* buffer, UINT count)
{
    if (!m_writing)
        DropRead();
    m_writing = true;
    const auto* bytes = static_cast<const char*>(buffer);
    for (UINT i = 0; i < count; ++i) {
        if (m_text && bytes[i] == '\n')
            PutByte('\r');
        PutByte(bytes[i]);
    }
}

void CStdioFile::WriteString(LPCSTR text)
{
    if (text)
        Write(text, static_cast<UINT>(std::strlen(text)));
}

// ---- position and end

void CStdioFile::Flush()
{
    if (m_writing)
        WriteOut();
    CFile::Flush();
}

ULONGLONG CStdioFile::Seek(LONGLONG offset, UINT from)
{
    if (m_writing)
        WriteOut();
    else
        DropRead();
    return CFile::Seek(offset, from);
}

ULONGLONG CStdioFile::GetPosition() const
{
    const ULONGLONG position = CFile::GetPosition();
    return m_writing ? position + m_next : position - (m_filled - m_next);
}

ULONGLONG CStdioFile::GetLength() const
{
    const ULONGLONG length = CFile::GetLength();
    const ULONGLONG written = m_writing ? GetPosition() : 0;
    return written > length ? written : length;
}

void CStdioFile::SetLength(ULONGLONG length)
{
    if (m_writing)
        WriteOut();
    CFile::SetLength(length);
}

void CStdioFile::LockRange(ULONGLONG, ULONGLONG)
{
    AfxThrowNotSupportedException();
}

void CStdioFile::UnlockRange(ULONGLONG, ULONGLONG)
{
    AfxThrowNotSupportedException();
}

void CStdioFile::Close()
{
    try {
        if (m_writing)
            WriteOut();
    } catch (...) {
        Abort();
        throw;
    }
    Reset(true);
    CFile::Close();
}

void CStdioFile::Abort()
{
    Reset(true);
    CFile::Abort();
}
