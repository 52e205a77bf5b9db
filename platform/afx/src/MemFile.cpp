#include <afxfile_.h>

#include <cstring>
#include <new>
#include <stdexcept>

// clang-format off
IMPLEMENT_DYNAMIC(CMemFile, CFile)
// clang-format on

CMemFile::CMemFile(UINT growBytes)
{
    m_content.reserve(growBytes);
}

CMemFile::~CMemFile() = default;

UINT CMemFile::Read(void* buffer, UINT count)
{
    if (m_position >= m_content.size())
        return 0;
    const ULONGLONG left = m_content.size() - m_position;
    const UINT done = count < left ? count : static_cast<UINT>(left);
    std::memcpy(buffer, m_content.data() + m_position, done);
    m_position += done;
    return done;
}

void CMemFile::Write(const void* buffer, UINT count)
{
    if (count == 0)
        return;
    const ULONGLONG last = m_position + count;
    const ULONGLONG position = m_position;
    if (last > m_content.size())
        SetLength(last);
    std::memcpy(m_content.data() + position, buffer, count);
    m_position = last;
}

ULONGLONG CMemFile::Seek(LONGLONG offset, UINT from)
{
    const ULONGLONG base = from == begin ? 0 : (from == current ? m_position : m_content.size());
    if (offset < 0 && static_cast<ULONGLONG>(-offset) > base)
        AfxThrowFileException(CFileException::badSeek);
    m_position = base + static_cast<ULONGLONG>(offset);
    return m_position;
}

void CMemFile::SetLength(ULONGLONG length)
{
    try {
        m_content.resize(length);
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    } catch (const std::length_error&) {
        AfxThrowMemoryException();
    }
    m_position = length;
}

CFile* CMemFile::Duplicate() const
{
    AfxThrowNotSupportedException();
}

void CMemFile::LockRange(ULONGLONG, ULONGLONG)
{
    AfxThrowNotSupportedException();
}

void CMemFile::UnlockRange(ULONGLONG, ULONGLONG)
{
    AfxThrowNotSupportedException();
}

void CMemFile::Close()
{
    m_content.clear();
    m_position = 0;
}
