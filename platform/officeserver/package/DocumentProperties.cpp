#include "package/DocumentProperties.h"

#include "package/XmlText.h"
#include "spreadsheet/model/Workbook.h"

namespace zek::office {
namespace {

constexpr char kCoreNamespace[] = "http://schemas.openxmlformats.org/package/2006/metadata/core-properties";
constexpr char kAppNamespace[] = "http://schemas.openxmlformats.org/officeDocument/2006/extended-properties";
constexpr char kVariantNamespace[] = "http://schemas.openxmlformats.org/officeDocument/2006/docPropsVTypes";

void AddText(pugi::xml_node parent, const char* name, const std::string& text)
{
    parent.append_child(name).append_child(pugi::node_pcdata).set_value(text.c_str());
}

pugi::xml_node AddVector(pugi::xml_node parent, std::size_t size, const char* type)
{
    pugi::xml_node vector = parent.append_child("vt:vector");
    vector.append_attribute("size") = static_cast<unsigned>(size);
    vector.append_attribute("baseType") = type;
    return vector;
}

} // namespace

void BuildCoreProperties(pugi::xml_document& document)
{
    pugi::xml_node root = document.append_child("cp:coreProperties");
    root.append_attribute("xmlns:cp") = kCoreNamespace;
    root.append_attribute("xmlns:dc") = "http://purl.org/dc/elements/1.1/";
    root.append_child("dc:creator");
    root.append_child("cp:lastModifiedBy");
}

void BuildAppProperties(pugi::xml_document& document, const Workbook& book)
{
    pugi::xml_node root = document.append_child("Properties");
    root.append_attribute("xmlns") = kAppNamespace;
    root.append_attribute("xmlns:vt") = kVariantNamespace;
    AddText(root, "Application", "ZEK_lib");
    AddText(root, "DocSecurity", "0");
    AddText(root, "ScaleCrop", "false");
    pugi::xml_node heading = AddVector(root.append_child("HeadingPairs"), 2, "variant");
    AddText(heading.append_child("vt:variant"), "vt:lpstr", "Worksheets");
    AddText(heading.append_child("vt:variant"), "vt:i4", std::to_string(book.SheetCount()));
    pugi::xml_node titles = AddVector(root.append_child("TitlesOfParts"), book.SheetCount(), "lpstr");
    for (std::size_t i = 0; i < book.SheetCount(); ++i)
        AddText(titles, "vt:lpstr", StoredText(book.SheetAt(i).Name()));
}

} // namespace zek::office
