#include "MemberList.h"

#include "spreadsheet/objects/ApplicationObject.h"
#include "spreadsheet/objects/BordersObject.h"
#include "spreadsheet/objects/FontObject.h"
#include "spreadsheet/objects/InteriorObject.h"
#include "spreadsheet/objects/NamesObject.h"
#include "spreadsheet/objects/PageBreaksObject.h"
#include "spreadsheet/objects/PageSetupObject.h"
#include "spreadsheet/objects/RangeObject.h"
#include "spreadsheet/objects/SheetsObject.h"
#include "spreadsheet/objects/StylesObject.h"
#include "spreadsheet/objects/WindowsObject.h"
#include "spreadsheet/objects/WorkbooksObject.h"

#include <algorithm>
#include <cstdio>

using namespace zek::office;

namespace {

const char* KindText(std::uint8_t kinds)
{
    if (kinds & kMethod)
        return "call";
    return kinds & kPut ? "get, put" : "get";
}

std::string Line(const Member& member)
{
    char id[16];
    if (member.id < 0)
        std::snprintf(id, sizeof id, "%d", static_cast<int>(member.id));
    else
        std::snprintf(id, sizeof id, "0x%X", static_cast<unsigned>(member.id));
    std::string counts = std::to_string(member.work.least);
    if (member.work.most != member.work.least)
        counts += " to " + std::to_string(member.work.most);
    return std::string("| ") + member.name + " | " + id + " | " + KindText(member.work.kinds) + " | " +
           counts + " |\n";
}

std::string Section(const MemberTable& table)
{
    std::vector<Member> members = table.Members();
    std::ranges::sort(members, {}, [](const Member& member) { return std::string_view(member.name); });
    std::string text = std::string("\n## ") + table.ClassName() +
                       "\n\n| Member | Identifier | Kind | Arguments |\n|---|---|---|---|\n";
    for (const Member& member : members)
        text += Line(member);
    return text;
}

} // namespace

std::string MemberList()
{
    const MemberTable* const tables[] = {
        &ApplicationObject::Members(),
        &WorkbooksObject::Members(),
        &WorkbookObject::Members(),
        &SheetsObject::Members(),
        &WorksheetObject::Members(),
        &RangeObject::Members(),
        &FontObject::Members(),
        &InteriorObject::Members(),
        &BordersObject::Members(),
        &BorderObject::Members(),
        &StylesObject::Members(),
        &StyleObject::Members(),
        &NamesObject::Members(),
        &NameObject::Members(),
        &WindowsObject::Members(),
        &WindowObject::Members(),
        &PageSetupObject::Members(),
        &PageBreaksObject::Members(PageBreakKind::Rows),
        &PageBreakObject::Members(PageBreakKind::Rows),
        &PageBreaksObject::Members(PageBreakKind::Columns),
        &PageBreakObject::Members(PageBreakKind::Columns),
    };
    std::string text =
        "# Members of the spreadsheet server\n\n"
        "Made from the server's own tables by `office_members > docs/office-members.md`; a test holds the\n"
        "two against each other. What is not listed answers `DISP_E_MEMBERNOTFOUND`. Arguments do not\n"
        "count the value of a put; those beyond the first number may be left out.\n";
    for (const MemberTable* const table : tables)
        text += Section(*table);
    return text;
}
