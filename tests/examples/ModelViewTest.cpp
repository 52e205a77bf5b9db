#include "ModelReader.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// A box of 2 x 3 x 4: nodes 1 to 4 below, 5 to 8 above, 9 a middle node far away that no measure may see.
const char kBox[] =
    "*NODE\n1,0,0,0\n2,2,0,0\n3,2,3,0\n4,0,3,0\n5,0,0,4\n6,2,0,4\n7,2,3,4\n8,0,3,4\n9,99,-99,9\n";

std::string Deck(const char* type, const char* nodes)
{
    return std::string(kBox) + "*ELEMENT,TYPE=" + type + "\n1," + nodes + "\n";
}

} // namespace

TEST(ModelView, MeasuresByCorners)
{
    constexpr double kLoose = 1e-6; // the wedge's quadrature has constants of seven digits
    struct Row {
        const char* type;
        const char* nodes;
        MeasureKind kind;
        double value;
    };
    const Row rows[] = {
        {"C3D8", "1,2,3,4,5,6,7,8", kVolume, 24},
        {"C3D8R", "5,6,7,8,1,2,3,4", kVolume, 24}, // inside out
        {"C3D20", "1,2,3,4,5,6,7,8,9,9,9,9,9,9,9,9,9,9,9,9", kVolume, 24},
        {"C3D6", "1,2,3,5,6,7", kVolume, 12},
        {"C3D15", "1,2,3,5,6,7,9,9,9,9,9,9,9,9,9", kVolume, 12},
        {"C3D4", "1,2,4,5", kVolume, 4},
        {"C3D10", "1,4,2,5,9,9,9,9,9,9", kVolume, 4},
        {"S3", "1,2,3", kArea, 3},
        {"S6", "1,2,3,9,9,9", kArea, 3},
        {"S4R", "1,2,3,4", kArea, 6},
        {"CPS8", "1,2,3,4,9,9,9,9", kArea, 6},
        {"S4", "1,2,3,8", kArea, 3 + std::sqrt(61.)}, // warped: 1-2-3 and 1-3-8
        {"M3D4", "1,2,6,5", kArea, 8},
        {"B31", "1,7", kLength, std::sqrt(29.)},
        {"B32", "1,9,2", kLength, 2},
        {"T3D3", "1,9,5", kLength, 4},
        {"MASS", "1", kNoMeasure, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        const auto model = ReadDeck(Deck(row.type, row.nodes));
        const CModelView view(*model);
        ASSERT_EQ(view.ElementCount(), 1);
        EXPECT_NEAR(view.Measure(0), row.value, row.value * kLoose);
        for (const MeasureKind kind : {kVolume, kArea, kLength})
            EXPECT_EQ(view.Totals().sums[kind], kind == row.kind ? view.Measure(0) : 0);
    }
}

TEST(ModelView, BoundsAreThoseOfAllNodes)
{
    const auto model = ReadDeck("*NODE\n1,-1,5,2\n2,3,-7,2\n");
    const CModelView view(*model);
    const double expected[] = {-1, -7, 2, 3, 5, 2};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(view.Bounds()[i], expected[i]) << i;
    const auto empty = ReadDeck("*STEP\n");
    const CModelView none(*empty);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(none.Bounds()[i], 0) << i;
}

TEST(ModelView, GroupsByTypeAndSection)
{
    const auto model =
        ReadDeck(std::string(kBox) + "*ELEMENT,TYPE=T3D2\n1,1,2\n2,2,3\n3,3,4\n*ELEMENT,TYPE=S4\n4,1,2,3,4\n"
                                     "*ELSET,ELSET=A\n2,4\n*SOLID SECTION,ELSET=A,MATERIAL=M\n");
    CModelView view(*model);
    struct Group {
        const char* type;
        int section;
        int count;
        double sum;
    };
    const auto expect = [&view](std::initializer_list<Group> groups) {
        ASSERT_EQ(view.Groups().GetSize(), static_cast<int>(groups.size()));
        int at = 0;
        for (const Group& group : groups) {
            const ElementGroup& found = view.Groups()[at++];
            SCOPED_TRACE(at);
            EXPECT_STREQ(view.Model().types[found.type].name, group.type);
            EXPECT_EQ(found.section, group.section);
            EXPECT_EQ(found.count, group.count);
            EXPECT_NEAR(found.sum, group.sum, 1e-12);
        }
    };
    expect({{"S4", 0, 1, 6}, {"T3D2", kNone, 2, 4}, {"T3D2", 0, 1, 3}});
    ASSERT_TRUE(view.Select("3, 2 to 2, 99"));
    expect({{"T3D2", kNone, 1, 2}, {"T3D2", 0, 1, 3}});
    EXPECT_EQ(view.Types().GetSize(), 1);
    EXPECT_DOUBLE_EQ(view.Totals().sums[kLength], 5);
    EXPECT_EQ(view.Totals().sums[kArea], 0);
}

TEST(ModelView, Selection)
{
    const auto model = ReadDeck("*NODE\n1\n2,1\n*ELEMENT,TYPE=T3D2\n2,1,2\n4,1,2\n5,1,2\n9,1,2\n");
    struct Row {
        const char* text;
        bool accepted;
        const char* chosen;
    };
    const Row rows[] = {
        {"1to10", true, "2 4 5 9"}, {"9 2,2", true, "2 9"},    {"1to10by3", true, "4"},   {"77", true, ""},
        {"1-5", false, "2 4 5 9"},  {"1to", false, "2 4 5 9"}, {"all", false, "2 4 5 9"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        CModelView view(*model);
        EXPECT_EQ(view.Select(row.text), row.accepted);
        EXPECT_STREQ(view.Selection(), row.accepted ? row.text : "");
        CArray<UINT, UINT> numbers;
        view.ElementNumbers(numbers);
        EXPECT_STREQ(Ranges(numbers), row.chosen);
    }
}
