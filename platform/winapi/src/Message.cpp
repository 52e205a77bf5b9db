#include "Error.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace {

struct Text {
    DWORD id;
    const char* text;
};

constexpr Text kTexts[] = {
    {ERROR_SUCCESS, "The operation was completed."},
    {ERROR_INVALID_FUNCTION, "The function is not valid here."},
    {ERROR_FILE_NOT_FOUND, "The file was not found."},
    {ERROR_PATH_NOT_FOUND, "The path was not found."},
    {ERROR_TOO_MANY_OPEN_FILES, "Too many files are open."},
    {ERROR_ACCESS_DENIED, "Access is denied."},
    {ERROR_INVALID_HANDLE, "The handle is not valid."},
    {ERROR_NOT_ENOUGH_MEMORY, "There is not enough memory."},
    {ERROR_INVALID_DATA, "The data are not valid."},
    {ERROR_OUTOFMEMORY, "There is not enough memory for the operation."},
    {ERROR_CURRENT_DIRECTORY, "The current folder cannot be removed."},
    {ERROR_NOT_SAME_DEVICE, "The file cannot be moved to another disk."},
    {ERROR_NO_MORE_FILES, "There are no more files."},
    {ERROR_WRITE_PROTECT, "The disk is write-protected."},
    {ERROR_NOT_READY, "The device is not ready."},
    {ERROR_GEN_FAILURE, "A device does not work."},
    {ERROR_SHARING_VIOLATION, "The file is in use by a program."},
    {ERROR_LOCK_VIOLATION, "A part of the file is locked."},
    {ERROR_NOT_SUPPORTED, "The request is not supported."},
    {ERROR_BAD_NETPATH, "The network path was not found."},
    {ERROR_FILE_EXISTS, "The file exists."},
    {ERROR_INVALID_PARAMETER, "A parameter is wrong."},
    {ERROR_BROKEN_PIPE, "The other end of the pipe is closed."},
    {ERROR_BUFFER_OVERFLOW, "The file name is too long."},
    {ERROR_DISK_FULL, "There is not enough room on the disk."},
    {ERROR_CALL_NOT_IMPLEMENTED, "The function is not supported on this system."},
    {ERROR_INSUFFICIENT_BUFFER, "The data area given is too small."},
    {ERROR_INVALID_NAME, "The syntax of the file name is wrong."},
    {ERROR_MOD_NOT_FOUND, "The module was not found."},
    {ERROR_PROC_NOT_FOUND, "The procedure was not found."},
    {ERROR_NEGATIVE_SEEK, "The file position would lie before the file's start."},
    {ERROR_SEEK_ON_DEVICE, "The file position cannot be set on this device."},
    {ERROR_DIR_NOT_EMPTY, "The folder is not empty."},
    {ERROR_NOT_LOCKED, "The range is not locked."},
    {ERROR_ALREADY_EXISTS, "The file exists already."},
    {ERROR_BAD_EXE_FORMAT, "The file is no valid module."},
    {ERROR_ENVVAR_NOT_FOUND, "The environment variable was not found."},
    {ERROR_FILENAME_EXCED_RANGE, "The file name or its ending is too long."},
    {ERROR_MORE_DATA, "There are more data."},
    {ERROR_NO_MORE_ITEMS, "There are no more items."},
    {ERROR_DIRECTORY, "The folder's name is not valid."},
    {ERROR_MR_MID_NOT_FOUND, "There is no text for this message number."},
    {ERROR_NOACCESS, "An address is not accessible."},
    {ERROR_INVALID_FLAGS, "The flags are not valid."},
    {ERROR_BADDB, "The configuration database is damaged."},
    {ERROR_BADKEY, "The configuration key is not valid."},
    {ERROR_CANTREAD, "The configuration key cannot be read."},
    {ERROR_CANTWRITE, "The configuration key cannot be written."},
    {ERROR_KEY_DELETED, "The configuration key is marked for deletion."},
    {ERROR_CHILD_MUST_BE_VOLATILE, "A lasting key cannot be made below a volatile one."},
    {ERROR_NO_UNICODE_TRANSLATION, "A character has no counterpart in the other code page."},
    {ERROR_DLL_INIT_FAILED, "The module could not be initialised."},
    {ERROR_IO_DEVICE, "The device reported an input or output error."},
    {ERROR_INVALID_WINDOW_HANDLE, "The window's handle is not valid."},
    {ERROR_TLW_WITH_WSCHILD, "A child window needs a parent."},
    {ERROR_CANNOT_FIND_WND_CLASS, "The window's class was not found."},
    {ERROR_CLASS_ALREADY_EXISTS, "The class exists already."},
    {ERROR_CLASS_DOES_NOT_EXIST, "The class does not exist."},
    {ERROR_CLASS_HAS_WINDOWS, "The class still has windows."},
    {ERROR_INVALID_INDEX, "The index is not valid."},
    {ERROR_CONTROL_ID_NOT_FOUND, "There is no control with this identifier."},
    {ERROR_INVALID_MSGBOX_STYLE, "The style of the message box is not valid."},
    {ERROR_INVALID_GW_COMMAND, "The relation between windows is not valid."},
    {ERROR_INVALID_THREAD_ID, "The thread's number is not valid."},
    {ERROR_TIMEOUT, "The time is over."},
    {ERROR_NOT_ENOUGH_QUOTA, "There are too many of them already."},
    {ERROR_CANT_RESOLVE_FILENAME, "The file name cannot be resolved."},
    {static_cast<DWORD>(E_NOTIMPL), "Not implemented."},
    {static_cast<DWORD>(E_NOINTERFACE), "The interface is not supported."},
    {static_cast<DWORD>(E_POINTER), "A pointer is not valid."},
    {static_cast<DWORD>(E_ABORT), "The operation was ended."},
    {static_cast<DWORD>(E_FAIL), "Unspecified error."},
    {static_cast<DWORD>(E_UNEXPECTED), "An unexpected failure."},
    {static_cast<DWORD>(RPC_E_CALL_REJECTED), "The called program rejected the call."},
    {static_cast<DWORD>(RPC_E_CHANGED_MODE), "The thread's mode cannot be changed once it is set."},
    {static_cast<DWORD>(RPC_E_SERVERCALL_RETRYLATER), "The called program is busy."},
    {static_cast<DWORD>(DISP_E_UNKNOWNINTERFACE), "Unknown interface."},
    {static_cast<DWORD>(DISP_E_MEMBERNOTFOUND), "The member was not found."},
    {static_cast<DWORD>(DISP_E_PARAMNOTFOUND), "The parameter was not found."},
    {static_cast<DWORD>(DISP_E_TYPEMISMATCH), "The types do not match."},
    {static_cast<DWORD>(DISP_E_UNKNOWNNAME), "Unknown name."},
    {static_cast<DWORD>(DISP_E_NONAMEDARGS), "Named arguments are not supported."},
    {static_cast<DWORD>(DISP_E_BADVARTYPE), "The kind of the value is not valid."},
    {static_cast<DWORD>(DISP_E_EXCEPTION), "An exception occurred."},
    {static_cast<DWORD>(DISP_E_OVERFLOW), "The value is out of range."},
    {static_cast<DWORD>(DISP_E_BADINDEX), "The index is not valid."},
    {static_cast<DWORD>(DISP_E_ARRAYISLOCKED), "The array is locked."},
    {static_cast<DWORD>(DISP_E_BADPARAMCOUNT), "The number of parameters is wrong."},
    {static_cast<DWORD>(DISP_E_PARAMNOTOPTIONAL), "A parameter is missing."},
    {static_cast<DWORD>(DISP_E_DIVBYZERO), "Division by zero."},
    {static_cast<DWORD>(CLASS_E_NOAGGREGATION), "The class cannot be made part of another object."},
    {static_cast<DWORD>(CLASS_E_CLASSNOTAVAILABLE), "The module does not offer the class."},
    {static_cast<DWORD>(REGDB_E_CLASSNOTREG), "The class is not registered."},
    {static_cast<DWORD>(MK_E_UNAVAILABLE), "The object is not running."},
    {static_cast<DWORD>(CO_E_NOTINITIALIZED), "Automation was not initialised on this thread."},
    {static_cast<DWORD>(CO_E_CLASSSTRING), "The class name is not valid."},
    {static_cast<DWORD>(CO_E_DLLNOTFOUND), "The server's module was not found."},
    {static_cast<DWORD>(CO_E_ERRORINDLL), "The server's module has an error."},
};

constexpr DWORD kWin32Facility = 0x80070000;

const char* FindText(DWORD id)
{
    const DWORD code = (id & 0xffff0000) == kWin32Facility ? id & 0xffff : id;
    const auto found = std::find_if(std::begin(kTexts), std::end(kTexts),
                                    [code](const Text& row) { return row.id == code; });
    return found == std::end(kTexts) ? nullptr : found->text;
}

DWORD AnswerAllocated(const std::string& text, LPSTR buffer, DWORD size)
{
    const size_t bytes = std::max(static_cast<size_t>(size), text.size() + 1);
    auto* memory = static_cast<LPSTR>(LocalAlloc(LMEM_FIXED, bytes));
    if (!memory)
        return 0;
    std::memcpy(memory, text.c_str(), text.size() + 1);
    *reinterpret_cast<LPSTR*>(buffer) = memory;
    return static_cast<DWORD>(text.size());
}

} // namespace

DWORD WINAPI FormatMessageA(DWORD flags, LPCVOID, DWORD id, DWORD, LPSTR buffer, DWORD size, va_list*)
{
    if (!buffer || !(flags & FORMAT_MESSAGE_FROM_SYSTEM) ||
        (flags & (FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_FROM_HMODULE)))
        return Fail(ERROR_INVALID_PARAMETER);
    const char* found = FindText(id);
    if (!found)
        return Fail(ERROR_MR_MID_NOT_FOUND);
    const bool oneLine = (flags & FORMAT_MESSAGE_MAX_WIDTH_MASK) == FORMAT_MESSAGE_MAX_WIDTH_MASK;
    const std::string text = std::string(found) + (oneLine ? " " : "\r\n");
    if (flags & FORMAT_MESSAGE_ALLOCATE_BUFFER)
        return AnswerAllocated(text, buffer, size);
    if (size <= text.size())
        return Fail(ERROR_INSUFFICIENT_BUFFER);
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return static_cast<DWORD>(text.size());
}

HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T bytes)
{
    const SIZE_T room = std::max<SIZE_T>(bytes, 1);
    void* memory = flags & LMEM_ZEROINIT ? std::calloc(1, room) : std::malloc(room);
    if (!memory)
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return memory;
}

HLOCAL WINAPI LocalFree(HLOCAL memory)
{
    std::free(memory);
    return nullptr;
}
