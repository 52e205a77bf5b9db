#include "package/WorkbookPackage.h"

#include "package/AtomicFile.h"
#include "package/ByteSource.h"
#include "package/ContentTypes.h"
#include "package/DocumentProperties.h"
#include "package/Package.h"
#include "package/SaveError.h"
#include "package/SharedTextsPart.h"
#include "package/SheetPart.h"
#include "package/WorkbookPart.h"
#include "package/XmlCheck.h"
#include "package/ZipReader.h"

#include <cerrno>
#include <new>

namespace zek::office {
namespace {

constexpr char kWorkbookPart[] = "/xl/workbook.xml";
constexpr char kStylesName[] = "/xl/styles.xml";
constexpr char kTextsName[] = "/xl/sharedStrings.xml";

std::string SheetName(std::size_t index)
{
    return "/xl/worksheets/sheet" + std::to_string(index + 1) + ".xml";
}

void AddProperties(Package& package, const Workbook& book)
{
    pugi::xml_document app, core;
    BuildAppProperties(app, book);
    BuildCoreProperties(core);
    package.Add("/docProps/app.xml", kAppType, app);
    package.Add("/docProps/core.xml", kCoreType, core);
    package.Relate("/", kDocumentRelation, kWorkbookPart);
    package.Relate("/", kCoreRelation, "/docProps/core.xml");
    package.Relate("/", kAppRelation, "/docProps/app.xml");
}

void AddWorkbook(Package& package, const BookContent& content, const std::string& path)
{
    std::vector<std::string> relations;
    for (std::size_t i = 0; i < content.book.SheetCount(); ++i)
        relations.push_back(package.Relate(kWorkbookPart, kSheetRelation, SheetName(i)));
    package.Relate(kWorkbookPart, kStylesRelation, kStylesName);
    if (!content.texts.empty())
        package.Relate(kWorkbookPart, kTextsRelation, kTextsName);
    pugi::xml_document workbook;
    BuildWorkbook(workbook, content, relations);
    package.Add(kWorkbookPart, WorkbookType(path), workbook);
}

void AddContent(Package& package, const BookContent& content, const StylesPart& styles)
{
    for (std::size_t i = 0; i < content.book.SheetCount(); ++i)
        package.Add(SheetName(i), kSheetType, std::make_unique<SheetSource>(content, styles, i));
    package.Add(kStylesName, kStylesType, std::make_unique<TextSource>(styles.Text()), kSmallPartLevel);
    if (!content.texts.empty())
        package.Add(kTextsName, kTextsType, std::make_unique<SharedTextsSource>(content));
}

// The new file before it is committed.
class SealedFile : public ByteSource
{
public:
    explicit SealedFile(AtomicFile& file) : m_file(file) {}
    std::uint64_t Size() const override { return m_file.Size(); }
    std::size_t Read(std::uint64_t offset, void* data, std::size_t size) override
    {
        return m_file.Read(offset, data, size);
    }

private:
    AtomicFile& m_file;
};

// What was written must read back: every checksum, every part as XML.
void Verify(AtomicFile& file, const std::string& path)
{
    SealedFile bytes(file);
    ZipReader zip(bytes, {.totalBytes = ~std::uint64_t{0}});
    for (const std::string& name : zip.Names()) {
        XmlCheck check;
        zip.Visit(name, [&](std::string_view piece) { check.Add(piece.data(), piece.size()); });
        if (!check.IsComplete())
            throw SaveError(EIO, "Cannot save '" + path + "': part " + name + " does not read back");
    }
}

void WriteArchive(AtomicFile& file, const BookContent& content, const StylesPart& styles,
                  const std::string& path)
{
    Package package;
    AddProperties(package, content.book);
    AddWorkbook(package, content, path);
    AddContent(package, content, styles);
    ZipWriter zip(file);
    package.WriteTo(zip);
    zip.Finish();
}

} // namespace

void SaveWorkbook(const Workbook& book, const std::string& nativePath)
{
    SaveWorkbook(book, nativePath, SystemFileCalls());
}

void SaveWorkbook(const Workbook& book, const std::string& nativePath, FileCalls& calls)
{
    try {
        const BookContent content(book);
        const StylesPart styles(content);
        AtomicFile file(nativePath, calls);
        WriteArchive(file, content, styles, nativePath);
        file.Seal();
        Verify(file, nativePath);
        file.Commit();
    } catch (const ReadError& error) {
        throw SaveError(EIO, "Cannot save '" + nativePath + "': " + error.what());
    } catch (const std::bad_alloc&) {
        throw SaveError::System(ENOMEM, "save", nativePath);
    }
}

} // namespace zek::office
