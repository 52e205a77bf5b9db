// A zip archive that is read.
//
//   FileBytes file("/in/report.xlsx");
//   ZipReader zip(file);
//   const std::string workbook = zip.Read("xl/workbook.xml");
//
// The content is hostile until proved otherwise: names are keys and never paths, sizes are counted while
// inflating and not believed, a checksum that does not fit is an error.
// Errors: ReadError; what the byte source throws.
#pragma once

#include "package/ByteSource.h"

#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

struct zip;

namespace zek::office {

// An archive, or a part in it, that cannot be read; what() says which and why.
class ReadError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

struct ReadLimits {
    std::uint64_t entries = 10000;
    std::uint64_t entryBytes = 0xFFFFFFFF;  // inflated
    std::uint64_t totalBytes = 0x1FFFFFFFF; // inflated, all reads of one object together
    std::uint64_t textBytes = 256u << 20;   // of an entry that is read as a whole
};

class ZipReader
{
public:
    // Reads the directory. Refused: an archive whose headers disagree, one name twice, too many entries.
    explicit ZipReader(ByteSource& bytes, const ReadLimits& limits = {});
    ~ZipReader();
    ZipReader(const ZipReader&) = delete;
    ZipReader& operator=(const ZipReader&) = delete;

    // In the order of the archive.
    const std::vector<std::string>& Names() const { return m_names; }
    bool Has(const std::string& name) const { return m_index.count(name) != 0; }

    // The whole of an entry.
    std::string Read(const std::string& name);

    // The entry in pieces, each valid during the call; memory does not grow with its size.
    void Visit(const std::string& name, const std::function<void(std::string_view)>& take);

private:
    struct Input;
    void ReadDirectory();
    [[noreturn]] void Fail(const std::string& what, const std::string& why) const;
    void VisitUpTo(const std::string& name, std::uint64_t limit,
                   const std::function<void(std::string_view)>& take);

    ReadLimits m_limits;
    std::uint64_t m_total = 0;
    std::exception_ptr m_failure; // what a callback of the archive library must not throw
    std::unique_ptr<Input> m_input;
    std::vector<std::string> m_names;
    std::map<std::string, std::uint64_t> m_index;
    zip* m_zip = nullptr;
};

} // namespace zek::office
