// The examples of docs/data-utilities.md, as they stand there.
#include <ZEK_lib.h>

#include <gmock/gmock.h>

TEST(Guide, NumbersToText)
{
    CArray<UINT, UINT> nodes;
    for (UINT node : {20, 1, 3, 5, 7, 9, 15, 17, 18, 19})
        nodes.Add(node);

    CNumericOptimizer optimizer;
    CString text = optimizer.OptimizeUnsortedArray(nodes); // sorts nodes
    EXPECT_STREQ(text, "1to9by2 15 17to20");

    CArray<STB_OPT_NODE, STB_OPT_NODE&> runs;
    optimizer.OptimizeSortedArray(nodes, runs); // 1 to 9 by 2, 17 to 20 by 1, 15 to 15 by 1
    ASSERT_EQ(runs.GetSize(), 3);
    EXPECT_EQ(runs[2].start, 15);
}

TEST(Guide, TextToNumbers)
{
    CArray<UINT, UINT> nodes;
    for (UINT node = 1; node <= 30; ++node)
        nodes.Add(node);
    CNumericOptimizer optimizer;

    CArray<UINT, UINT> picked;
    // 1; or 0 for a text that is not understood
    int understood = optimizer.SelectNumByStr(nodes, "1 to 10 by 3, 20 25to21by-2", picked);
    ASSERT_EQ(understood, 1);
    ASSERT_EQ(picked.GetSize(), 8);
    EXPECT_EQ(picked[5], 21U);
}

TEST(Guide, Sets)
{
    CArray<UINT, UINT> beams, selected, rest;
    for (UINT beam : {7, 3, 9, 5})
        beams.Add(beam);
    for (UINT beam : {5, 7, 100})
        selected.Add(beam);
    CArrayUtil::SubtractUINT(beams, selected, rest);    // 3 9
    CArrayUtil::UnionUINT(rest, selected, selected);    // 3 5 7 9 100
    int known = CArrayUtil::IsExist(selected, 9, TRUE); // 1; the list is sorted
    EXPECT_EQ(rest.GetSize(), 2);
    EXPECT_EQ(selected.GetSize(), 5);
    EXPECT_EQ(selected[4], 100U);
    EXPECT_EQ(known, 1);
}

TEST(Guide, NamesAndClasses)
{
    CAutoIDMaker columns;
    CString first("C9");
    columns.SetStartID(first);
    CString next = columns.GetNextID(); // "C10"

    CKeyClass sections(GF_GetHashSizeByCount(3));
    sections.Classify(1, "H400");
    sections.Classify(2, "H300");
    sections.Classify(3, "H400");
    CArray<UINT, UINT>* alike = sections.GetClassifiedClass(0); // 1 3
    EXPECT_STREQ(next, "C10");
    ASSERT_EQ(alike->GetSize(), 2);
    EXPECT_EQ((*alike)[1], 3U);
}

TEST(Guide, Sorts)
{
    unsigned int order[] = {0, 1, 2, 3, 4};
    CString names[] = {"B", "A10", "A2", "A", "A02"};
    CQSort::QSortStringNumWithIndex(order, names, 5); // A A2 A02 A10 B, order 3 2 4 1 0

    double levels[] = {0.0, 3.2, 6.4, 9.6}, height = 7.0;
    int storey = CCompFunc::FindNearest(&height, levels, 4, sizeof(double), CCompFunc::doubleDist); // 2
    EXPECT_STREQ(names[3], "A10");
    EXPECT_EQ(order[4], 0U);
    EXPECT_EQ(storey, 2);
}

TEST(Guide, Measures)
{
    double corners[4][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    double volume = CMathFunc::mathVolume(4, corners);                     // 1/6
    double area = CMathFunc::mathArea(corners[1], corners[2], corners[3]); // of the slanted face
    double angle = CMathFunc::mathCrossAngle(corners[1], corners[2]);      // 90 degrees
    double height = CMathFunc::mathDistanceToPlane(1, 1, 1, -1, 0, 0, 0);  // of the origin below that face
    EXPECT_EQ(volume, 1.0 / 6);
    EXPECT_NEAR(area * height / 3, volume, 1e-12);
    EXPECT_EQ(angle, 90.0);
}
