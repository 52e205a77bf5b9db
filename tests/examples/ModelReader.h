// Reads decks given as text, for the tests of the model reader.
#pragma once

#include <DeckReader.h>
#include <ModelView.h>
#include <Scratch.h>

#include <memory>
#include <string>

// A folder with deck files.
class DeckFolder
{
public:
    void Add(const std::string& name, const std::string& text) { WriteWholeFile(m_folder.Path(name), text); }
    std::string Path(const std::string& name) const { return m_folder.Path(name); }

    // The model of the file; throws what the reader throws.
    std::unique_ptr<CModel> Read(const std::string& name) const;
    // "" when the file can be read, else the reader's text, the folder's path left out.
    std::string Complaint(const std::string& name) const;

private:
    ScratchFolder m_folder;
};

// The model of a deck of one file.
std::unique_ptr<CModel> ReadDeck(const std::string& text);

// The members of a set as ranges; "no such set" when there is none.
std::string Members(const CModel& model, SetKind kind, const char* name);
