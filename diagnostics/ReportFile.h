// The text files that diagnostics leave behind; failure to write one is silent.
#pragma once

#include <afx.h>

// Replaces a file of text lines by what `write(CStdioFile&)` puts there. False, and no file, when it cannot
// be opened; when it cannot be written to its end, what there is of it is removed.
template <class WRITE>
bool WriteReportFile(const char* path, WRITE write) noexcept
{
    CStdioFile file;
    try {
        if (!file.Open(path, CFile::modeCreate | CFile::modeWrite | CFile::typeText))
            return false;
        write(file);
        file.Close();
        return true;
    } catch (CException* e) {
        e->Delete();
    } catch (...) {
    }
    file.Abort();
    DeleteFileA(path);
    return false;
}
