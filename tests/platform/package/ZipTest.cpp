#include "package/ZipReader.h"
#include "package/ZipWriter.h"

#include "Scratch.h"
#include "package/Package.h"
#include "package/SaveError.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <cstdlib>
#include <ctime>

using namespace zek::office;

namespace {

// A part of `size` bytes in pieces, which fails when `failAt` is reached.
class CountedSource : public PartSource
{
public:
    explicit CountedSource(std::size_t size, std::size_t failAt = ~std::size_t{0})
        : m_left(size), m_failAt(failAt)
    {
    }
    void Next(std::string& piece) override
    {
        if (m_done >= m_failAt)
            throw std::runtime_error("source");
        piece.assign(std::min<std::size_t>(m_left, 5000), static_cast<char>('a' + m_done % 23));
        m_done += piece.size();
        m_left -= piece.size();
    }

private:
    std::size_t m_left, m_failAt, m_done = 0;
};

std::string WholeSource(PartSource& source)
{
    std::string all, piece;
    for (source.Next(piece); !piece.empty(); source.Next(piece)) {
        all += piece;
        piece.clear();
    }
    return all;
}

std::string WriteArchive(const std::string& path, std::size_t size)
{
    AtomicFile file(path);
    ZipWriter zip(file);
    zip.Add("empty", std::make_unique<TextSource>(""), kSmallPartLevel);
    zip.Add("folder/big", std::make_unique<CountedSource>(size), kLargePartLevel);
    zip.Add("last", std::make_unique<TextSource>("text"), kSmallPartLevel);
    zip.Finish();
    file.Seal();
    file.Commit();
    return ReadWholeFile(path);
}

class ZipTest : public testing::Test
{
protected:
    ScratchFolder m_folder;
    std::string m_path = m_folder.Path("a.zip");
};

TEST_F(ZipTest, ReadsWhatItWrote)
{
    for (const std::size_t size : {0u, 1u, 4999u, 5000u, 5001u, 300000u}) {
        SCOPED_TRACE(size);
        const std::string bytes = WriteArchive(m_path, size);
        MemoryBytes memory(bytes);
        ZipReader zip(memory);
        EXPECT_EQ(zip.Names(), (std::vector<std::string>{"empty", "folder/big", "last"}));
        CountedSource expected(size);
        EXPECT_EQ(zip.Read("folder/big"), WholeSource(expected));
        EXPECT_EQ(zip.Read("empty"), "");
        EXPECT_EQ(zip.Read("last"), "text");
        EXPECT_TRUE(zip.Has("last"));
        EXPECT_THROW(zip.Read("none"), ReadError);
    }
}

TEST_F(ZipTest, SmallEntriesNeedNoLongSizes)
{
    const std::string bytes = WriteArchive(m_path, 300000);
    for (std::size_t at = 0; (at = bytes.find("PK\x03\x04", at)) != std::string::npos; ++at) {
        EXPECT_LE(bytes[at + 4], 20) << "version needed";
        EXPECT_EQ(bytes[at + 28] | bytes[at + 29], 0) << "extra field";
    }
}

TEST_F(ZipTest, SameEntriesSameBytesInEveryTimeZone)
{
    const std::string first = WriteArchive(m_path, 20000);
    for (const char* zone : {"Asia/Seoul", "America/St_Johns", "Pacific/Kiritimati", "UTC"}) {
        ::setenv("TZ", zone, 1);
        ::tzset();
        EXPECT_EQ(WriteArchive(m_path, 20000), first) << zone;
    }
    ::unsetenv("TZ");
    ::tzset();
}

TEST_F(ZipTest, AFailingSourceComesThrough)
{
    AtomicFile file(m_path);
    ZipWriter zip(file);
    zip.Add("a", std::make_unique<CountedSource>(100000, 50000), kLargePartLevel);
    try {
        zip.Finish();
        FAIL() << "no exception";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "source");
    }
}

// The content that is read, or "refused".
std::string ReadOrRefused(const std::string& bytes, const std::string& name)
{
    try {
        MemoryBytes memory(bytes);
        return ZipReader(memory).Read(name);
    } catch (const ReadError&) {
        return "refused";
    }
}

TEST_F(ZipTest, NoChangedByteOfTheDataChangesTheContent)
{
    const std::string good = WriteArchive(m_path, 3000);
    const std::string content = ReadOrRefused(good, "folder/big");
    const std::size_t start = good.find("folder/big") + 10;
    std::size_t refused = 0;
    for (std::size_t at = start; at < good.find("PK\x03\x04", start); ++at) {
        std::string bytes = good;
        bytes[at] = static_cast<char>(bytes[at] ^ 0x10);
        const std::string read = ReadOrRefused(bytes, "folder/big");
        EXPECT_TRUE(read == "refused" || read == content) << at;
        refused += read == "refused";
    }
    EXPECT_GT(refused, 0u);
}

TEST_F(ZipTest, EveryCutArchiveIsRefused)
{
    const std::string good = WriteArchive(m_path, 100);
    for (std::size_t size = 0; size < good.size(); ++size) {
        const std::string bytes = good.substr(0, size);
        MemoryBytes memory(bytes);
        EXPECT_THROW(ZipReader{memory}, ReadError) << size;
    }
}

TEST_F(ZipTest, LimitsHold)
{
    const std::string bytes = WriteArchive(m_path, 100000);
    const struct {
        const char* label;
        ReadLimits limits;
    } rows[] = {{"entries", {.entries = 2}},
                {"entry", {.entryBytes = 99999}},
                {"total", {.totalBytes = 99999}},
                {"text", {.textBytes = 99999}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        MemoryBytes memory(bytes);
        EXPECT_THROW(ZipReader(memory, row.limits).Read("folder/big"), ReadError);
    }
    MemoryBytes memory(bytes);
    const ReadLimits exact{.entries = 3, .entryBytes = 100000, .totalBytes = 100000, .textBytes = 100000};
    EXPECT_EQ(ZipReader(memory, exact).Read("folder/big").size(), 100000u);
}

TEST_F(ZipTest, OneNameTwiceIsRefused)
{
    {
        AtomicFile file(m_path);
        ZipWriter zip(file);
        zip.Add("same", std::make_unique<TextSource>("a"), kSmallPartLevel);
        zip.Add("othe", std::make_unique<TextSource>("b"), kSmallPartLevel);
        zip.Finish();
        file.Seal();
        file.Commit();
    }
    std::string bytes = ReadWholeFile(m_path);
    for (std::size_t at = 0; (at = bytes.find("othe", at)) != std::string::npos; ++at)
        bytes.replace(at, 4, "same");
    EXPECT_EQ(ReadOrRefused(bytes, "same"), "refused");
}

TEST_F(ZipTest, PackageListsPartsAndRelations)
{
    pugi::xml_document tree;
    tree.append_child("a");
    Package package;
    package.Add("/xl/book.xml", "type/book", tree);
    package.Add("/xl/sheets/1.xml", "type/sheet", tree);
    EXPECT_EQ(package.Relate("/", "rel/book", "/xl/book.xml"), "rId1");
    EXPECT_EQ(package.Relate("/xl/book.xml", "rel/sheet", "/xl/sheets/1.xml"), "rId1");
    EXPECT_EQ(package.Relate("/xl/book.xml", "rel/props", "/docProps/app.xml"), "rId2");
    AtomicFile file(m_path);
    ZipWriter writer(file);
    package.WriteTo(writer);
    writer.Finish();
    file.Seal();
    file.Commit();
    const std::string bytes = ReadWholeFile(m_path);
    MemoryBytes memory(bytes);
    ZipReader zip(memory);
    EXPECT_EQ(zip.Names(), (std::vector<std::string>{"[Content_Types].xml", "_rels/.rels", "xl/book.xml",
                                                     "xl/_rels/book.xml.rels", "xl/sheets/1.xml"}));
    EXPECT_EQ(zip.Read("xl/book.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<a/>");
    const std::string relations = zip.Read("xl/_rels/book.xml.rels");
    EXPECT_NE(relations.find("Id=\"rId1\" Type=\"rel/sheet\" Target=\"sheets/1.xml\""), std::string::npos);
    EXPECT_NE(relations.find("Id=\"rId2\" Type=\"rel/props\" Target=\"/docProps/app.xml\""),
              std::string::npos);
    EXPECT_NE(zip.Read("_rels/.rels").find("Target=\"xl/book.xml\""), std::string::npos);
    EXPECT_NE(
        zip.Read("[Content_Types].xml").find("PartName=\"/xl/sheets/1.xml\" ContentType=\"type/sheet\""),
        std::string::npos);
}

} // namespace
