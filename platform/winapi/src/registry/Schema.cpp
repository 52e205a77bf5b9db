#include "Schema.h"

// A key is found by its whole path, whatever its depth; see KeyPath.h for the form of paths and folded names.
// `written` is a FILETIME. The texts of registry values carry their terminators.
#define ROOT(path) "INSERT INTO key VALUES(CAST('" path "' AS BLOB), x'', CAST('" path "' AS BLOB), 0);"
#define KEY(parent, folded, name)                                                                            \
    "INSERT INTO key VALUES(CAST('" parent "' || char(0) || '" folded "' AS BLOB), CAST('" parent            \
    "' AS BLOB), CAST('" name "' AS BLOB), 0);"
#define TEXT_VALUE(path, folded, name, text)                                                                 \
    "INSERT INTO value VALUES(CAST('" path "' AS BLOB), CAST('" folded "' AS BLOB), CAST('" name             \
    "' AS BLOB), 1, CAST('" text "' || char(0) AS BLOB));"

#define BELOW "' || char(0) || '"
#define CLASSES "HKCR" BELOW "CLSID"
#define SPREADSHEET "{00024500-0000-0000-C000-000000000046}"
#define SERVER CLASSES BELOW SPREADSHEET
#define PROGID "HKCR" BELOW "EXCEL.APPLICATION"

const char* const kCreateSchema =
    "CREATE TABLE key(path BLOB NOT NULL PRIMARY KEY, parent BLOB NOT NULL, name BLOB NOT NULL,"
    " written INTEGER NOT NULL) WITHOUT ROWID;"
    "CREATE INDEX child ON key(parent, path);"
    "CREATE TABLE value(path BLOB NOT NULL, folded BLOB NOT NULL, name BLOB NOT NULL, type INTEGER NOT NULL,"
    " data BLOB NOT NULL, PRIMARY KEY(path, folded)) WITHOUT ROWID;"
    // The roots.
    ROOT("HKCR") ROOT("HKCU") ROOT("HKLM") ROOT("HKU") ROOT("HKCC")
    // The built-in spreadsheet server.
    KEY("HKCR", "CLSID", "CLSID") KEY("HKCR", "EXCEL.APPLICATION", "Excel.Application")
        KEY("HKCR", "EXCEL.APPLICATION.9", "Excel.Application.9") KEY(PROGID, "CLSID", "CLSID")
            KEY(PROGID, "CURVER", "CurVer") KEY(PROGID ".9", "CLSID", "CLSID")
                KEY(CLASSES, SPREADSHEET, SPREADSHEET) KEY(SERVER, "INPROCSERVER32", "InprocServer32")
                    KEY(SERVER, "PROGID", "ProgID") KEY(SERVER, "VERSIONINDEPENDENTPROGID",
                                                        "VersionIndependentProgID")
                        TEXT_VALUE(PROGID BELOW "CLSID", "", "", SPREADSHEET)
                            TEXT_VALUE(PROGID BELOW "CURVER", "", "", "Excel.Application.9")
                                TEXT_VALUE(PROGID ".9" BELOW "CLSID", "", "", SPREADSHEET)
                                    TEXT_VALUE(SERVER BELOW "INPROCSERVER32", "", "", "zek_officeserver.DLL")
                                        TEXT_VALUE(SERVER BELOW "INPROCSERVER32", "THREADINGMODEL",
                                                   "ThreadingModel", "Apartment")
                                            TEXT_VALUE(SERVER BELOW "PROGID", "", "", "Excel.Application.9")
                                                TEXT_VALUE(SERVER BELOW "VERSIONINDEPENDENTPROGID", "", "",
                                                           "Excel.Application");
