// A package of parts as it is put together: names, content types, relationships, bytes.
//
//   Package package;
//   package.Add("/xl/workbook.xml", kWorkbookType, workbookXml);
//   package.Relate("/", kOfficeDocumentRelation, "/xl/workbook.xml");
//   package.WriteTo(zip);
//
// The list of content types and the relationship parts are made by WriteTo(). Part names are absolute
// ("/xl/workbook.xml"); "/" stands for the package itself.
#pragma once

#include "package/PartSource.h"
#include "package/ZipWriter.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace pugi {
class xml_document;
}

namespace zek::office {

// The tree as the text of a part, declaration included, without added white space.
std::string PartText(const pugi::xml_document& document);

class Package
{
public:
    // Adds a part behind the others. Its name must be new.
    void Add(const std::string& name, const std::string& contentType, std::unique_ptr<PartSource> source,
             int level = kLargePartLevel);
    void Add(const std::string& name, const std::string& contentType, const pugi::xml_document& document);

    // Makes a relationship from a part to another and answers its identifier: "rId1" and so on for each part.
    std::string Relate(const std::string& from, const std::string& type, const std::string& to);

    // Hands everything to the archive, the list of content types first. The package is spent then.
    void WriteTo(ZipWriter& zip);

private:
    struct Part {
        std::string name;
        std::string contentType;
        std::unique_ptr<PartSource> source;
        int level;
    };
    struct Relation {
        std::string type;
        std::string target;
    };
    std::string ContentTypes() const;
    void AddRelations(ZipWriter& zip, const std::string& part) const;

    std::vector<Part> m_parts;
    std::map<std::string, std::vector<Relation>> m_relations; // by the part they start from
};

} // namespace zek::office
