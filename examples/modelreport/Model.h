// A finite-element model as a deck defines it.
//
// Units: coordinates and everything measured are in the deck's own length unit.
#pragma once

#include "Deck.h"
#include "ElementType.h"

struct NodeRecord {
    UINT number = 0;
    double at[3] = {0, 0, 0};
};

constexpr int kNone = -1;

struct ElementRecord {
    UINT number = 0;
    int type = 0;        // index into Model::types
    int section = kNone; // index into Model::sections
    int firstNode = 0;   // of nodeCount entries in Model::connectivity
    int nodeCount = 0;
    DeckPlace place; // of its first line
};

struct TypeRecord {
    CString name; // in capitals
    ElementShape shape = {kNoMeasure, 0, 0, 0};
};

struct SectionRecord {
    LPCSTR kind = ""; // "Solid", "Shell", "Beam"
    CString elementSet;
    CString material; // as the deck spells it; "" when the section names none
    DeckPlace place;
};

enum SetKind { kNodeSet, kElementSet };

struct NumberSet {
    CString name; // as first spelled
    SetKind kind = kNodeSet;
    CArray<STB_OPT_NODE, STB_OPT_NODE&> runs; // as the deck names them: in any order, with repeats
    CArray<UINT, UINT> members;               // those that the model has, ascending
    bool namesOthers = false;                 // the deck also names numbers that the model does not have
};

// Nodes and elements ascend by number and are unique once the deck is read. Owns its sets.
class CModel
{
public:
    CModel() = default;
    ~CModel();
    CModel(const CModel&) = delete;
    CModel& operator=(const CModel&) = delete;

    // The set of that name (in any case), null when there is none.
    NumberSet* FindSet(SetKind kind, const CString& setName) const;
    // The same; an empty set is added when there is none.
    NumberSet& SetOf(SetKind kind, const CString& setName);

    // The index of a type told in capitals, which is added when it is new.
    int TypeIndex(const CString& type);

    // The node of that number, null when there is none. Nodes ascend.
    const NodeRecord* FindNode(UINT number) const;

    UINT NodeOf(const ElementRecord& element, int position) const
    {
        return connectivity[element.firstNode + position];
    }

    CString name;    // of the deck's file, without its ending
    CString heading; // first line of *HEADING, "" when there is none
    CArray<NodeRecord, const NodeRecord&> nodes;
    CArray<ElementRecord, const ElementRecord&> elements;
    CArray<UINT, UINT> connectivity;
    CArray<TypeRecord, const TypeRecord&> types;
    CArray<SectionRecord, const SectionRecord&> sections;
    CArray<NumberSet*, NumberSet*> sets; // in the order of the deck
    CStringArray materials;              // as the deck spells them
    int elementsCut = 0; // whose lines name more nodes than their type has; the rest was dropped

private:
    CMap<CString, LPCSTR, int, int> m_setIndex;
    CMap<CString, LPCSTR, int, int> m_typeIndex;
};

// The numbers of `records`, in their order.
template <class RECORD>
void NumbersOf(const CArray<RECORD, const RECORD&>& records, CArray<UINT, UINT>& numbers)
{
    numbers.SetSize(records.GetSize());
    for (int i = 0; i < records.GetSize(); ++i)
        numbers[i] = records[i].number;
}
