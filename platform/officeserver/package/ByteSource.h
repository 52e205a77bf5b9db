// Bytes that can be read anywhere: an existing file, a new one before it is committed, memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace zek::office {

class ByteSource
{
public:
    virtual ~ByteSource() = default;

    virtual std::uint64_t Size() const = 0;
    // Reads up to `size` bytes at `offset`; answers how many, 0 at the end. Throws what it likes.
    virtual std::size_t Read(std::uint64_t offset, void* data, std::size_t size) = 0;
};

// Bytes in memory, which must outlive the object.
class MemoryBytes : public ByteSource
{
public:
    explicit MemoryBytes(const std::string& bytes) : m_bytes(bytes) {}

    std::uint64_t Size() const override { return m_bytes.size(); }
    std::size_t Read(std::uint64_t offset, void* data, std::size_t size) override
    {
        return offset >= m_bytes.size() ? 0 : m_bytes.copy(static_cast<char*>(data), size, offset);
    }

private:
    const std::string& m_bytes;
};

} // namespace zek::office
