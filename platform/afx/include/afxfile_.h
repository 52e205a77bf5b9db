// CFile and its kind: files on disk, text files, files in memory; and what is thrown when they fail.
//
//   CFile file("deck.inp", CFile::modeRead | CFile::shareDenyWrite);
//   char block[512];
//   const UINT count = file.Read(block, sizeof block);     // 0 at the end
//
// Errors: members throw CFileException*; Open answers FALSE and fills the exception it is given.
// Threads: one object belongs to one thread at a time.
// Differs: lengths and positions are 64 bits wide; a path longer than MAX_PATH - 1 bytes has no status.
#pragma once

#include "afxexc_.h"
#include "afxtime_.h"

#include <memory>
#include <string>

// The system header's macro of this name would rename the member.
#undef GetFileTitle

class AFX_CORE_CLASS CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)
public:
    enum {
        none,
        generic,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile,
        genericException = generic
    };

    explicit CFileException(int cause = none, LONG osError = -1, LPCSTR fileName = nullptr);

    // The cause that an error code of the system (of the C library) belongs to.
    static int OsErrorToException(LONG osError);
    static int ErrnoToException(int error);
    // Throws the exception that belongs to an error code; does nothing for 0.
    static void ThrowOsError(LONG osError, LPCSTR fileName = nullptr);
    static void ThrowErrno(int error, LPCSTR fileName = nullptr);

    BOOL GetErrorMessage(LPSTR text, UINT size, UINT* helpContext = nullptr) override;

    int m_cause;
    LONG m_lOsError; // the system's error code, -1 when there is none
    CString m_strFileName;
};

[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowFileException(int cause, LONG osError = -1,
                                                            LPCSTR fileName = nullptr);

// What CFile::GetStatus tells of a file.
struct CFileStatus {
    CTime m_ctime; // created
    CTime m_mtime; // last written
    CTime m_atime; // last read
    ULONGLONG m_size = 0;
    DWORD m_attribute = 0; // CFile::Attribute bits
    char m_szFullName[MAX_PATH] = {};
};

// A file on disk, without a buffer. The destructor closes it.
class AFX_CORE_CLASS CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)
public:
    enum OpenFlags {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000, // counts as shareExclusive
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,     // an existing file is emptied
        modeNoTruncate = 0x2000, // with modeCreate: an existing file is kept
        typeText = 0x4000,       // for CStdioFile, which is text unless typeBinary is given
        typeBinary = 0x8000,
        osNoBuffer = 0x10000,
        osWriteThrough = 0x20000,
        osRandomAccess = 0x40000,
        osSequentialScan = 0x80000
    };
    enum Attribute {
        normal = 0x00,
        readOnly = 0x01,
        hidden = 0x02,
        system = 0x04,
        volume = 0x08,
        directory = 0x10,
        archive = 0x20
    };
    enum SeekPosition { begin = 0, current = 1, end = 2 };

    static const HANDLE hFileNull;

    CFile();
    explicit CFile(HANDLE file); // an open file, which Close closes but the destructor leaves open
    CFile(LPCSTR fileName, UINT openFlags);
    ~CFile() override;

    operator HANDLE() const { return m_hFile; }

    // Opens a file, after closing the one that was open. FALSE when that fails; `error` (may be null) says
    // why.
    virtual BOOL Open(LPCSTR fileName, UINT openFlags, CFileException* error = nullptr);
    // Another object on the same open file, with which it shares the position. The caller deletes it.
    virtual CFile* Duplicate() const;

    // Reads up to `count` bytes; how many there were, 0 at the end of the file.
    virtual UINT Read(void* buffer, UINT count);
    // Writes all bytes, or throws.
    virtual void Write(const void* buffer, UINT count);
    DWORD ReadHuge(void* buffer, DWORD count) { return Read(buffer, count); }
    void WriteHuge(const void* buffer, DWORD count) { Write(buffer, count); }

    // The new position, from the file's beginning. It may lie beyond the end.
    virtual ULONGLONG Seek(LONGLONG offset, UINT from);
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    void SeekToBegin() { Seek(0, begin); }
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    // Cuts or lengthens the file; the position is its new end.
    virtual void SetLength(ULONGLONG length);

    virtual void LockRange(ULONGLONG position, ULONGLONG count);
    virtual void UnlockRange(ULONGLONG position, ULONGLONG count);

    virtual void Flush();
    virtual void Close(); // does nothing on a closed file
    virtual void Abort(); // closes without throwing

    // FALSE when the file has no path or is gone.
    BOOL GetStatus(CFileStatus& status) const;
    virtual CString GetFileName() const;  // "deck.inp"
    virtual CString GetFileTitle() const; // "deck"
    virtual CString GetFilePath() const;
    virtual void SetFilePath(LPCSTR path) { m_strFileName = path; }

    static void Rename(LPCSTR oldName, LPCSTR newName);
    static void Remove(LPCSTR fileName);
    // FALSE when there is no such file; `status` is untouched then.
    static BOOL GetStatus(LPCSTR fileName, CFileStatus& status);
    // Sets times that are not 0, and the attributes.
    static void SetStatus(LPCSTR fileName, const CFileStatus& status);

    HANDLE m_hFile;

protected:
    void CloseQuietly();

    BOOL m_bCloseOnDelete = FALSE;
    CString m_strFileName;
};

// A buffered file of text lines; in the file they end in CR LF, in memory in LF. With typeBinary no byte
// changes. Ctrl-Z (0x1A) ends a text when it is read. Positions count the file's own bytes.
class AFX_CORE_CLASS CStdioFile : public CFile
{
    DECLARE_DYNAMIC(CStdioFile)
public:
    CStdioFile();
    CStdioFile(LPCSTR fileName, UINT openFlags);
    ~CStdioFile() override;

    BOOL Open(LPCSTR fileName, UINT openFlags, CFileException* error = nullptr) override;
    [[noreturn]] CFile* Duplicate() const override; // throws CNotSupportedException

    UINT Read(void* buffer, UINT count) override;
    void Write(const void* buffer, UINT count) override;

    // Adds a text as it is; no line end of its own.
    virtual void WriteString(LPCSTR text);
    // Reads up to `size` - 1 bytes or through the next LF, which is kept. Null at the end of the file.
    virtual LPSTR ReadString(LPSTR text, UINT size);
    // Reads the next line, without its end. FALSE at the end of the file; `line` is "" then.
    virtual BOOL ReadString(CString& line);

    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    ULONGLONG GetPosition() const override;
    ULONGLONG GetLength() const override;
    void SetLength(ULONGLONG length) override;
    [[noreturn]] void LockRange(ULONGLONG position, ULONGLONG count) override;
    [[noreturn]] void UnlockRange(ULONGLONG position, ULONGLONG count) override;
    void Flush() override;
    void Close() override;
    void Abort() override;

private:
    int NextByte();
    int NextCharacter();
    void TakeRun(CString& line);
    void PutByte(char byte);
    void WriteOut();
    void DropRead();
    void Reset(bool text);

    std::unique_ptr<char[]> m_buffer;
    UINT m_next = 0;   // next byte to read, or to fill
    UINT m_filled = 0; // bytes read into the buffer; 0 while writing
    bool m_text = true;
    bool m_writing = false;
    bool m_ended = false; // Ctrl-Z was met
};

// A file in memory, which grows as it is written.
class AFX_CORE_CLASS CMemFile : public CFile
{
    DECLARE_DYNAMIC(CMemFile)
public:
    explicit CMemFile(UINT growBytes = 1024);
    ~CMemFile() override;

    // The content as it is now; valid until the next member call.
    const BYTE* GetBufferPtr() const { return reinterpret_cast<const BYTE*>(m_content.data()); }

    UINT Read(void* buffer, UINT count) override;
    void Write(const void* buffer, UINT count) override;
    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    ULONGLONG GetPosition() const override { return m_position; }
    ULONGLONG GetLength() const override { return m_content.size(); }
    void SetLength(ULONGLONG length) override;
    [[noreturn]] CFile* Duplicate() const override;
    [[noreturn]] void LockRange(ULONGLONG position, ULONGLONG count) override;
    [[noreturn]] void UnlockRange(ULONGLONG position, ULONGLONG count) override;
    void Flush() override {}
    void Close() override;
    void Abort() override { Close(); }

private:
    std::string m_content;
    ULONGLONG m_position = 0;
};
