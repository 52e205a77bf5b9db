// Builds a model from the cards of a deck.
#pragma once

#include "Model.h"

// Called in the order of the deck: BeginCard for a keyword line, TakeLine for each of its data lines, Finish
// behind the last one. Cards of no interest are passed over, as is what stands before the first card.
//
// Errors: all three throw CDeckException; the model is of no use then.
class CModelBuilder
{
public:
    explicit CModelBuilder(CModel& model) : m_model(model) {}

    void BeginCard(const CDeckCard& card);
    void TakeLine(const CString& line, const DeckPlace& place);

    // Puts the model in its final order and ties what refers to each other: nodes of elements, members of
    // sets, sections of elements.
    void Finish();

private:
    struct CardRule;
    static const CardRule kRules[];

    void BeginNodes(const CDeckCard& card);
    void BeginElements(const CDeckCard& card);
    void BeginNodeSet(const CDeckCard& card) { BeginSet(card, kNodeSet, "NSET"); }
    void BeginElementSet(const CDeckCard& card) { BeginSet(card, kElementSet, "ELSET"); }
    void BeginSet(const CDeckCard& card, SetKind kind, LPCSTR option);
    void BeginSolidSection(const CDeckCard& card) { AddSection(card, "Solid"); }
    void BeginShellSection(const CDeckCard& card) { AddSection(card, "Shell"); }
    void BeginBeamSection(const CDeckCard& card) { AddSection(card, "Beam"); }
    void AddSection(const CDeckCard& card, LPCSTR kind);
    void BeginMaterial(const CDeckCard& card);
    void BeginHeading(const CDeckCard& card);

    void TakeNode(const CString& line);
    void TakeElementLine(const CString& line);
    void TakeSetLine(const CString& line);
    void TakeHeading(const CString& line);

    void StartElement(UINT number);
    void EndElementLine(bool continued);
    void EndCard();
    void AddRange(const CStringArray& fields);
    void AddMembers(const CString& field);
    UINT Number(const CString& field, LPCSTR what) const;
    [[noreturn]] void Refuse(const CString& what) const { ThrowDeckError(m_place, what); }

    CModel& m_model;
    const CardRule* m_rule = nullptr; // of the open card; null: it is passed over
    DeckPlace m_place;                // of the line at hand
    NumberSet* m_set = nullptr;       // that the open card adds to, or null
    bool m_generate = false;
    int m_type = kNone;
    bool m_elementOpen = false; // the last element goes on in the next line
    CStringArray m_fields;
};
