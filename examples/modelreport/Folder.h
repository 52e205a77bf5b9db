// A folder that is made for the report.
#pragma once

#include <ZEK_lib.h>

// Makes the folder, with those above it, where it is missing; "" is the current folder. What was made is
// removed again with the object, as far as it is empty, unless it is to be kept.
class CNewFolder
{
public:
    explicit CNewFolder(const CString& path);
    ~CNewFolder();
    CNewFolder(const CNewFolder&) = delete;
    CNewFolder& operator=(const CNewFolder&) = delete;

    bool Exists() const { return m_exists; }
    void Keep() { m_made.RemoveAll(); }

private:
    bool Make(const CString& path);

    CStringArray m_made; // outermost first
    bool m_exists;
};
