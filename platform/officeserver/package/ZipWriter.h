// A zip archive written into a file that is not there yet.
//
//   AtomicFile file(path);
//   ZipWriter zip(file);
//   zip.Add("xl/workbook.xml", std::make_unique<TextSource>(text), kSmallPartLevel);
//   zip.Finish();
//
// Entries are compressed as they are produced; none is held as a whole. Time stamps and attributes are
// constant, so the same entries give the same bytes.
// Errors: SaveError, and whatever a source throws; then the file holds rubbish and must not be committed.
#pragma once

#include "package/AtomicFile.h"
#include "package/PartSource.h"

#include <exception>
#include <memory>
#include <string>
#include <vector>

struct zip;
struct zip_source;

namespace zek::office {

// Deflate levels: large parts are written for speed. Level 1 takes a third of the time of level 6 and
// gives files a quarter larger.
constexpr int kLargePartLevel = 1;
constexpr int kSmallPartLevel = 6;

class ZipWriter
{
public:
    explicit ZipWriter(AtomicFile& file);
    ~ZipWriter();
    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    // Adds an entry behind the others. The source is asked for its bytes in Finish().
    void Add(const std::string& name, std::unique_ptr<PartSource> source, int level);

    // Writes the archive.
    void Finish();

private:
    struct Entry;
    struct Output;
    [[noreturn]] void Fail() const;

    std::exception_ptr m_failure; // what a callback of the archive library must not throw
    std::unique_ptr<Output> m_output;
    std::vector<std::unique_ptr<Entry>> m_entries;
    zip* m_zip = nullptr;
};

} // namespace zek::office
