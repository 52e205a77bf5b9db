// Error codes that functions of this adapter raise, and the result codes of automation.
#pragma once

#include "windef.h"

#define ERROR_SUCCESS 0L
#define NO_ERROR 0L
#define ERROR_INVALID_FUNCTION 1L
#define ERROR_FILE_NOT_FOUND 2L
#define ERROR_PATH_NOT_FOUND 3L
#define ERROR_TOO_MANY_OPEN_FILES 4L
#define ERROR_ACCESS_DENIED 5L
#define ERROR_INVALID_HANDLE 6L
#define ERROR_NOT_ENOUGH_MEMORY 8L
#define ERROR_INVALID_ACCESS 12L
#define ERROR_INVALID_DATA 13L
#define ERROR_OUTOFMEMORY 14L
#define ERROR_INVALID_DRIVE 15L
#define ERROR_CURRENT_DIRECTORY 16L
#define ERROR_NOT_SAME_DEVICE 17L
#define ERROR_NO_MORE_FILES 18L
#define ERROR_WRITE_PROTECT 19L
#define ERROR_NOT_READY 21L
#define ERROR_SEEK 25L
#define ERROR_WRITE_FAULT 29L
#define ERROR_READ_FAULT 30L
#define ERROR_GEN_FAILURE 31L
#define ERROR_SHARING_VIOLATION 32L
#define ERROR_LOCK_VIOLATION 33L
#define ERROR_HANDLE_EOF 38L
#define ERROR_HANDLE_DISK_FULL 39L
#define ERROR_NOT_SUPPORTED 50L
#define ERROR_BAD_NETPATH 53L
#define ERROR_FILE_EXISTS 80L
#define ERROR_CANNOT_MAKE 82L
#define ERROR_INVALID_PARAMETER 87L
#define ERROR_BROKEN_PIPE 109L
#define ERROR_OPEN_FAILED 110L
#define ERROR_BUFFER_OVERFLOW 111L
#define ERROR_DISK_FULL 112L
#define ERROR_CALL_NOT_IMPLEMENTED 120L
#define ERROR_INSUFFICIENT_BUFFER 122L
#define ERROR_INVALID_NAME 123L
#define ERROR_MOD_NOT_FOUND 126L
#define ERROR_PROC_NOT_FOUND 127L
#define ERROR_NEGATIVE_SEEK 131L
#define ERROR_SEEK_ON_DEVICE 132L
#define ERROR_DIR_NOT_EMPTY 145L
#define ERROR_NOT_LOCKED 158L
#define ERROR_BAD_PATHNAME 161L
#define ERROR_BUSY 170L
#define ERROR_ALREADY_EXISTS 183L
#define ERROR_BAD_EXE_FORMAT 193L
#define ERROR_ENVVAR_NOT_FOUND 203L
#define ERROR_FILENAME_EXCED_RANGE 206L
#define ERROR_FILE_TOO_LARGE 223L
#define ERROR_MORE_DATA 234L
#define ERROR_NO_MORE_ITEMS 259L
#define ERROR_DIRECTORY 267L
#define ERROR_MR_MID_NOT_FOUND 317L
#define ERROR_ARITHMETIC_OVERFLOW 534L
#define ERROR_NOACCESS 998L
#define ERROR_INVALID_FLAGS 1004L
#define ERROR_BADDB 1009L
#define ERROR_BADKEY 1010L
#define ERROR_CANTOPEN 1011L
#define ERROR_CANTREAD 1012L
#define ERROR_CANTWRITE 1013L
#define ERROR_REGISTRY_CORRUPT 1015L
#define ERROR_KEY_HAS_CHILDREN 1020L
#define ERROR_CHILD_MUST_BE_VOLATILE 1021L
#define ERROR_REGISTRY_IO_FAILED 1016L
#define ERROR_KEY_DELETED 1018L
#define ERROR_NO_UNICODE_TRANSLATION 1113L
#define ERROR_DLL_INIT_FAILED 1114L
#define ERROR_IO_DEVICE 1117L
#define ERROR_CANT_ACCESS_FILE 1920L
#define ERROR_CANT_RESOLVE_FILENAME 1921L
#define ERROR_INVALID_WINDOW_HANDLE 1400L
#define ERROR_INVALID_MSGBOX_STYLE 1438L
#define ERROR_RESOURCE_TYPE_NOT_FOUND 1813L

// Result codes of automation: the top bit tells failure, then a facility and a code.
#define SUCCEEDED(hr) (static_cast<HRESULT>(hr) >= 0)
#define FAILED(hr) (static_cast<HRESULT>(hr) < 0)
#define HRESULT_CODE(hr) ((hr)&0xFFFF)
#define HRESULT_FACILITY(hr) (((hr) >> 16) & 0x1FFF)
#define HRESULT_SEVERITY(hr) (((hr) >> 31) & 0x1)
#define SCODE_CODE(sc) ((sc)&0xFFFF)
#define SCODE_FACILITY(sc) (((sc) >> 16) & 0x1FFF)
#define GetScode(hr) (static_cast<SCODE>(hr))
#define ResultFromScode(sc) (static_cast<HRESULT>(sc))
#define SEVERITY_SUCCESS 0
#define SEVERITY_ERROR 1
#define FACILITY_NULL 0
#define FACILITY_DISPATCH 2
#define FACILITY_ITF 4
#define FACILITY_WIN32 7
#define FACILITY_CONTROL 10
#define MAKE_HRESULT(severity, facility, code)                                                               \
    (static_cast<HRESULT>((static_cast<std::uint32_t>(severity) << 31) |                                     \
                          (static_cast<std::uint32_t>(facility) << 16) | static_cast<std::uint32_t>(code)))
#define MAKE_SCODE(severity, facility, code) MAKE_HRESULT(severity, facility, code)
#define HRESULT_FROM_WIN32(x)                                                                                \
    (static_cast<HRESULT>(x) <= 0 ? static_cast<HRESULT>(x) : MAKE_HRESULT(1, FACILITY_WIN32, (x)&0xFFFF))

#define S_OK (static_cast<HRESULT>(0))
#define S_FALSE (static_cast<HRESULT>(1))
#define NOERROR S_OK
#define E_NOTIMPL (static_cast<HRESULT>(0x80004001U))
#define E_NOINTERFACE (static_cast<HRESULT>(0x80004002U))
#define E_POINTER (static_cast<HRESULT>(0x80004003U))
#define E_ABORT (static_cast<HRESULT>(0x80004004U))
#define E_FAIL (static_cast<HRESULT>(0x80004005U))
#define E_UNEXPECTED (static_cast<HRESULT>(0x8000FFFFU))
#define E_ACCESSDENIED (static_cast<HRESULT>(0x80070005U))
#define E_HANDLE (static_cast<HRESULT>(0x80070006U))
#define E_OUTOFMEMORY (static_cast<HRESULT>(0x8007000EU))
#define E_INVALIDARG (static_cast<HRESULT>(0x80070057U))
#define RPC_E_CALL_REJECTED (static_cast<HRESULT>(0x80010001U))
#define RPC_E_CHANGED_MODE (static_cast<HRESULT>(0x80010106U))
#define RPC_E_SERVERCALL_RETRYLATER (static_cast<HRESULT>(0x8001010AU))
#define DISP_E_UNKNOWNINTERFACE (static_cast<HRESULT>(0x80020001U))
#define DISP_E_MEMBERNOTFOUND (static_cast<HRESULT>(0x80020003U))
#define DISP_E_PARAMNOTFOUND (static_cast<HRESULT>(0x80020004U))
#define DISP_E_TYPEMISMATCH (static_cast<HRESULT>(0x80020005U))
#define DISP_E_UNKNOWNNAME (static_cast<HRESULT>(0x80020006U))
#define DISP_E_NONAMEDARGS (static_cast<HRESULT>(0x80020007U))
#define DISP_E_BADVARTYPE (static_cast<HRESULT>(0x80020008U))
#define DISP_E_EXCEPTION (static_cast<HRESULT>(0x80020009U))
#define DISP_E_OVERFLOW (static_cast<HRESULT>(0x8002000AU))
#define DISP_E_BADINDEX (static_cast<HRESULT>(0x8002000BU))
#define DISP_E_UNKNOWNLCID (static_cast<HRESULT>(0x8002000CU))
#define DISP_E_ARRAYISLOCKED (static_cast<HRESULT>(0x8002000DU))
#define DISP_E_BADPARAMCOUNT (static_cast<HRESULT>(0x8002000EU))
#define DISP_E_PARAMNOTOPTIONAL (static_cast<HRESULT>(0x8002000FU))
#define DISP_E_BADCALLEE (static_cast<HRESULT>(0x80020010U))
#define DISP_E_NOTACOLLECTION (static_cast<HRESULT>(0x80020011U))
#define DISP_E_DIVBYZERO (static_cast<HRESULT>(0x80020012U))
#define CLASS_E_NOAGGREGATION (static_cast<HRESULT>(0x80040110U))
#define CLASS_E_CLASSNOTAVAILABLE (static_cast<HRESULT>(0x80040111U))
#define CO_E_NOT_SUPPORTED (static_cast<HRESULT>(0x80004021U))
#define REGDB_E_READREGDB (static_cast<HRESULT>(0x80040150U))
#define REGDB_E_CLASSNOTREG (static_cast<HRESULT>(0x80040154U))
#define MK_E_UNAVAILABLE (static_cast<HRESULT>(0x800401E3U))
#define CO_E_NOTINITIALIZED (static_cast<HRESULT>(0x800401F0U))
#define CO_E_CLASSSTRING (static_cast<HRESULT>(0x800401F3U))
#define CO_E_DLLNOTFOUND (static_cast<HRESULT>(0x800401F8U))
#define CO_E_ERRORINDLL (static_cast<HRESULT>(0x800401F9U))
#define CO_E_OBJNOTREG (static_cast<HRESULT>(0x800401FBU))
#define CO_E_OBJISREG (static_cast<HRESULT>(0x800401FCU))
#define CO_E_OBJNOTCONNECTED (static_cast<HRESULT>(0x800401FDU))
