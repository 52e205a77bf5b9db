#include "Folder.h"

#include "Paths.h"

namespace {

CString WithoutSeparatorsAtEnd(CString path)
{
    while (path.GetLength() > 1 && FolderPart(path).GetLength() == path.GetLength() &&
           path[path.GetLength() - 1] != ':')
        path = path.Left(path.GetLength() - 1);
    return path;
}

} // namespace

CNewFolder::CNewFolder(const CString& path) : m_exists(path.IsEmpty() || Make(WithoutSeparatorsAtEnd(path)))
{
}

CNewFolder::~CNewFolder()
{
    for (int i = m_made.GetUpperBound(); i >= 0; --i)
        RemoveDirectoryA(m_made[i]);
}

bool CNewFolder::Make(const CString& path)
{
    if (FolderExists(path))
        return true;
    const CString above = WithoutSeparatorsAtEnd(FolderPart(path));
    if (!above.IsEmpty() && above != path && !Make(above))
        return false;
    if (!CreateDirectoryA(path, nullptr))
        return false;
    m_made.Add(path);
    return true;
}
