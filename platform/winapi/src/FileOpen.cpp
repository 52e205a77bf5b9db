#include "Error.h"
#include "FileAttributes.h"
#include "OpenFile.h"
#include "Path.h"
#include "Waitable.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

struct Request {
    std::string path;
    DWORD access, share, disposition, flags;
};

bool WantsWrite(DWORD access)
{
    return access & (GENERIC_WRITE | GENERIC_ALL);
}

bool MayCreate(DWORD disposition)
{
    return disposition == CREATE_NEW || disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
}

bool Truncates(DWORD disposition)
{
    return disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING;
}

DWORD CheckArguments(const Request& request)
{
    if (request.disposition < CREATE_NEW || request.disposition > TRUNCATE_EXISTING)
        return ERROR_INVALID_PARAMETER;
    if (request.disposition == TRUNCATE_EXISTING && !WantsWrite(request.access))
        return ERROR_INVALID_PARAMETER;
    return request.flags & FILE_FLAG_OVERLAPPED ? ERROR_NOT_SUPPORTED : NO_ERROR;
}

// CREATE_ALWAYS cuts the file even for a caller that only reads.
int OpenFlags(const Request& request)
{
    const bool reads = request.access & (GENERIC_READ | GENERIC_ALL);
    const bool writes = WantsWrite(request.access) || Truncates(request.disposition);
    const int mode = !writes ? O_RDONLY : reads || !WantsWrite(request.access) ? O_RDWR : O_WRONLY;
    return mode | O_CLOEXEC | O_NOCTTY | (request.flags & FILE_FLAG_WRITE_THROUGH ? O_DSYNC : 0);
}

int OpenWith(const Request& request, int extra)
{
    const mode_t mode = request.flags & FILE_ATTRIBUTE_READONLY ? 0444 : 0666;
    return Retry([&] { return open(request.path.c_str(), OpenFlags(request) | extra, mode); });
}

// A file that may be new is first tried as such, so that we know whether it was there. A name that is taken
// and yet cannot be opened is a link to nothing, or vanished just now.
int OpenDescriptor(const Request& request, bool& existed)
{
    existed = false;
    int fd = MayCreate(request.disposition) ? OpenWith(request, O_CREAT | O_EXCL) : -1;
    if (fd >= 0 || (MayCreate(request.disposition) && (errno != EEXIST || request.disposition == CREATE_NEW)))
        return fd;
    existed = true;
    fd = OpenWith(request, 0);
    return fd < 0 && errno == ENOENT && MayCreate(request.disposition) ? OpenWith(request, O_CREAT) : fd;
}

bool FailOpen(const Request& request)
{
    if (errno == EEXIST)
        return Fail(ERROR_FILE_EXISTS);
    return FailErrno(request.path);
}

// Refusals that the file itself brings with it.
bool CheckFile(const Request& request, const struct stat& status, bool existed)
{
    if (S_ISDIR(status.st_mode) && !(request.flags & FILE_FLAG_BACKUP_SEMANTICS))
        return Fail(ERROR_ACCESS_DENIED);
    const bool writes = WantsWrite(request.access) || Truncates(request.disposition);
    return !existed || !writes || !IsReadOnly(status) || Fail(ERROR_ACCESS_DENIED);
}

bool Prepare(OpenFile& file, const Request& request, bool existed)
{
    struct stat status;
    if (fstat(file.Fd(), &status) != 0)
        return FailErrno();
    if (!CheckFile(request, status, existed) || !file.Join(status))
        return false;
    if (existed && Truncates(request.disposition) && S_ISREG(status.st_mode) && ftruncate(file.Fd(), 0) != 0)
        return FailErrno();
    const DWORD special = request.flags & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    return existed || !special ||
           SetAttributes({file.Fd(), nullptr}, status, special | FILE_ATTRIBUTE_ARCHIVE);
}

HANDLE OpenRequest(const Request& request)
{
    bool existed = false;
    const int fd = OpenDescriptor(request, existed);
    if (fd < 0)
        return FailOpen(request), INVALID_HANDLE_VALUE;
    auto file = std::make_shared<OpenFile>(fd, request.access, request.share);
    if (!Prepare(*file, request, existed))
        return INVALID_HANDLE_VALUE;
    if (request.flags & FILE_FLAG_DELETE_ON_CLOSE)
        file->DeleteOnClose(request.path);
    const bool tellsExisted =
        existed && (request.disposition == CREATE_ALWAYS || request.disposition == OPEN_ALWAYS);
    SetLastError(tellsExisted ? ERROR_ALREADY_EXISTS : NO_ERROR);
    return AddHandle(std::move(file));
}

// The object of a handle that CloseHandle closes; else null with ERROR_INVALID_HANDLE.
std::shared_ptr<KernelObject> ClosableObject(HANDLE handle)
{
    auto object = HandleObject(handle); // a search has an end of its own
    if (!std::dynamic_pointer_cast<OpenFile>(object) && !std::dynamic_pointer_cast<Waitable>(object))
        return Fail(ERROR_INVALID_HANDLE), nullptr;
    return object;
}

} // namespace

HANDLE WINAPI CreateFileA(LPCSTR name, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES, DWORD disposition,
                          DWORD flags, HANDLE)
{
    Request request{"", access, share, disposition, flags};
    if (const DWORD refused = CheckArguments(request))
        return Fail(refused), INVALID_HANDLE_VALUE;
    request.path = NativePath(name);
    return request.path.empty() ? INVALID_HANDLE_VALUE : OpenRequest(request);
}

BOOL WINAPI CloseHandle(HANDLE object)
{
    if (object == GetCurrentProcess() || object == GetCurrentThread())
        return TRUE;
    if (!ClosableObject(object))
        return FALSE;
    RemoveHandle(object);
    return TRUE;
}

BOOL WINAPI DuplicateHandle(HANDLE fromProcess, HANDLE from, HANDLE toProcess, HANDLE* to, DWORD, BOOL,
                            DWORD options)
{
    if (fromProcess != GetCurrentProcess() || toProcess != GetCurrentProcess() || !to)
        return Fail(ERROR_INVALID_HANDLE);
    if (!(options & DUPLICATE_SAME_ACCESS))
        return Fail(ERROR_NOT_SUPPORTED);
    auto object = ClosableObject(from);
    if (!object)
        return FALSE;
    *to = AddHandle(std::move(object));
    if (options & DUPLICATE_CLOSE_SOURCE)
        RemoveHandle(from);
    return *to != INVALID_HANDLE_VALUE;
}
