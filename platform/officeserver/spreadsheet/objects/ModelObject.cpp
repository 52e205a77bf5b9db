#include "spreadsheet/objects/ModelObject.h"

#include "spreadsheet/objects/ApplicationObject.h"

namespace zek::office {

IDispatch* ModelObject::Application()
{
    return new ApplicationObject(TheSession());
}

MemberTable ModelTable(const char* className, std::vector<Member> members)
{
    members.push_back({"Application", 0x94, Get<&ModelObject::Application>()});
    members.push_back({"Creator", 0x95, Get<&ModelObject::Creator>()});
    members.push_back({"Parent", 0x96, Get<&ModelObject::Parent>()});
    return {className, std::move(members)};
}

} // namespace zek::office
