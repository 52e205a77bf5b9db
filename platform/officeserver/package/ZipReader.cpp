#include "package/ZipReader.h"

#include <algorithm>
#include <new>
#include <zip.h>

namespace zek::office {
namespace {

constexpr std::size_t kPieceSize = 64 * 1024;

struct CloseEntry {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};
using OpenEntry = std::unique_ptr<zip_file_t, CloseEntry>;

} // namespace

// The byte source as the library asks for it.
struct ZipReader::Input {
    ByteSource& bytes;
    std::exception_ptr& failure;
    std::uint64_t position = 0;
    zip_error_t error = {};

    zip_int64_t Read(void* data, zip_uint64_t size) noexcept
    {
        try {
            const std::size_t done = bytes.Read(position, data, size);
            position += done;
            return static_cast<zip_int64_t>(done);
        } catch (...) {
            failure = std::current_exception();
            zip_error_set(&error, ZIP_ER_READ, 0);
            return -1;
        }
    }

    zip_int64_t Seek(void* data, zip_uint64_t size)
    {
        const zip_int64_t target = zip_source_seek_compute_offset(position, bytes.Size(), data, size, &error);
        if (target < 0)
            return -1;
        position = static_cast<std::uint64_t>(target);
        return 0;
    }

    zip_int64_t State(void* data) const
    {
        auto* state = static_cast<zip_stat_t*>(data);
        zip_stat_init(state);
        state->valid = ZIP_STAT_SIZE;
        state->size = bytes.Size();
        return sizeof(zip_stat_t);
    }

    static zip_int64_t Callback(void* self, void* data, zip_uint64_t size, zip_source_cmd_t command) noexcept
    {
        Input& input = *static_cast<Input*>(self);
        switch (command) {
        case ZIP_SOURCE_OPEN:
            input.position = 0;
            return 0;
        case ZIP_SOURCE_READ:
            return input.Read(data, size);
        case ZIP_SOURCE_SEEK:
            return input.Seek(data, size);
        case ZIP_SOURCE_TELL:
            return static_cast<zip_int64_t>(input.position);
        case ZIP_SOURCE_STAT:
            return input.State(data);
        case ZIP_SOURCE_ERROR:
            return zip_error_to_data(&input.error, data, size);
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_SEEKABLE;
        default:
            return 0;
        }
    }
};

ZipReader::ZipReader(ByteSource& bytes, const ReadLimits& limits)
    : m_limits(limits), m_input(new Input{bytes, m_failure})
{
    if (bytes.Size() == 0) // which the library takes for an archive without entries
        Fail("the archive", "it is empty");
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* source = zip_source_function_create(Input::Callback, m_input.get(), &error);
    if (!source)
        throw std::bad_alloc();
    m_zip = zip_open_from_source(source, ZIP_RDONLY | ZIP_CHECKCONS, &error);
    if (!m_zip) {
        zip_source_free(source);
        const std::string why = zip_error_strerror(&error);
        zip_error_fini(&error); // which the text belongs to
        Fail("the archive", why);
    }
    try {
        ReadDirectory();
    } catch (...) {
        zip_discard(m_zip);
        throw;
    }
}

ZipReader::~ZipReader()
{
    zip_discard(m_zip);
}

void ZipReader::Fail(const std::string& what, const std::string& why) const
{
    if (m_failure)
        std::rethrow_exception(m_failure);
    throw ReadError("Cannot read " + what + ": " + why);
}

void ZipReader::ReadDirectory()
{
    const auto count = static_cast<std::uint64_t>(zip_get_num_entries(m_zip, 0));
    if (count > m_limits.entries)
        Fail("the archive", "it has too many entries");
    for (std::uint64_t i = 0; i < count; ++i) {
        const char* name = zip_get_name(m_zip, i, 0);
        if (!name)
            Fail("the archive", zip_strerror(m_zip));
        if (!m_index.emplace(name, i).second)
            Fail("the archive", "it holds '" + std::string(name) + "' twice");
        m_names.emplace_back(name);
    }
}

std::string ZipReader::Read(const std::string& name)
{
    std::string text;
    VisitUpTo(name, std::min(m_limits.textBytes, m_limits.entryBytes),
              [&](std::string_view piece) { text.append(piece); });
    return text;
}

void ZipReader::Visit(const std::string& name, const std::function<void(std::string_view)>& take)
{
    VisitUpTo(name, m_limits.entryBytes, take);
}

void ZipReader::VisitUpTo(const std::string& name, std::uint64_t limit,
                          const std::function<void(std::string_view)>& take)
{
    const auto found = m_index.find(name);
    if (found == m_index.end())
        Fail("'" + name + "'", "the archive does not hold it");
    OpenEntry entry(zip_fopen_index(m_zip, found->second, 0));
    if (!entry)
        Fail("'" + name + "'", zip_strerror(m_zip));
    std::vector<char> piece(kPieceSize);
    std::uint64_t size = 0;
    zip_int64_t done = 0;
    while ((done = zip_fread(entry.get(), piece.data(), piece.size())) > 0) {
        const auto bytes = static_cast<std::size_t>(done);
        size += bytes;
        m_total += bytes;
        if (size > limit || m_total > m_limits.totalBytes)
            Fail("'" + name + "'", "it is too large");
        take(std::string_view(piece.data(), bytes));
    }
    if (done < 0)
        Fail("'" + name + "'", zip_file_strerror(entry.get()));
}

} // namespace zek::office
