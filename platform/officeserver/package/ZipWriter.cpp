#include "package/ZipWriter.h"

#include "package/SaveError.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <zip.h>

namespace zek::office {
namespace {

// 1980-01-01 00:00, the first moment that archives can hold, in their own encoding: no time zone enters.
constexpr zip_uint16_t kDate = 1 << 5 | 1;
constexpr zip_uint16_t kTime = 0;

// Runs what a callback does; a failure is kept for later and told to the library as -1.
template <class Work>
zip_int64_t Guarded(std::exception_ptr& failure, zip_error_t& error, Work work) noexcept
{
    try {
        return work();
    } catch (...) {
        if (!failure)
            failure = std::current_exception();
        zip_error_set(&error, ZIP_ER_INTERNAL, 0);
        return -1;
    }
}

} // namespace

// A source as the library asks for it.
struct ZipWriter::Entry {
    std::unique_ptr<PartSource> source;
    std::exception_ptr& failure;
    std::string piece = {};
    std::size_t taken = 0;
    bool ended = false;
    zip_error_t error = {};

    zip_int64_t Read(char* data, std::size_t size)
    {
        if (taken == piece.size() && !ended) {
            piece.clear();
            taken = 0;
            source->Next(piece);
            ended = piece.empty();
        }
        const std::size_t part = std::min(size, piece.size() - taken);
        std::memcpy(data, piece.data() + taken, part);
        taken += part;
        return static_cast<zip_int64_t>(part);
    }

    // The library reserves room for 64-bit sizes, which spreadsheet programs dislike, unless it knows the
    // size beforehand. Before the first byte it is told none; at the end it knows better.
    zip_int64_t State(void* data) const
    {
        auto* state = static_cast<zip_stat_t*>(data);
        zip_stat_init(state);
        if (!ended && piece.empty()) {
            state->valid = ZIP_STAT_SIZE;
            state->size = 0;
        }
        return sizeof(zip_stat_t);
    }

    static zip_int64_t Callback(void* self, void* data, zip_uint64_t size, zip_source_cmd_t command) noexcept
    {
        Entry& entry = *static_cast<Entry*>(self);
        switch (command) {
        case ZIP_SOURCE_READ:
            return Guarded(entry.failure, entry.error,
                           [&] { return entry.Read(static_cast<char*>(data), size); });
        case ZIP_SOURCE_STAT:
            return entry.State(data);
        case ZIP_SOURCE_ERROR:
            return zip_error_to_data(&entry.error, data, size);
        case ZIP_SOURCE_SUPPORTS:
            return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE,
                                                  ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
        default:
            return 0;
        }
    }
};

// The new file as the library writes to it.
struct ZipWriter::Output {
    AtomicFile& file;
    std::exception_ptr& failure;
    zip_error_t error = {};

    zip_int64_t Write(const void* data, zip_uint64_t size)
    {
        file.Write(data, size);
        return static_cast<zip_int64_t>(size);
    }

    zip_int64_t Seek(void* data, zip_uint64_t size)
    {
        const zip_int64_t target =
            zip_source_seek_compute_offset(file.Position(), file.Size(), data, size, &error);
        if (target >= 0)
            file.Seek(static_cast<std::uint64_t>(target));
        return target < 0 ? -1 : 0;
    }

    static zip_int64_t Callback(void* self, void* data, zip_uint64_t size, zip_source_cmd_t command) noexcept
    {
        Output& output = *static_cast<Output*>(self);
        auto guarded = [&](auto work) { return Guarded(output.failure, output.error, work); };
        switch (command) {
        case ZIP_SOURCE_WRITE:
            return guarded([&] { return output.Write(data, size); });
        case ZIP_SOURCE_SEEK_WRITE:
            return guarded([&] { return output.Seek(data, size); });
        case ZIP_SOURCE_TELL_WRITE:
            return static_cast<zip_int64_t>(output.file.Position());
        case ZIP_SOURCE_ERROR:
            return zip_error_to_data(&output.error, data, size);
        case ZIP_SOURCE_STAT: // nothing is there to be read
            zip_error_set(&output.error, ZIP_ER_READ, ENOENT);
            return -1;
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_WRITABLE;
        default:
            return 0;
        }
    }
};

ZipWriter::ZipWriter(AtomicFile& file) : m_output(new Output{file, m_failure})
{
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* source = zip_source_function_create(Output::Callback, m_output.get(), &error);
    if (source)
        m_zip = zip_open_from_source(source, ZIP_CREATE | ZIP_TRUNCATE, &error);
    if (!m_zip) {
        zip_source_free(source);
        throw std::bad_alloc();
    }
}

ZipWriter::~ZipWriter()
{
    if (m_zip)
        zip_discard(m_zip);
}

void ZipWriter::Fail() const
{
    if (m_failure)
        std::rethrow_exception(m_failure);
    throw SaveError(EIO, std::string("Cannot write the archive: ") + zip_strerror(m_zip));
}

void ZipWriter::Add(const std::string& name, std::unique_ptr<PartSource> source, int level)
{
    m_entries.emplace_back(new Entry{std::move(source), m_failure});
    zip_source_t* input = zip_source_function(m_zip, Entry::Callback, m_entries.back().get());
    const zip_int64_t index = input ? zip_file_add(m_zip, name.c_str(), input, ZIP_FL_ENC_UTF_8) : -1;
    if (index < 0) {
        zip_source_free(input);
        Fail();
    }
    const auto number = static_cast<zip_uint64_t>(index);
    if (zip_set_file_compression(m_zip, number, ZIP_CM_DEFLATE, static_cast<zip_uint32_t>(level)) != 0 ||
        zip_file_set_dostime(m_zip, number, kTime, kDate, 0) != 0)
        Fail();
}

void ZipWriter::Finish()
{
    if (zip_close(m_zip) != 0)
        Fail();
    m_zip = nullptr;
}

} // namespace zek::office
