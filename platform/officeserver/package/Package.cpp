#include "package/Package.h"

#include "package/XmlText.h"

#include <pugixml.hpp>
#include <string_view>

namespace zek::office {
namespace {

constexpr char kTypesNamespace[] = "http://schemas.openxmlformats.org/package/2006/content-types";
constexpr char kRelationsNamespace[] = "http://schemas.openxmlformats.org/package/2006/relationships";
constexpr char kRelationsType[] = "application/vnd.openxmlformats-package.relationships+xml";

struct StringWriter : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override
    {
        text.append(static_cast<const char*>(data), size);
    }
};

// "/xl/workbook.xml" has the folder "/xl/"; "/" is the package's own.
std::string FolderOf(const std::string& part)
{
    return part.substr(0, part.rfind('/') + 1);
}

std::string RelationsName(const std::string& part)
{
    return FolderOf(part) + "_rels/" + part.substr(part.rfind('/') + 1) + ".rels";
}

// Targets are written relative to the folder of the part, as all programs do.
std::string RelativeTarget(const std::string& from, const std::string& to)
{
    const std::string folder = FolderOf(from);
    return to.compare(0, folder.size(), folder) == 0 ? to.substr(folder.size()) : to;
}

std::string EntryName(const std::string& part)
{
    return part.substr(1);
}

void AddType(pugi::xml_node types, const char* element, const char* key, const std::string& value,
             const std::string& type)
{
    pugi::xml_node node = types.append_child(element);
    node.append_attribute(key) = value.c_str();
    node.append_attribute("ContentType") = type.c_str();
}

} // namespace

std::string PartText(const pugi::xml_document& document)
{
    StringWriter writer;
    writer.text = kXmlDeclaration;
    document.save(writer, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    return std::move(writer.text);
}

void Package::Add(const std::string& name, const std::string& contentType, std::unique_ptr<PartSource> source,
                  int level)
{
    m_parts.push_back({name, contentType, std::move(source), level});
}

void Package::Add(const std::string& name, const std::string& contentType, const pugi::xml_document& document)
{
    Add(name, contentType, std::make_unique<TextSource>(PartText(document)), kSmallPartLevel);
}

std::string Package::Relate(const std::string& from, const std::string& type, const std::string& to)
{
    std::vector<Relation>& relations = m_relations[from];
    relations.push_back({type, RelativeTarget(from, to)});
    return "rId" + std::to_string(relations.size());
}

std::string Package::ContentTypes() const
{
    pugi::xml_document document;
    pugi::xml_node types = document.append_child("Types");
    types.append_attribute("xmlns") = kTypesNamespace;
    AddType(types, "Default", "Extension", "rels", kRelationsType);
    AddType(types, "Default", "Extension", "xml", "application/xml");
    for (const Part& part : m_parts)
        AddType(types, "Override", "PartName", part.name, part.contentType);
    return PartText(document);
}

void Package::AddRelations(ZipWriter& zip, const std::string& part) const
{
    const auto found = m_relations.find(part);
    if (found == m_relations.end())
        return;
    pugi::xml_document document;
    pugi::xml_node root = document.append_child("Relationships");
    root.append_attribute("xmlns") = kRelationsNamespace;
    std::size_t number = 0;
    for (const Relation& relation : found->second) {
        pugi::xml_node node = root.append_child("Relationship");
        node.append_attribute("Id") = ("rId" + std::to_string(++number)).c_str();
        node.append_attribute("Type") = relation.type.c_str();
        node.append_attribute("Target") = relation.target.c_str();
    }
    zip.Add(EntryName(RelationsName(part)), std::make_unique<TextSource>(PartText(document)),
            kSmallPartLevel);
}

void Package::WriteTo(ZipWriter& zip)
{
    zip.Add("[Content_Types].xml", std::make_unique<TextSource>(ContentTypes()), kSmallPartLevel);
    AddRelations(zip, "/");
    for (Part& part : m_parts) {
        zip.Add(EntryName(part.name), std::move(part.source), part.level);
        AddRelations(zip, part.name);
    }
}

} // namespace zek::office
