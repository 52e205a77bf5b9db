#include "TextFile.h"

#include <afxwin.h>

#include <cstring>
#include <limits>

namespace {

constexpr int kOk = 0;
constexpr int kAtEnd = -1;
constexpr int kFailed = 1;
constexpr int kDone = 1;

constexpr UINT kFirstBlock = 1023;
constexpr UINT kBlock = 2046;
constexpr char kNewLine = '\n';

// Reads a block; 0 bytes also for the count -1 that some files report as their end.
UINT ReadBlock(CFile& file, char* block, UINT size)
{
    const UINT count = file.Read(block, size);
    return count <= size ? count : 0;
}

const char* FindNewLine(const char* block, UINT count)
{
    return static_cast<const char*>(std::memchr(block, kNewLine, count));
}

// Runs `work`; a file exception is shown and answered with 1.
template <class WORK>
int Guarded(WORK work)
{
    try {
        return work();
    } catch (CFileException* e) {
        constexpr UINT kTextSize = 512;
        char text[kTextSize];
        e->GetErrorMessage(text, kTextSize);
        e->Delete();
        AfxMessageBox(text, 0, 0);
        return kFailed;
    }
}

} // namespace

CTextFile::CTextFile() = default;
CTextFile::~CTextFile() = default;

void CTextFile::AttachFile(CFile* pFile)
{
    m_pFile = pFile;
    m_nPosition = 0;
    m_nLineNo = 1;
    if (m_pFile)
        m_pFile->Seek(0, CFile::begin);
}

void CTextFile::DetachFile()
{
    m_pFile = nullptr;
}

int CTextFile::ReadString(CString& str)
{
    if (!m_pFile)
        return kAtEnd;
    return Guarded([&] { return ReadLine(str); });
}

int CTextFile::ReadLine(CString& str)
{
    char block[kFirstBlock + 1];
    const UINT count = ReadBlock(*m_pFile, block, kFirstBlock);
    if (count == 0)
        return kAtEnd;
    block[count] = '\0';

    CString rest;
    LONG next = 0;
    if (const char* newLine = FindNewLine(block, count)) {
        const auto length = newLine - block;
        block[length > 0 ? length - 1 : 0] = '\0'; // takes the CR along
        next = Beyond(length + 1);
    } else {
        next = Beyond(LONGLONG{count} + ReadRemainingLine(rest));
    }
    // A zero byte in the first block ends the text, so nothing of the rest belongs to it.
    const bool whole = std::strlen(block) == count;
    str = whole ? block + rest : CString(block);
    m_nPosition = next;
    m_pFile->Seek(m_nPosition, CFile::begin);
    ++m_nLineNo;
    return kOk;
}

LONG CTextFile::ReadRemainingLine(CString& strRest)
{
    strRest.Empty();
    bool cut = false; // after a zero byte the text ends, the count goes on
    LONGLONG total = 0;
    char block[kBlock];
    while (const UINT count = ReadBlock(*m_pFile, block, kBlock)) {
        const char* newLine = FindNewLine(block, count);
        const UINT length = newLine ? static_cast<UINT>(newLine - block) : count;
        const auto text = static_cast<UINT>(strnlen(block, length));
        if (!cut)
            strRest.Append(block, static_cast<int>(text));
        cut = cut || text < length;
        total += length;
        Beyond(total);
        if (newLine)
            break;
    }
    return static_cast<LONG>(total + 1);
}

// The position `count` bytes on; throws when a LONG cannot hold it.
LONG CTextFile::Beyond(LONGLONG count) const
{
    // One less than the type holds: a line's own count includes an end that may be missing.
    if (m_nPosition + count >= std::numeric_limits<LONG>::max())
        AfxThrowFileException(CFileException::badSeek, -1, m_pFile->GetFilePath());
    return static_cast<LONG>(m_nPosition + count);
}

int CTextFile::SaveString(CString& str)
{
    if (!m_pFile)
        return kDone;
    return Guarded([&] {
        SaveLine(str);
        return kDone;
    });
}

void CTextFile::SaveLine(const CString& str)
{
    const CString line = str + "\r\n";
    const LONG next = Beyond(line.GetLength());
    m_pFile->Write(line, static_cast<UINT>(line.GetLength()));
    m_nPosition = next;
    m_pFile->SetLength(static_cast<ULONGLONG>(m_nPosition));
    ++m_nLineNo;
}

int CTextFile::SkipLine()
{
    CString skipped;
    return ReadString(skipped);
}

int CTextFile::Backspace()
{
    if (!m_pFile || m_nPosition == 0)
        return kAtEnd;
    return Guarded([&] {
        m_nPosition = StartOfPreviousLine();
        m_pFile->Seek(m_nPosition, CFile::begin);
        --m_nLineNo;
        return kOk;
    });
}

// Searches backwards for the newline before the one that ends at the present position.
LONG CTextFile::StartOfPreviousLine() const
{
    char block[kBlock];
    LONG place = m_nPosition - 1;
    while (place > 0) {
        const UINT chunk = place < static_cast<LONG>(kBlock) ? static_cast<UINT>(place) : kBlock;
        place -= static_cast<LONG>(chunk);
        m_pFile->Seek(place, CFile::begin);
        for (UINT i = ReadBlock(*m_pFile, block, chunk); i > 0; --i)
            if (block[i - 1] == kNewLine)
                return place + static_cast<LONG>(i);
    }
    return 0;
}

int CTextFile::Rewind()
{
    if (m_pFile)
        m_pFile->Seek(0, CFile::begin);
    m_nPosition = 0;
    m_nLineNo = 1;
    return kDone;
}

int CTextFile::Clear()
{
    if (m_pFile)
        m_pFile->SetLength(0);
    m_nPosition = 0;
    m_nLineNo = 1;
    return kDone;
}

LONG CTextFile::GetLineNo()
{
    return m_nLineNo;
}
