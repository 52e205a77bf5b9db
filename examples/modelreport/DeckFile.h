// A deck in memory, as CTextFile reads it: every line end is CR LF, whatever the file on disk has.
#pragma once

#include <ZEK_lib.h>

// Read-only. Seek stays within the content.
class CDeckFile : public CFile
{
public:
    // Reads the whole file; a byte order mark of UTF-8 is left out. False when the file is larger than 1 GB.
    // Throws CFileException.
    bool Load(const CString& path);

    UINT Read(void* buffer, UINT count) override;
    ULONGLONG Seek(LONGLONG offset, UINT from) override;

private:
    CString m_content;
    int m_at = 0;
};
