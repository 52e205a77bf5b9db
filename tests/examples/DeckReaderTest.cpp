#include "ModelReader.h"

#include <gmock/gmock.h>

namespace {

const char kSquare[] = "*NODE\n1,0,0,0\n2,1,0,0\n3,1,1,0\n4,0,1,0\n";

std::string WithSquare(const std::string& rest)
{
    return kSquare + rest;
}

std::string NodesAndElements(const CModel& model)
{
    CArray<UINT, UINT> numbers;
    NumbersOf(model.nodes, numbers);
    const CString nodes = Ranges(numbers);
    NumbersOf(model.elements, numbers);
    return std::string(nodes) + " | " + std::string(Ranges(numbers));
}

} // namespace

TEST(DeckReader, FormsOfADeck)
{
    struct Row {
        const char* label;
        std::string deck;
        const char* numbers;
    };
    const Row rows[] = {
        {"plain", WithSquare("*ELEMENT,TYPE=S4\n7,1,2,3,4\n"), "1to4 | 7"},
        {"CR LF", "*NODE\r\n1,0\r\n2,1\r\n*ELEMENT,TYPE=T3D2\r\n1,1,2\r\n", "1 2 | 1"},
        {"no line end at the end", "*NODE\n1,0\n2,1\n*ELEMENT,TYPE=T3D2\n1,1,2", "1 2 | 1"},
        {"mixed case and blanks",
         " * node \n 1 , 0.0 \n2\n*El ement , type = t3d2 , elset = a\n 1 , 1 , 2 \n", "1 2 | 1"},
        {"comments and empty lines",
         "** head\n*NODE\n1\n** in between\n\n \t\n2\n**\n*ELEMENT,TYPE=T3D2\n**\n1,1,2\n", "1 2 | 1"},
        {"before the first keyword", ">** leftover\n1,2,3\n*NODE\n5\n", "5 | "},
        {"byte order mark", "\xEF\xBB\xBF*NODE\n5\n", "5 | "},
        {"other keywords",
         WithSquare("*BOUNDARY\n1,1,3\n*STEP\n*NODE PRINT,NSET=N\nU\n*NODEFILE\nU\n*END STEP\n"), "1to4 | "},
        {"redefined node and element",
         "*NODE\n1,9\n2,9\n1,0\n*ELEMENT,TYPE=D\n1,1,2,1\n*ELEMENT,TYPE=T3D2\n1,1,2\n", "1 2 | 1"},
        {"keyword line goes on", "*NODE,\nNSET=A\n1\n2\n*ELEMENT,TYPE=T3D2,\n** why\n ELSET=B\n1,1,2\n",
         "1 2 | 1"},
        {"keyword line ends in a comma", "*NODE,NSET=A,\n1\n2\n", "1 2 | "},
        {"after a step", "*STEP\n*NODE\n1\n", "1 | "},
        {"unsorted", "*NODE\n9\n3\n5\n7\n", "3to9by2 | "},
        {"no node at all", "*RESTART,READ\n", " | "},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(NodesAndElements(*ReadDeck(row.deck)), row.numbers);
    }
}

TEST(DeckReader, CoordinatesAndRedefinition)
{
    const auto model = ReadDeck("*NODE\n1,1.D0,2,3\n2,1,,-.5\n3,4\n4\n1,7,8,9,10\n");
    const double expected[][3] = {{7, 8, 9}, {1, 0, -.5}, {4, 0, 0}, {0, 0, 0}};
    ASSERT_EQ(model->nodes.GetSize(), 4);
    for (int i = 0; i < 4; ++i)
        for (int axis = 0; axis < 3; ++axis)
            EXPECT_EQ(model->nodes[i].at[axis], expected[i][axis]) << "node " << i + 1;
}

TEST(DeckReader, ElementLinesGoOn)
{
    struct Row {
        const char* label;
        const char* lines;
        int nodes;
    };
    const Row rows[] = {
        {"known type, comma at the end", "*ELEMENT,TYPE=C3D8\n1,1,2,3,4,\n1,2,3,4\n", 8},
        {"known type, no comma at the end", "*ELEMENT,TYPE=C3D8\n1,1,2,3,4\n1,2,3,4\n", 8},
        {"known type, three lines", "*ELEMENT,TYPE=C3D8\n1,\n1,2,3,\n4,1,2,3,4\n", 8},
        {"known type, comma behind the last node", "*ELEMENT,TYPE=T3D2\n1,1,2,\n", 2},
        {"known type, more nodes than it has", "*ELEMENT,TYPE=S3\n1,1,2,3,4,\n", 3},
        {"unknown type, one line", "*ELEMENT,TYPE=DCOUP3D\n1,1\n", 1},
        {"unknown type, two lines", "*ELEMENT,TYPE=USER\n1,1,2,\n3,4\n", 4},
        {"network element with a free end", "*ELEMENT,TYPE=D\n1,0,2,3\n", 3},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        const auto model = ReadDeck(WithSquare(row.lines));
        ASSERT_EQ(model->elements.GetSize(), 1);
        EXPECT_EQ(model->elements[0].nodeCount, row.nodes);
    }
}

TEST(DeckReader, LongLines)
{
    std::string line = "*ELSET,ELSET=E\n";
    for (int i = 1; i <= 400; ++i)
        line += std::to_string(i) + (i < 400 ? ",   " : "\n");
    std::string deck = "*NODE\n1\n*ELEMENT,TYPE=MASS\n";
    for (int i = 1; i <= 400; ++i)
        deck += std::to_string(i) + ",1\n";
    EXPECT_EQ(Members(*ReadDeck(deck + line), kElementSet, "E"), "1to400");
}

TEST(DeckReader, Sets)
{
    const std::string deck =
        WithSquare("*ELEMENT,TYPE=T3D2,ELSET=Line\n1,1,2\n2,2,3\n*ELEMENT,TYPE=T3D2\n3,3,4\n");
    struct Row {
        const char* label;
        const char* lines;
        SetKind kind;
        const char* members;
    };
    const Row rows[] = {
        {"of a card", "*ELSET,ELSET=S\nline\n", kElementSet, "1 2"},
        {"numbers", "*NSET,NSET=S\n4,1,\n 2 ,\n", kNodeSet, "1 2 4"},
        {"in any case", "*NSET,NSET=s\n1\n*NSET,nset=S\n2\n", kNodeSet, "1 2"},
        {"generate", "*NSET,NSET=S,GENERATE\n1,4,2\n", kNodeSet, "1 3"},
        {"generate without step", "*NSET, generate, NSET=S\n2,4\n4,4,\n", kNodeSet, "2to4"},
        {"set of sets and numbers", "*NSET,NSET=A\n1\n*NSET,NSET=B\n2\n*NSET,NSET=S\na,4,B\n", kNodeSet,
         "1 2 4"},
        {"itself", "*NSET,NSET=S\n1\nS\n2\n", kNodeSet, "1 2"},
        {"copied where it is named", "*NSET,NSET=A\n1\n*NSET,NSET=S\nA\n*NSET,NSET=A\n2\n", kNodeSet, "1"},
        {"more than the model has", "*NSET,NSET=S,GENERATE\n3,2000000000\n", kNodeSet, "3 4"},
        {"empty", "*NSET,NSET=S\n", kNodeSet, ""},
        {"the other kind", "*NSET,NSET=S\n1\n", kElementSet, "no such set"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(Members(*ReadDeck(deck + row.lines), row.kind, "S"), row.members);
    }
    EXPECT_TRUE(ReadDeck(deck + "*NSET,NSET=S\n9\n")->FindSet(kNodeSet, "S")->namesOthers);
    EXPECT_FALSE(ReadDeck(deck + "*NSET,NSET=S\n2\n")->FindSet(kNodeSet, "S")->namesOthers);
}

TEST(DeckReader, Sections)
{
    const auto model = ReadDeck(WithSquare("*ELEMENT,TYPE=T3D2,ELSET=A\n1,1,2\n2,2,3\n3,3,4\n"
                                           "*ELSET,ELSET=B\n2\n*ELSET,ELSET=Late\n"
                                           "*MATERIAL,NAME=Steel\n"
                                           "*SOLIDSECTION,ELSET=a,MATERIAL=Steel\n1.\n"
                                           "*Shell Section, material = Foam , elset = B\n.1\n"
                                           "*BEAM SECTION,ELSET=LATE,MATERIAL=Steel,SECTION=RECT\n"));
    ASSERT_EQ(model->sections.GetSize(), 3);
    const int expected[] = {0, 1, 0};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(model->elements[i].section, expected[i]) << "element " << i + 1;
    EXPECT_STREQ(model->sections[1].kind, "Shell");
    EXPECT_STREQ(model->sections[1].material, "Foam");
    ASSERT_EQ(model->materials.GetSize(), 1);
    EXPECT_STREQ(model->materials[0], "Steel");
}

TEST(DeckReader, IncludedFiles)
{
    DeckFolder folder;
    folder.Add("deck.inp",
               "*NODE,NSET=A\n*INCLUDE,INPUT=nodes.txt\n3\n*include , input = \"mesh of it.inp\"\n");
    folder.Add("nodes.txt", "1\n2\n");
    folder.Add("mesh of it.inp", "*ELEMENT,TYPE=T3D2\n1,1,2\n2,2,3\n");
    const auto model = folder.Read("deck.inp");
    EXPECT_EQ(NodesAndElements(*model), "1to3 | 1 2");
    EXPECT_EQ(Members(*model, kNodeSet, "A"), "1to3");
    EXPECT_EQ(std::string(model->elements[1].place.file.GetString()), folder.Path("mesh of it.inp"));
    EXPECT_EQ(model->elements[1].place.line, 3);
}

TEST(DeckReader, Complaints)
{
    struct Row {
        const char* label;
        const char* lines; // behind the square's five
        const char* complaint;
    };
    const Row rows[] = {
        {"coordinate", "5,1.0x,0\n", "deck.inp:6: '1.0x' is not a coordinate"},
        {"node number", "five,1,0\n", "deck.inp:6: 'five' is not a node number"},
        {"node number 0", "0,1,0\n", "deck.inp:6: '0' is not a node number"},
        {"number beyond 31 bits", "2147483648\n", "deck.inp:6: '2147483648' is not a node number"},
        {"no type", "*ELEMENT,ELSET=E\n1,1,2\n", "deck.inp:6: *ELEMENT needs the option TYPE="},
        {"element number", "*ELEMENT,TYPE=T3D2\n-1,1,2\n", "deck.inp:7: '-1' is not an element number"},
        {"node of an element", "*ELEMENT,TYPE=T3D2\n1,1,a\n", "deck.inp:7: 'a' is not a node number"},
        {"node 0 of a known type", "*ELEMENT,TYPE=T3D2\n1,1,0\n", "deck.inp:7: '0' is not a node number"},
        {"missing node", "*ELEMENT,TYPE=T3D2\n1,1,2\n2,2,77\n", "deck.inp:8: element 2: there is no node 77"},
        {"missing node of an unknown type", "*ELEMENT,TYPE=MASS\n1,77\n",
         "deck.inp:7: element 1: there is no node 77"},
        {"too few nodes", "*ELEMENT,TYPE=S4\n\n1,1,2,3\n*STEP\n",
         "deck.inp:8: element 1 of type S4 ends after 3 of 4 nodes"},
        {"too few nodes at the end", "*ELEMENT,TYPE=S4\n1,1,2,3\n",
         "deck.inp:7: element 1 of type S4 ends after 3 of 4 nodes"},
        {"nothing behind the comma", "*ELEMENT,TYPE=USER\n1,1,\n",
         "deck.inp:7: element 1 goes on behind a comma, but nothing follows"},
        {"set without a name", "*NSET\n1\n", "deck.inp:6: *NSET needs the option NSET="},
        {"unknown set", "*NSET,NSET=A\n1\nB\n",
         "deck.inp:8: 'B' is neither a number nor a set defined before"},
        {"set of the other kind", "*NSET,NSET=A\n1\n*ELSET,ELSET=E\nA\n",
         "deck.inp:9: 'A' is neither a number nor a set defined before"},
        {"negative member", "*NSET,NSET=A\n-1\n", "deck.inp:7: '-1' is not a number of the model"},
        {"bound of a range", "*NSET,NSET=A,GENERATE\n1,x\n",
         "deck.inp:7: 'x' is not a bound or step of a range"},
        {"four bounds", "*NSET,NSET=A,GENERATE\n1,2,1,1\n",
         "deck.inp:7: '1' is not a bound or step of a range"},
        {"range backwards", "*NSET,NSET=A,GENERATE\n4,1\n",
         "deck.inp:7: a range needs a first number, a last number not below it and a step above 0"},
        {"step 0", "*NSET,NSET=A,GENERATE\n1,4,0\n",
         "deck.inp:7: a range needs a first number, a last number not below it and a step above 0"},
        {"section without set", "*SOLID SECTION,MATERIAL=M\n",
         "deck.inp:6: *SOLIDSECTION needs the option ELSET="},
        {"section of an unknown set", "*SOLID SECTION,MATERIAL=M,ELSET=E\n",
         "deck.inp:6: there is no element set 'E'"},
        {"material without a name", "*MATERIAL\n", "deck.inp:6: *MATERIAL needs the option NAME="},
        {"include without a name", "*INCLUDE\n", "deck.inp:6: *INCLUDE needs the option INPUT="},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        DeckFolder folder;
        folder.Add("deck.inp", WithSquare(row.lines));
        EXPECT_EQ(folder.Complaint("deck.inp"), row.complaint);
    }
}

TEST(DeckReader, ComplaintsAboutFiles)
{
    using testing::StartsWith;
    DeckFolder folder;
    folder.Add("empty.inp", "");
    folder.Add("prose.inp", "Dear all,\nthis is no deck.\n");
    folder.Add("self.inp", "*NODE\n1\n*INCLUDE,INPUT=self.inp\n");
    folder.Add("round.inp", "*INCLUDE,INPUT=about.inp\n");
    folder.Add("about.inp", "*NODE\n*INCLUDE,INPUT=./round.inp\n");
    folder.Add("gap.inp", "*NODE\n\n*INCLUDE,INPUT=none.inp\n");
    folder.Add("wrong.inp", "*INCLUDE,INPUT=inner.inp\n");
    folder.Add("inner.inp", "*NODE\nx\n");
    const auto told = [&folder](const char* file) {
        CString text = folder.Complaint(file).c_str();
        text.Replace(folder.Path("").c_str(), "");
        return std::string(text);
    };
    EXPECT_EQ(told("empty.inp"), "empty.inp:1: this is no deck: it has no line that starts with a keyword");
    EXPECT_EQ(told("prose.inp"), "prose.inp:1: this is no deck: it has no line that starts with a keyword");
    EXPECT_EQ(told("self.inp"), "self.inp:3: self.inp includes itself");
    EXPECT_EQ(told("round.inp"), "about.inp:2: ./round.inp includes itself");
    EXPECT_EQ(told("inner.inp"), "inner.inp:2: 'x' is not a node number");
    EXPECT_EQ(told("wrong.inp"), "inner.inp:2: 'x' is not a node number");
    EXPECT_THAT(told("gap.inp"), StartsWith("gap.inp:3: cannot read none.inp: "));
    EXPECT_THAT(told("none.inp"), StartsWith("none.inp:0: cannot read none.inp: "));
    EXPECT_THAT(told(""), testing::HasSubstr(":0: cannot read "));
}
