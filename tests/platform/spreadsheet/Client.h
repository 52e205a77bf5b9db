// Drives automation objects by short texts, late bound, as a script language would.
//
//   Client client;                                   // a fresh server with one workbook
//   client.Do("Range('A1').Value = 1.5");
//   client.Ask("Range('A1').Value");                 // "R8 1.5"
//   client.Ask("wb.Sheets.Count");                   // "I4 3"
//
// A text begins with app, wb or ws (the first sheet), or with a member of ws. Arguments are numbers, true,
// false, missing, 'texts' and, behind '@', other such texts. Member names may be "#6E", an identifier.
#pragma once

#include "automation/DispatchObject.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

class Client
{
public:
    Client();
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    // The value that comes of the text, with its kind; "error 800A03EC DESCRIPTION" when the server raises,
    // "failed 80020003" for another HRESULT.
    std::string Ask(std::string_view text);
    // As Ask for texts without an answer: "" when all is well.
    std::string Do(std::string_view text);

    IDispatch* Application() { return m_roots["app"]; }
    // The identifier that the object answers for a name; DISPID_UNKNOWN when it knows none.
    DISPID MemberId(const std::string& root, std::string_view name);
    // Gives an object a name to begin texts with; the client keeps a reference.
    void Name(const std::string& name, std::string_view text);

private:
    using Value = zek::office::Value;
    struct Call {
        std::string member;
        std::vector<Value> arguments;
    };
    struct Failure {
        std::string text;
    };

    Value Evaluate(std::string_view text);
    Value Invoke(IDispatch* object, Call& call, WORD flags);
    Call ParseCall(std::string_view part);
    Value ParseArgument(std::string_view text);

    std::map<std::string, IDispatch*> m_roots;
};

// A VARIANT as Ask shows it.
std::string Shown(const VARIANT& value);
