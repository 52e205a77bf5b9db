// CTextFile: reads and writes a text file line by line, with one line of un-reading.
//
//   CFile file("deck.inp", CFile::modeRead | CFile::shareDenyWrite);
//   CTextFile text;
//   text.AttachFile(&file);
//   CString line;
//   while (text.ReadString(line) == 0)
//       Parse(line, text.GetLineNo() - 1);
//
// Units: positions and counts are bytes; line numbers begin at 1. Lines end in CR LF in the file. Text is not
//   converted.
// Errors: a file that fails is shown in a message box with the framework's text and answered with 1, by
//   ReadString, SkipLine, SaveString and Backspace. Attaching, rewinding and clearing throw CFileException*.
//   A position beyond 2^31 - 1 is such a failure. Memory exceptions pass through.
// Threads: one object, and the file it is attached to, belong to one thread at a time.
#pragma once

#include <afx.h>

// Works on a CFile that the caller opens, keeps alive while it is attached, and closes. Copies share the
// file; each keeps its own position, but all read and write where the file stands: use one at a time and
// Rewind.
class AFX_EXT_CLASS CTextFile
{
public:
    CTextFile();
    CTextFile(const CTextFile& other) = default;
    CTextFile& operator=(const CTextFile& other) = default;
    virtual ~CTextFile();

    // Attaches a file and goes to its beginning. Null detaches.
    void AttachFile(CFile* pFile);
    // While detached, reading and un-reading answer -1; the others answer 1 and touch no file.
    void DetachFile();

    // Reads the next line: 0, -1 at the end of the file (`str` is untouched), 1 after an error.
    // Up to 1,022 characters lose the byte before the LF, whatever it is: a file with bare LF ends loses a
    // character of every line. Longer lines lose the LF only and keep their CR. A line that holds a zero byte
    // is cut there. A last line without an end counts one byte more than it has.
    int ReadString(CString& str);

    // Writes a line, CR LF added, and cuts off all that follows it in the file. Always 1, also after an
    // error.
    int SaveString(CString& str);

    // Passes over a line; answers as ReadString does.
    int SkipLine();

    // Goes back to the beginning of the line that was read last, or of the one before: 0, -1 at the beginning
    // of the file, 1 after an error.
    int Backspace();

    // Goes to the beginning of the file. Answers 1.
    int Rewind();
    // Empties the file. Answers 1.
    int Clear();

    // The number of the next line; 1 at the beginning.
    LONG GetLineNo();

protected:
    // Reads what is left of a line whose first block is read; the bytes taken, LF included (also when the
    // file ends without one).
    LONG ReadRemainingLine(CString& strRest);

    CFile* m_pFile = nullptr;
    LONG m_nPosition = 0; // where the next line begins
    LONG m_nLineNo = 1;

private:
    int ReadLine(CString& str);
    void SaveLine(const CString& str);
    LONG StartOfPreviousLine() const;
    LONG Beyond(LONGLONG count) const;
};
