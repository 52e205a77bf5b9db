#include "Model.h"

#include "Fields.h"

#include <algorithm>

#include "Tracker.h"

namespace {

CString SetKey(SetKind kind, const CString& name)
{
    return (kind == kNodeSet ? "N" : "E") + Folded(name);
}

} // namespace

CModel::~CModel()
{
    for (int i = 0; i < sets.GetSize(); ++i)
        delete sets[i];
}

NumberSet* CModel::FindSet(SetKind kind, const CString& setName) const
{
    int index = 0;
    return m_setIndex.Lookup(SetKey(kind, setName), index) ? sets[index] : nullptr;
}

NumberSet& CModel::SetOf(SetKind kind, const CString& setName)
{
    if (NumberSet* found = FindSet(kind, setName))
        return *found;
    NumberSet* added = new NumberSet;
    added->name = setName;
    added->kind = kind;
    m_setIndex.SetAt(SetKey(kind, setName), sets.Add(added));
    return *added;
}

int CModel::TypeIndex(const CString& type)
{
    int index = 0;
    if (m_typeIndex.Lookup(type, index))
        return index;
    index = types.Add({type, ShapeOf(type)});
    m_typeIndex.SetAt(type, index);
    return index;
}

const NodeRecord* CModel::FindNode(UINT number) const
{
    const NodeRecord* end = nodes.GetData() + nodes.GetSize();
    const NodeRecord* found =
        std::lower_bound(nodes.GetData(), end, number,
                         [](const NodeRecord& node, UINT sought) { return node.number < sought; });
    return found != end && found->number == number ? found : nullptr;
}
