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
    std::size_t TakeToken(std::string_view text);
    std::size_t TakeText(std::string_view text);
    std::size_t TakeDeclaration(std::string_view text);
    std::size_t TakeEndTag(std::string_view text);
    std::size_t TakeStartTag(std::string_view text);

    bool m_broken = false;
    bool m_rootSeen = false;
    std::string m_rest;              // the beginning of a token whose end has not come yet
    std::string m_names;             // of the open elements, one after the other
    std::vector<std::size_t> m_open; // where each of them begins
};

} // namespace zek::office
