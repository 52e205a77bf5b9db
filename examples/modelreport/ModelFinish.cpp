#include "ModelFinish.h"

#include <algorithm>

namespace {

template <class RECORD>
bool ByNumber(const RECORD& a, const RECORD& b)
{
    return a.number < b.number;
}

// Of records with the same number the last one stays.
template <class RECORD>
void SortAndKeepLast(CArray<RECORD, const RECORD&>& records)
{
    RECORD* first = records.GetData();
    const int count = records.GetSize();
    if (!std::is_sorted(first, first + count, ByNumber<RECORD>))
        std::stable_sort(first, first + count, ByNumber<RECORD>);
    int kept = 0;
    for (int i = 0; i < count; ++i)
        if (i + 1 == count || first[i].number != first[i + 1].number)
            first[kept++] = first[i];
    records.SetSize(kept);
}

void CheckNodes(const CModel& model)
{
    for (int e = 0; e < model.elements.GetSize(); ++e) {
        const ElementRecord& element = model.elements[e];
        for (int i = 0; i < element.nodeCount; ++i) {
            const UINT number = model.NodeOf(element, i);
            if (number == 0 || model.FindNode(number))
                continue;
            CString what;
            what.Format("element %u: there is no node %u", element.number, number);
            ThrowDeckError(element.place, what);
        }
    }
}

// Marks in `taken` which of the ascending `numbers` the run names; how many of its numbers are there.
LONGLONG MarkRun(const STB_OPT_NODE& run, const CArray<UINT, UINT>& numbers, CArray<BYTE, BYTE>& taken)
{
    const UINT* first = numbers.GetData();
    const UINT* last = first + numbers.GetSize();
    LONGLONG found = 0;
    for (const UINT* at = std::lower_bound(first, last, static_cast<UINT>(run.start));
         at != last && *at <= static_cast<UINT>(run.end); ++at)
        if ((*at - static_cast<UINT>(run.start)) % static_cast<UINT>(run.step) == 0) {
            taken[static_cast<int>(at - first)] = 1;
            ++found;
        }
    return found;
}

void GatherMembers(NumberSet& set, const CArray<UINT, UINT>& numbers)
{
    CArray<BYTE, BYTE> taken;
    taken.SetSize(numbers.GetSize());
    for (int i = 0; i < set.runs.GetSize(); ++i) {
        const STB_OPT_NODE& run = set.runs[i];
        const LONGLONG named = (static_cast<LONGLONG>(run.end) - run.start) / run.step + 1;
        if (MarkRun(run, numbers, taken) < named)
            set.namesOthers = true;
    }
    for (int i = 0; i < taken.GetSize(); ++i)
        if (taken[i])
            set.members.Add(numbers[i]);
}

void GatherSets(CModel& model)
{
    CArray<UINT, UINT> numbers[2];
    NumbersOf(model.nodes, numbers[kNodeSet]);
    NumbersOf(model.elements, numbers[kElementSet]);
    for (int i = 0; i < model.sets.GetSize(); ++i)
        GatherMembers(*model.sets[i], numbers[model.sets[i]->kind]);
}

// Both the elements and the members ascend.
void GiveSection(CModel& model, const NumberSet& set, int section)
{
    int element = 0;
    for (int i = 0; i < set.members.GetSize(); ++i) {
        while (model.elements[element].number < set.members[i])
            ++element;
        model.elements[element].section = section;
    }
}

void GiveSections(CModel& model)
{
    for (int i = 0; i < model.sections.GetSize(); ++i) {
        const SectionRecord& section = model.sections[i];
        const NumberSet* set = model.FindSet(kElementSet, section.elementSet);
        if (!set)
            ThrowDeckError(section.place, "there is no element set '" + section.elementSet + "'");
        GiveSection(model, *set, i);
    }
}

} // namespace

void AddRun(NumberSet& set, LONG number)
{
    STB_OPT_NODE* last = set.runs.IsEmpty() ? nullptr : &set.runs[set.runs.GetUpperBound()];
    if (last && last->step == 1 && number > 1 && last->end == number - 1) {
        last->end = number;
        return;
    }
    STB_OPT_NODE run = {number, number, 1};
    set.runs.Add(run);
}

void FinishModel(CModel& model)
{
    SortAndKeepLast(model.nodes);
    SortAndKeepLast(model.elements);
    CheckNodes(model);
    GatherSets(model);
    GiveSections(model);
}
