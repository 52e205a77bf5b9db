#include "Remarks.h"

#include "Console.h"
#include "Fields.h"

namespace {

CString Quoted(const CString& name)
{
    return "\"" + name + "\"";
}

void AddSetRemarks(const CModel& model, CStringArray& remarks)
{
    for (int i = 0; i < model.sets.GetSize(); ++i) {
        const NumberSet& set = *model.sets[i];
        if (set.namesOthers)
            remarks.Add(CString(set.kind == kNodeSet ? "Node" : "Element") + " set " + Quoted(set.name) +
                        " also names numbers that the model does not have.");
    }
}

bool HasMaterial(const CModel& model, const CString& name)
{
    for (int i = 0; i < model.materials.GetSize(); ++i)
        if (Folded(model.materials[i]) == Folded(name))
            return true;
    return false;
}

void AddMaterialRemarks(const CModel& model, CStringArray& remarks)
{
    for (int i = 0; i < model.sections.GetSize(); ++i) {
        const SectionRecord& section = model.sections[i];
        const CString where = CString(section.kind) + " section of " + Quoted(section.elementSet);
        if (section.material.IsEmpty())
            remarks.Add(where + " names no material.");
        else if (!HasMaterial(model, section.material))
            remarks.Add(where + ": the deck does not define the material " + Quoted(section.material) + ".");
    }
}

void AddElementRemarks(const CModelView& view, CStringArray& remarks)
{
    int bare = 0;
    for (int i = 0; i < view.Groups().GetSize(); ++i) {
        const ElementGroup& group = view.Groups()[i];
        bare += group.section == kNone ? group.count : 0;
    }
    if (bare > 0)
        remarks.Add(Counted(bare, "element") + " without a solid, shell or beam section.");
    if (const int cut = view.Model().elementsCut; cut > 0)
        remarks.Add(Counted(cut, "element") +
                    " with more nodes than the type has; the surplus is passed over.");
}

void AddTypeRemarks(const CModelView& view, CStringArray& remarks)
{
    CString types;
    for (int i = 0; i < view.Types().GetSize(); ++i) {
        const TypeRecord& type = view.Model().types[view.Types()[i]];
        if (type.shape.measure == kNoMeasure)
            types += (types.IsEmpty() ? "" : ", ") + type.name;
    }
    if (!types.IsEmpty())
        remarks.Add("Elements of these types are counted, not measured: " + types + ".");
}

} // namespace

void GatherRemarks(const CModelView& view, CStringArray& remarks)
{
    AddSetRemarks(view.Model(), remarks);
    AddMaterialRemarks(view.Model(), remarks);
    AddElementRemarks(view, remarks);
    AddTypeRemarks(view, remarks);
}
