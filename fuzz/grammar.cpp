// The grammar: the normal form of a text, into exactly as much room as it may need.
#include "Fuzz.h"
#include "SelectionOracle.h"

#include <NumericOptimizer.h>

namespace {

NormalForm NormalisedTo(std::vector<char>& room, const char* text, std::size_t wide)
{
    const int result = CNumericOptimizer().StrCpyRemoveSpace(room.data(), text);
    return {result == 1, room.data(), wide};
}

void Compare(const NormalForm& got, const NormalForm& expected, const char* how)
{
    ExpectEqual(got.accepted, expected.accepted, how);
    ExpectEqual(got.text, expected.text, how);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = Input(data, size).Text();
    const NormalForm expected = Normalise(text);

    const std::vector<char> source = Exactly(text);
    std::vector<char> room(text.size() + 1 + expected.wide, '#');
    Compare(NormalisedTo(room, source.data(), expected.wide), expected, "the normal form");

    std::vector<char> both = room;
    std::copy(source.begin(), source.end(), both.begin());
    Compare(NormalisedTo(both, both.data(), expected.wide), expected, "the normal form in place");

    if (expected.accepted) {
        const std::vector<char> again = Exactly(expected.text);
        std::vector<char> same = again;
        Compare(NormalisedTo(same, again.data(), 0), expected, "the normal form of a normal form");
    }
    return 0;
}
