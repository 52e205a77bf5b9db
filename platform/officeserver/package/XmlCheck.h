// Tells whether bytes that arrive piece by piece are a well-formed XML document.
//
//   XmlCheck check;
//   check.Add(piece.data(), piece.size());   // any number of times
//   check.IsComplete();                      // true when one root element was opened and closed
//
// Checked: UTF-8 and the characters allowed, entities, quotes and doubled names of attributes, nesting of
// tags, one root. Refused besides: a document type declaration, entities other than the five of XML and
// numbers. Memory: the names of the open elements and the longest tag or text that crosses two pieces.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zek::office {

class XmlCheck
{
public:
    // False once the document is known to be broken; later calls stay so.
    bool Add(const char* data, std::size_t size);
    bool IsComplete() const;

private:
    std::size_t TokenEnd(std::string_view piece) const;
    bool TakeToken(std::string_view token);
    bool TakeText(std::string_view text) const;
    bool TakeTag(std::string_view tag);
    bool TakeEndTag(std::string_view name);

    bool m_broken = false;
    bool m_rootSeen = false;
    bool m_inTag = false;            // the token begins with '<'
    std::string m_token;             // as much of it as earlier pieces held
    std::string m_names;             // of the open elements, one after the other
    std::vector<std::size_t> m_open; // where each of them begins
};

} // namespace zek::office
