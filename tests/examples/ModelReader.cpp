#include "ModelReader.h"

std::unique_ptr<CModel> DeckFolder::Read(const std::string& name) const
{
    auto model = std::make_unique<CModel>();
    CModelBuilder builder(*model);
    CDeckReader(builder).Read(Path(name).c_str());
    return model;
}

std::string DeckFolder::Complaint(const std::string& name) const
{
    try {
        Read(name);
        return "";
    } catch (CDeckException* e) {
        CString text = e->Text();
        text.Replace(m_folder.Path("").c_str(), "");
        e->Delete();
        return text.GetString();
    }
}

std::unique_ptr<CModel> ReadDeck(const std::string& text)
{
    DeckFolder folder;
    folder.Add("deck.inp", text);
    return folder.Read("deck.inp");
}

std::string Members(const CModel& model, SetKind kind, const char* name)
{
    NumberSet* set = model.FindSet(kind, name);
    return set ? Ranges(set->members).GetString() : "no such set";
}
