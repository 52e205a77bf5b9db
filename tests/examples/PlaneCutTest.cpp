#include "ModelReader.h"

#include <CommandLine.h>
#include <PlaneCut.h>
#include <gmock/gmock.h>

#include <cmath>
#include <vector>

using testing::DoubleNear;
using testing::ElementsAre;

namespace {

// A column of three cubes along Z, a beam on top, a plate under it.
const char kTower[] =
    "*NODE\n1,0,0,0\n2,1,0,0\n3,1,1,0\n4,0,1,0\n5,0,0,1\n6,1,0,1\n7,1,1,1\n8,0,1,1\n"
    "9,0,0,2\n10,1,0,2\n11,1,1,2\n12,0,1,2\n13,0,0,3\n14,1,0,3\n15,1,1,3\n16,0,1,3\n17,0,0,9\n"
    "*ELEMENT,TYPE=C3D8\n1,1,2,3,4,5,6,7,8\n2,5,6,7,8,9,10,11,12\n3,9,10,11,12,13,14,15,16\n"
    "*ELEMENT,TYPE=B31\n10,13,17\n*ELEMENT,TYPE=S4\n20,1,2,3,4\n*ELEMENT,TYPE=MASS\n30,17\n";

CString NumbersOf(const CPlaneCut& cut, const CModelView& view, bool isCut)
{
    CArray<UINT, UINT> numbers;
    cut.Numbers(view, isCut, numbers);
    return Ranges(numbers);
}

} // namespace

TEST(PlaneCut, TellsCutFromTouched)
{
    const auto model = ReadDeck(kTower);
    const CModelView view(*model);
    const struct {
        const char* label;
        Plane plane;
        const char *cut, *touched;
    } rows[] = {
        {"through the second cube", {0, 0, 1, -1.5}, "2", ""},
        {"between two cubes", {0, 0, 2, -4}, "", "2 3"},
        {"within rounding between two cubes", {0, 0, 1, -2 - 1e-11}, "", "2 3"},
        {"just above", {0, 0, 1, -2 - 1e-6}, "3", ""},
        {"upright through all", {1, 0, 0, -0.5}, "1to3 20", ""},
        {"along a face, and the beam in it", {-7, 0, 0, 0}, "", "1to3 10 20 30"},
        {"through the beam", {0, 0, 1, -5}, "10", ""},
        {"at the tip", {0, 0, 1, -9}, "", "10 30"},
        {"the plate lies in it", {0, 0, 1, 0}, "", "1 20"},
        {"past the model", {0, 0, 1, -10}, "", ""},
        {"slanted", {1, 1, -1, -0.5}, "1 2 20", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const CPlaneCut cut(view, row.plane);
        EXPECT_STREQ(NumbersOf(cut, view, true), row.cut);
        EXPECT_STREQ(NumbersOf(cut, view, false), row.touched);
    }
}

TEST(PlaneCut, TellsDistancesOfTheChosenElements)
{
    const auto model = ReadDeck(kTower);
    CModelView view(*model);
    ASSERT_TRUE(view.Select("2to30"));
    const CPlaneCut cut(view, {0, 0, -2, 3}); // z = 1.5, the normal down
    ASSERT_EQ(cut.Elements().GetSize(), 1);
    const MetElement& met = cut.Elements()[0];
    EXPECT_EQ(view.Element(met.index).number, 2U);
    EXPECT_EQ(met.lowest, -0.5);
    EXPECT_EQ(met.highest, 0.5);
}

TEST(PlaneCut, CommandLine)
{
    const struct {
        const char* label;
        std::vector<const char*> arguments;
        const char* problem;
    } rows[] = {
        {"four numbers", {"--cut", "1", "-2", ".5", "-1D2", "m.inp"}, ""},
        {"behind the model", {"m.inp", "--cut", "0", "0", "1e-3", "0"}, ""},
        {"three numbers", {"m.inp", "--cut", "0", "0", "1"}, "--cut needs four numbers A B C D"},
        {"no number", {"--cut", "0", "0", "1", "m.inp"}, "--cut: 'm.inp' is not a number"},
        {"empty", {"--cut", "0", "", "1", "2", "m.inp"}, "--cut: '' is not a number"},
        {"no direction",
         {"--cut", "0", "0", "0", "2", "m.inp"},
         "--cut: A, B and C are the normal of no plane"},
        {"too large",
         {"--cut", "1e300", "0", "0", "2", "m.inp"},
         "--cut: A, B and C are the normal of no plane"},
        {"model is missing", {"--cut", "1", "0", "0", "2"}, "no model is named"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        std::vector<char*> arguments = {nullptr};
        for (const char* argument : row.arguments)
            arguments.push_back(const_cast<char*>(argument));
        arguments.push_back(nullptr);
        Options options;
        CString problem;
        const bool taken =
            ParseCommandLine(static_cast<int>(arguments.size()) - 1, arguments.data(), options, problem);
        EXPECT_EQ(taken, *row.problem == '\0');
        EXPECT_STREQ(problem, row.problem);
        EXPECT_TRUE(!taken || (options.cut && options.model == "m.inp"));
        if (row.arguments[1][0] == '1' && taken) {
            EXPECT_THAT((std::vector{options.plane.a, options.plane.b, options.plane.c, options.plane.d}),
                        ElementsAre(1.0, -2.0, 0.5, -100.0));
        }
    }
}

// Solids whose centroids are known: sheared and scaled bodies, inside out as well.
TEST(ElementMeasure, Centroids)
{
    const char* const nodes =
        "*NODE\n1,0,0,0\n2,4,0,0\n3,4,2,0\n4,0,2,0\n5,1,0,6\n6,5,0,6\n7,5,2,6\n8,1,2,6\n";
    const struct {
        const char *type, *corners;
        double size, x, y, z;
    } rows[] = {
        {"C3D8", "1,2,3,4,5,6,7,8", 48, 2.5, 1, 3},
        {"C3D8", "5,6,7,8,1,2,3,4", 48, 2.5, 1, 3},
        {"C3D6", "1,2,3,5,6,7", 24, 19. / 6, 2. / 3, 3},
        {"C3D4", "1,2,4,5", 8, 1.25, 0.5, 1.5},
        {"C3D8", "1,2,3,4,5,5,5,5", 16, 1.75, 0.75, 1.5}, // a pyramid
        {"C3D8", "1,2,3,4,1,2,3,4", 0, 2, 1, 0},          // flat
        {"S4", "1,2,3,4", 8, 2, 1, 0},
        {"S4", "1,2,3,3", 4, 8. / 3, 2. / 3, 0},
        {"S3", "1,2,4", 4, 4. / 3, 2. / 3, 0},
        {"B31", "2,8", std::sqrt(49.), 2.5, 1, 3},
        {"MASS", "7", 0, 0, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.type) + " " + row.corners);
        const auto model =
            ReadDeck(std::string(nodes) + "*ELEMENT,TYPE=" + row.type + "\n1," + row.corners + "\n");
        const ElementMeasure measure = MeasureOf(*model, model->elements[0]);
        EXPECT_NEAR(measure.size, row.size, 1e-6 * row.size);
        EXPECT_THAT(measure.centre, ElementsAre(DoubleNear(row.x, 1e-14), DoubleNear(row.y, 1e-14),
                                                DoubleNear(row.z, 1e-14)));
    }
}

TEST(ModelView, CentroidsAndBoundingSolids)
{
    const auto model = ReadDeck(kTower);
    CModelView view(*model);
    ASSERT_TRUE(view.Centroid(kVolume) && view.Centroid(kArea) && view.Centroid(kLength));
    EXPECT_NEAR(view.Centroid(kVolume)[2], 1.5, 1e-14);
    EXPECT_NEAR(view.Centroid(kArea)[0], 0.5, 1e-14);
    EXPECT_NEAR(view.Centroid(kLength)[2], 6, 1e-14);
    const BoundingSolids& solids = view.Solids();
    EXPECT_THAT(solids.middle, ElementsAre(0.5, 0.5, 4.5));
    EXPECT_NEAR(solids.sphereRadius, std::sqrt(0.25 + 0.25 + 4.5 * 4.5), 1e-14);
    EXPECT_NEAR(solids.cylinderRadius, std::sqrt(0.5), 1e-14);
    EXPECT_NEAR(solids.BoxVolume(), 9, 1e-14);
    EXPECT_NEAR(solids.CylinderVolume(), 4.5 * CMathFunc::m_pi, 1e-13);
    ASSERT_TRUE(view.Select("1, 2"));
    EXPECT_NEAR(view.Centroid(kVolume)[2], 1, 1e-14);
    EXPECT_EQ(view.Centroid(kLength), nullptr);
    EXPECT_THAT(view.Solids().middle, ElementsAre(0.5, 0.5, 4.5));
}
