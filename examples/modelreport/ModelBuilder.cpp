#include "ModelBuilder.h"

#include "Fields.h"
#include "ModelFinish.h"

struct CModelBuilder::CardRule {
    LPCSTR keyword;
    void (CModelBuilder::*begin)(const CDeckCard&);
    void (CModelBuilder::*take)(const CString&); // null: the card has no data lines of interest
};

const CModelBuilder::CardRule CModelBuilder::kRules[] = {
    {"NODE", &CModelBuilder::BeginNodes, &CModelBuilder::TakeNode},
    {"ELEMENT", &CModelBuilder::BeginElements, &CModelBuilder::TakeElementLine},
    {"NSET", &CModelBuilder::BeginNodeSet, &CModelBuilder::TakeSetLine},
    {"ELSET", &CModelBuilder::BeginElementSet, &CModelBuilder::TakeSetLine},
    {"SOLIDSECTION", &CModelBuilder::BeginSolidSection, nullptr},
    {"SHELLSECTION", &CModelBuilder::BeginShellSection, nullptr},
    {"BEAMSECTION", &CModelBuilder::BeginBeamSection, nullptr},
    {"MATERIAL", &CModelBuilder::BeginMaterial, nullptr},
    {"HEADING", &CModelBuilder::BeginHeading, &CModelBuilder::TakeHeading},
};

void CModelBuilder::BeginCard(const CDeckCard& card)
{
    EndCard();
    m_place = card.Place();
    m_set = nullptr;
    m_rule = nullptr;
    for (const CardRule& rule : kRules)
        if (card.Keyword() == rule.keyword)
            m_rule = &rule;
    if (m_rule)
        (this->*m_rule->begin)(card);
}

void CModelBuilder::TakeLine(const CString& line, const DeckPlace& place)
{
    m_place = place;
    if (m_rule && m_rule->take)
        (this->*m_rule->take)(line);
}

void CModelBuilder::Finish()
{
    EndCard();
    FinishModel(m_model);
}

void CModelBuilder::EndCard()
{
    if (!m_elementOpen)
        return;
    m_elementOpen = false;
    const ElementRecord& element = m_model.elements[m_model.elements.GetUpperBound()];
    const TypeRecord& type = m_model.types[element.type];
    CString what;
    what.Format("element %u of type %s ends after %d of %d nodes", element.number, LPCSTR(type.name),
                element.nodeCount, type.shape.nodes);
    if (type.shape.nodes == 0)
        what.Format("element %u goes on behind a comma, but nothing follows", element.number);
    ThrowDeckError(element.place, what);
}

UINT CModelBuilder::Number(const CString& field, LPCSTR what) const
{
    LONG number = 0;
    if (!ParseInteger(field, number) || number < 1)
        Refuse(CString("'") + field + "' is not " + what);
    return static_cast<UINT>(number);
}

void CModelBuilder::BeginNodes(const CDeckCard& card)
{
    const CString setName = card.Value("NSET");
    m_set = setName.IsEmpty() ? nullptr : &m_model.SetOf(kNodeSet, setName);
}

void CModelBuilder::TakeNode(const CString& line)
{
    SplitFields(line, m_fields);
    NodeRecord node;
    node.number = Number(m_fields[0], "a node number");
    for (int axis = 0; axis < 3 && axis + 1 < m_fields.GetSize(); ++axis)
        if (!ParseNumber(m_fields[axis + 1], node.at[axis]))
            Refuse("'" + m_fields[axis + 1] + "' is not a coordinate");
    m_model.nodes.Add(node);
    if (m_set)
        AddRun(*m_set, static_cast<LONG>(node.number));
}

void CModelBuilder::BeginElements(const CDeckCard& card)
{
    m_type = m_model.TypeIndex(Folded(card.RequiredValue("TYPE")));
    const CString setName = card.Value("ELSET");
    m_set = setName.IsEmpty() ? nullptr : &m_model.SetOf(kElementSet, setName);
}

void CModelBuilder::StartElement(UINT number)
{
    ElementRecord element;
    element.number = number;
    element.type = m_type;
    element.firstNode = m_model.connectivity.GetSize();
    element.place = m_place;
    m_model.elements.Add(element);
    m_elementOpen = true;
    if (m_set)
        AddRun(*m_set, static_cast<LONG>(number));
}

void CModelBuilder::TakeElementLine(const CString& line)
{
    SplitFields(line, m_fields);
    int field = 0;
    if (!m_elementOpen)
        StartElement(Number(m_fields[field++], "an element number"));
    ElementRecord& element = m_model.elements[m_model.elements.GetUpperBound()];
    for (; field < m_fields.GetSize(); ++field) {
        if (m_fields[field].IsEmpty())
            continue;
        // Network elements leave a node out by the number 0.
        const bool noNode = m_fields[field] == "0" && m_model.types[m_type].shape.nodes == 0;
        m_model.connectivity.Add(noNode ? 0 : Number(m_fields[field], "a node number"));
        ++element.nodeCount;
    }
    EndElementLine(line[line.GetLength() - 1] == ',');
}

// An element of a known type ends with its last node, another one where a line does not end in a comma.
void CModelBuilder::EndElementLine(bool continued)
{
    ElementRecord& element = m_model.elements[m_model.elements.GetUpperBound()];
    const int nodes = m_model.types[m_type].shape.nodes;
    m_elementOpen = nodes == 0 ? continued : element.nodeCount < nodes;
    if (nodes == 0 || element.nodeCount <= nodes)
        return;
    element.nodeCount = nodes;
    ++m_model.elementsCut;
}

void CModelBuilder::BeginSet(const CDeckCard& card, SetKind kind, LPCSTR option)
{
    m_set = &m_model.SetOf(kind, card.RequiredValue(option));
    m_generate = card.Has("GENERATE");
}

void CModelBuilder::TakeSetLine(const CString& line)
{
    SplitFields(line, m_fields);
    if (m_generate)
        return AddRange(m_fields);
    for (int i = 0; i < m_fields.GetSize(); ++i)
        if (!m_fields[i].IsEmpty())
            AddMembers(m_fields[i]);
}

void CModelBuilder::AddRange(const CStringArray& fields)
{
    LONG bounds[3] = {0, 0, 1};
    for (int i = 0; i < fields.GetSize(); ++i)
        if (!fields[i].IsEmpty() && (i > 2 || !ParseInteger(fields[i], bounds[i])))
            Refuse("'" + fields[i] + "' is not a bound or step of a range");
    if (bounds[0] < 1 || bounds[1] < bounds[0] || bounds[2] < 1)
        Refuse("a range needs a first number, a last number not below it and a step above 0");
    STB_OPT_NODE run = {bounds[0], bounds[1], bounds[2]};
    m_set->runs.Add(run);
}

// A member is a number or the name of a set defined before.
void CModelBuilder::AddMembers(const CString& field)
{
    LONG number = 0;
    if (ParseInteger(field, number)) {
        AddRun(*m_set, static_cast<LONG>(Number(field, "a number of the model")));
        return;
    }
    const NumberSet* named = m_model.FindSet(m_set->kind, Unquoted(field));
    if (!named)
        Refuse("'" + field + "' is neither a number nor a set defined before");
    for (int i = 0, count = named->runs.GetSize(); i < count; ++i) {
        STB_OPT_NODE run = named->runs[i];
        m_set->runs.Add(run);
    }
}

void CModelBuilder::AddSection(const CDeckCard& card, LPCSTR kind)
{
    m_model.sections.Add({kind, card.RequiredValue("ELSET"), card.Value("MATERIAL"), card.Place()});
}

void CModelBuilder::BeginMaterial(const CDeckCard& card)
{
    m_model.materials.Add(card.RequiredValue("NAME"));
}

void CModelBuilder::BeginHeading(const CDeckCard&)
{
}

void CModelBuilder::TakeHeading(const CString& line)
{
    if (m_model.heading.IsEmpty())
        m_model.heading = line;
}
