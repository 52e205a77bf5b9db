// The shared strings part: every text of the workbook once. Streamed.
#pragma once

#include "package/BookContent.h"
#include "package/PartSource.h"

namespace zek::office {

class SharedTextsSource : public PartSource
{
public:
    // `content` must outlive the object.
    explicit SharedTextsSource(const BookContent& content) : m_content(content) {}

    // Throws SaveError(EINVAL) for a text that is longer than cells can hold.
    void Next(std::string& piece) override;

private:
    void AppendHead(std::string& piece) const;
    void AppendText(std::string& piece, std::string_view text) const;

    const BookContent& m_content;
    std::size_t m_next = 0;
    bool m_begun = false;
    bool m_ended = false;
};

} // namespace zek::office
