#include "package/XmlCheck.h"

#include <gtest/gtest.h>

#include <string>

using zek::office::XmlCheck;

namespace {

bool IsXml(const std::string& text, std::size_t piece)
{
    XmlCheck check;
    for (std::size_t at = 0; at < text.size(); at += piece)
        check.Add(text.data() + at, std::min(piece, text.size() - at));
    return check.IsComplete();
}

const struct {
    const char* label;
    std::string text;
    bool good;
} kRows[] = {
    {"empty element", "<a/>", true},
    {"declaration", "<?xml version=\"1.0\"?>\n<a><b>t</b></a>\n", true},
    {"attributes", "<a b=\"1\" c='2'\n d:e = \"3\"/>", false}, // blanks round '=': no writer of ours
    {"attributes, one blank", "<a b=\"1\" c='2'\n d:e=\"3\"/>", true},
    {"greater-than in a value", "<a b=\"x>y\"><c d='>'/></a>", true},
    {"entities", "<a b=\"&quot;&#10;\">&amp;&lt;&gt;&apos;&#x1F600;</a>", true},
    {"comment with markup", "<a><!-- <b> & ' --></a>", true},
    {"character data", "<a><![CDATA[<b>&]]></a>", true},
    {"wide characters", "<a>\xEB\xB3\xB4\xF0\x9F\x98\x80</a>", true},
    {"blank in the end tag", "<a></a >", true},
    {"nothing", "", false},
    {"text alone", "a", false},
    {"open", "<a><b></b>", false},
    {"open tag", "<a", false},
    {"crossed", "<a><b></a></b>", false},
    {"prefix of a name", "<ab></a>", false},
    {"two roots", "<a/><b/>", false},
    {"text behind the root", "<a/>x", false},
    {"text before the root", "x<a/>", false},
    {"end tag alone", "</a>", false},
    {"doubled attribute", "<a b=\"1\" b=\"2\"/>", false},
    {"attributes run together", "<a b=\"1\"c=\"2\"/>", false},
    {"value without quotes", "<a b=1/>", false},
    {"bare ampersand", "<a>x & y</a>", false},
    {"bare less-than in a value", "<a b=\"<\"/>", false},
    {"unknown entity", "<a>&nbsp;</a>", false},
    {"entity of no character", "<a>&#0;</a>", false},
    {"control", "<a>\x01</a>", false},
    {"not UTF-8", "<a>\xFF</a>", false},
    {"cut sequence", "<a>\xE3\x81</a>", false},
    {"surrogate", "<a>\xED\xA0\x80</a>", false},
    {"document type", "<!DOCTYPE a [<!ENTITY b \"c\">]><a/>", false},
    {"no name", "<1a/>", false},
};

TEST(XmlCheck, TellsWellFormedDocuments)
{
    for (const auto& row : kRows)
        for (const std::size_t piece : {std::size_t{1}, std::size_t{3}, std::size_t{1000}}) {
            SCOPED_TRACE(testing::Message() << row.label << ", pieces of " << piece);
            EXPECT_EQ(IsXml(row.text, piece), row.good);
        }
}

TEST(XmlCheck, EveryCutIsFound)
{
    const std::string text = "<a b=\"c\"><d>e&amp;</d><f/></a>";
    for (std::size_t size = 0; size < text.size(); ++size)
        EXPECT_FALSE(IsXml(text.substr(0, size), 7)) << size;
    EXPECT_TRUE(IsXml(text, 7));
}

TEST(XmlCheck, StaysBroken)
{
    XmlCheck check;
    EXPECT_FALSE(check.Add("<a></b>", 7));
    EXPECT_FALSE(check.Add("</a>", 4));
    EXPECT_FALSE(check.IsComplete());
}

} // namespace
