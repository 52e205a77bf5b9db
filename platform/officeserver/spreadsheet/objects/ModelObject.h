// The base of the spreadsheet's automation objects: what each of them answers about itself.
#pragma once

#include "automation/DispatchObject.h"
#include "spreadsheet/Constants.h"
#include "spreadsheet/Session.h"

#include <vector>

namespace zek::office {

class ModelObject : public DispatchObject
{
public:
    IDispatch* Application();
    LONG Creator() { return xl::kCreator; }
    // The object one level up; counted for the caller.
    virtual IDispatch* Parent() = 0;

protected:
    virtual SessionRef TheSession() const = 0;
    // Whose file a change makes out of date; null: nobody's.
    virtual BookState* ChangedBook() const { return nullptr; }
    void Changed() override
    {
        if (BookState* const book = ChangedBook())
            book->saved = false;
    }
};

// A table with Application, Creator and Parent besides `members`.
MemberTable ModelTable(const char* className, std::vector<Member> members);

} // namespace zek::office
