// Reads the files of a deck.
#pragma once

#include "ModelBuilder.h"

// Hands a deck's lines to a builder: the cards and data lines of the file and of those that it includes, in
// place of their *INCLUDE lines. Comments and empty lines are left out; names of included files are relative
// to the file that names them.
//
// Errors: CDeckException; files that cannot be read, that include themselves or that hold no card at all.
class CDeckReader
{
public:
    explicit CDeckReader(CModelBuilder& builder) : m_builder(builder) {}

    void Read(const CString& path);

private:
    void ReadFile(const CString& path, const DeckPlace& namedAt);
    void ReadLines(CTextFile& text, DeckPlace& place);
    void TakeLine(CTextFile& text, const CString& line, const DeckPlace& place);
    void ReadContinuation(CTextFile& text, const CString& firstLine);
    void Include();

    CModelBuilder& m_builder;
    CDeckCard m_card;
    CStringArray m_open; // full paths of the files at hand, the deck itself first
    bool m_anyCard = false;
};
