// The token reader: the token at every position of a text.
#include "Fuzz.h"
#include "SelectionOracle.h"

#include <NumericOptimizer.h>

namespace {

constexpr Token kBefore = {77, 0, 98, 99};

void TryAt(const std::string& text, const std::vector<char>& bytes, std::size_t pos)
{
    Token got = kBefore, before = kBefore;
    got.pos = before.pos = static_cast<int>(pos);
    got.result = CNumericOptimizer().GetToken(bytes.data(), got.pos, got.type, got.value);
    ExpectEqual(got, LiteralToken::Read(text, before), "the token");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = Input(data, size).Text();
    const std::vector<char> bytes = Exactly(text);
    for (std::size_t pos = 0; pos <= text.size(); ++pos)
        TryAt(text, bytes, pos);
    return 0;
}
