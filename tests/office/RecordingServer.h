// A spreadsheet server that keeps a few sheet names and otherwise only writes down what it is asked.
//
//   RecordingServer server;               // "Excel.Application" of this thread from now on
//   CMSExcel excel;
//   EXPECT_EQ(server.TakeCalls()[0], "App 0x23C get");
//
// A call is told as: object, identifier, kind, arguments in the order of their writing with their types:
//   Sheet(Loads) 0xC5 get "A1" opt
//   Font 0x60 put bool true
#pragma once

#include <afxdisp.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class RecordingServer
{
public:
    RecordingServer();
    ~RecordingServer();
    RecordingServer(const RecordingServer&) = delete;
    RecordingServer& operator=(const RecordingServer&) = delete;

    // The calls since the last time.
    std::vector<std::string> TakeCalls();

    // Objects that somebody still holds.
    int LiveObjects() const;

    // Instances made so far.
    int Instances() const;

    // What reading the property answers, instead of what the server would answer by itself. `member` is
    // written as in the calls, without arguments and kind: "Range 0x6".
    void Answer(const std::string& member, const COleVariant& value);
    // The same with an object of the given kind.
    void AnswerObject(const std::string& member, const std::string& kind);

    // What to do before a call to `member` is answered, for the next `times` calls: to return a failing
    // HRESULT, to fill in what was raised, or to throw.
    using Fault = std::function<HRESULT(EXCEPINFO* raised)>;
    void FailNext(const std::string& member, Fault fault, int times = 1);

    std::vector<std::string> SheetNames() const;
    void SetSheetNames(const std::vector<std::string>& names);

    struct State;

private:
    class Registration;
    std::shared_ptr<State> m_state;
    std::unique_ptr<Registration> m_registration;
};

// Raises what the spreadsheet program raises: number 1004.
HRESULT RaiseProgramError(EXCEPINFO* raised);

// Makes "Excel.Application" a class that nobody serves while the object lives.
class MissingServer
{
public:
    MissingServer();
    ~MissingServer();
    MissingServer(const MissingServer&) = delete;
    MissingServer& operator=(const MissingServer&) = delete;

private:
    class Entry;
    std::unique_ptr<Entry> m_entry;
};
