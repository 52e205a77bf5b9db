// The bytes of a part of a package, produced piece by piece while the package is written.
#pragma once

#include <memory>
#include <string>
#include <utility>

namespace zek::office {

class PartSource
{
public:
    virtual ~PartSource() = default;

    // Appends the next piece to `piece`, which is empty; leaves it empty at the end. Pieces of some ten
    // kilobytes are right. What it throws ends the save.
    virtual void Next(std::string& piece) = 0;
};

// A part that is there as a whole.
class TextSource : public PartSource
{
public:
    explicit TextSource(std::string text) : m_text(std::move(text)) {}

    void Next(std::string& piece) override
    {
        piece.swap(m_text);
        m_text.clear();
    }

private:
    std::string m_text;
};

} // namespace zek::office
