#include <afxcoll.h>

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

// Counts its living objects.
struct Counted {
    static inline int s_living = 0;
    std::string text; // a type that must not be moved as raw bytes

    Counted() { ++s_living; }
    Counted(const Counted& other) : text(other.text) { ++s_living; }
    Counted(const char* value) : text(value) { ++s_living; }
    ~Counted() { --s_living; }
    Counted& operator=(const Counted&) = default;
    bool operator==(const Counted& other) const { return text == other.text; }
};

template <class EXCEPTION, class WORK>
bool Throws(WORK work)
{
    try {
        work();
    } catch (EXCEPTION* e) {
        e->Delete();
        return true;
    }
    return false;
}

template <class ARRAY>
std::vector<int> Content(const ARRAY& array)
{
    std::vector<int> content;
    for (int i = 0; i < array.GetSize(); ++i)
        content.push_back(static_cast<int>(array[i]));
    return content;
}

} // namespace

TEST(CArray, GrowsAndShrinks)
{
    CArray<int, int> array;
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(-1, array.GetUpperBound());
    EXPECT_EQ(nullptr, array.GetData());
    EXPECT_EQ(0, array.Add(5));
    EXPECT_EQ(1, array.Add(6));
    array.SetAtGrow(4, 9);
    EXPECT_EQ((std::vector<int>{5, 6, 0, 0, 9}), Content(array));
    array.SetSize(2);
    array.SetSize(3);
    EXPECT_EQ((std::vector<int>{5, 6, 0}), Content(array));
    array.FreeExtra();
    EXPECT_EQ((std::vector<int>{5, 6, 0}), Content(array));
    array.RemoveAll();
    EXPECT_EQ(0, array.GetCount());
}

TEST(CArray, InsertsAndRemoves)
{
    const struct {
        const char* label;
        void (*change)(CArray<int, int>& a);
        std::vector<int> expected;
    } kRows[] = {
        {"front", [](CArray<int, int>& a) { a.InsertAt(0, 9); }, {9, 1, 2, 3}},
        {"middle, several", [](CArray<int, int>& a) { a.InsertAt(1, 9, 2); }, {1, 9, 9, 2, 3}},
        {"end", [](CArray<int, int>& a) { a.InsertAt(3, 9); }, {1, 2, 3, 9}},
        {"beyond", [](CArray<int, int>& a) { a.InsertAt(5, 9); }, {1, 2, 3, 0, 0, 9}},
        {"no copies", [](CArray<int, int>& a) { a.InsertAt(1, 9, 0); }, {1, 2, 3}},
        {"itself", [](CArray<int, int>& a) { a.InsertAt(1, &a); }, {1, 1, 2, 3, 2, 3}},
        {"remove one", [](CArray<int, int>& a) { a.RemoveAt(1); }, {1, 3}},
        {"remove several", [](CArray<int, int>& a) { a.RemoveAt(0, 3); }, {}},
        {"remove none", [](CArray<int, int>& a) { a.RemoveAt(3, 0); }, {1, 2, 3}},
        {"append itself", [](CArray<int, int>& a) { a.Append(a); }, {1, 2, 3, 1, 2, 3}},
        {"copy itself", [](CArray<int, int>& a) { a.Copy(a); }, {1, 2, 3}},
        {"set", [](CArray<int, int>& a) { a.SetAt(2, a.GetAt(0)); }, {1, 2, 1}},
        {"grow by four", [](CArray<int, int>& a) { a.SetSize(4, 4); }, {1, 2, 3, 0}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        CArray<int, int> array;
        for (int i = 1; i <= 3; ++i)
            array.Add(i);
        row.change(array);
        EXPECT_EQ(row.expected, Content(array));
    }
}

TEST(CArray, RefusesBadIndices)
{
    CArray<int, int> a;
    a.Add(1);
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { a[1] = 0; }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { a.GetAt(-1); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { a.SetAt(1, 0); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { a.SetAtGrow(-1, 0); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { a.InsertAt(-1, 0); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { a.RemoveAt(0, 2); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { a.RemoveAt(1, 0x7FFFFFFF); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { a.SetSize(-1); }));
    EXPECT_TRUE(Throws<CMemoryException>([&] { a.SetAtGrow(std::numeric_limits<int>::max(), 1); }));
    EXPECT_EQ((std::vector<int>{1}), Content(a));
}

TEST(CArray, MakesAndDestroysEachElementOnce)
{
    {
        CArray<Counted, const Counted&> array;
        for (int i = 0; i < 100; ++i)
            array.Add(i == 0 ? Counted("a longer text than fits inside") : array[i - 1]);
        EXPECT_EQ(100, Counted::s_living);
        EXPECT_EQ("a longer text than fits inside", array[99].text);
        array.InsertAt(50, array[0], 10);
        array.RemoveAt(0, 60);
        EXPECT_EQ(50, Counted::s_living);
        array.SetSize(20);
        EXPECT_EQ(20, Counted::s_living);
        EXPECT_EQ("a longer text than fits inside", array[19].text);
    }
    EXPECT_EQ(0, Counted::s_living);
}

TEST(CArray, HoldsArrays)
{
    CArray<CUIntArray, CUIntArray&> rows;
    rows.SetSize(2);
    rows[1].Add(7);
    rows.SetSize(500);
    EXPECT_EQ(7U, rows[1][0]);
    EXPECT_EQ(0, rows[499].GetSize());
}

TEST(CStringArray, TakesTextsOfBothKinds)
{
    CStringArray array;
    array.Add("text");
    array.Add(CString("a\0b", 3));
    array.InsertAt(0, "first");
    EXPECT_STREQ("first", array[0]);
    EXPECT_EQ(3, array[2].GetLength());
    array.SetAtGrow(4, array[0]);
    EXPECT_STREQ("", array.GetAt(3));
    EXPECT_STREQ("first", array.GetAt(4));
}

TEST(CList, KeepsItsOrder)
{
    CList<int, int> list;
    const POSITION two = list.AddTail(2);
    list.AddHead(1);
    const POSITION four = list.InsertAfter(two, 4);
    list.InsertBefore(four, 3);
    std::vector<int> forwards, backwards;
    for (POSITION p = list.GetHeadPosition(); p;)
        forwards.push_back(list.GetNext(p));
    for (POSITION p = list.GetTailPosition(); p;)
        backwards.push_back(list.GetPrev(p));
    EXPECT_EQ((std::vector<int>{1, 2, 3, 4}), forwards);
    EXPECT_EQ((std::vector<int>{4, 3, 2, 1}), backwards);
    EXPECT_EQ(two, list.Find(2));
    EXPECT_EQ(nullptr, list.Find(2, two));
    EXPECT_EQ(four, list.FindIndex(3));
    EXPECT_EQ(nullptr, list.FindIndex(4));
    list.AddTail(&list);
    EXPECT_EQ(8, list.GetCount());
    EXPECT_EQ(1, list.RemoveHead());
    EXPECT_EQ(4, list.RemoveTail());
    list.RemoveAt(two);
    EXPECT_EQ(3, list.GetHead());
    list.RemoveAll();
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { list.RemoveHead(); }));
}

TEST(HashKey, IsThatOfTheHomePlatform)
{
    EXPECT_EQ(0U, HashKey<LPCSTR>(""));
    EXPECT_EQ(97U, HashKey<LPCSTR>("a"));
    EXPECT_EQ(97U * 33 + 98, HashKey<LPCSTR>("ab"));
    EXPECT_EQ(static_cast<UINT>(-1), HashKey<LPCSTR>("\xFF"));
    EXPECT_EQ(HashKey<LPCSTR>("ab"), HashKey<const CString&>(CString("ab")));
    EXPECT_EQ(1U, HashKey<int>(31));
    EXPECT_EQ(0x0FFFFFFFU, HashKey<int>(-1));
    EXPECT_EQ(2U, HashKey<void*>(reinterpret_cast<void*>(static_cast<ULONG_PTR>(0x2F))));
}

TEST(CMap, AnswersLikeATable)
{
    CMap<CString, LPCSTR, int, int> map;
    int value = 77;
    EXPECT_FALSE(map.Lookup("one", value));
    EXPECT_EQ(77, value);
    EXPECT_EQ(nullptr, map.GetStartPosition());
    map.SetAt("one", 1);
    map["two"] = 2;
    map["one"] += 10;
    EXPECT_EQ(2, map.GetCount());
    EXPECT_TRUE(map.Lookup("one", value));
    EXPECT_EQ(11, value);
    EXPECT_FALSE(map.Lookup("ONE", value));
    EXPECT_EQ(0, map["new"]);
    EXPECT_EQ(2, map.PLookup("two")->value);
    EXPECT_EQ(nullptr, map.PLookup("three"));
    EXPECT_TRUE(map.RemoveKey("two"));
    EXPECT_FALSE(map.RemoveKey("two"));
    map.RemoveAll();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(17U, map.GetHashTableSize());
    map.InitHashTable(0);
    EXPECT_EQ(1U, map.GetHashTableSize());
}

// The order of iteration against a table of buckets written down plainly.
TEST(CMap, IteratesBucketByBucketNewestFirst)
{
    constexpr unsigned kSeed = 4711;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    for (const UINT buckets : {1U, 7U, 17U, 31U}) {
        CMap<CString, LPCSTR, int, int> map(3);
        map.InitHashTable(buckets);
        std::vector<std::vector<std::string>> model(buckets);
        for (int step = 0; step < 600; ++step) {
            std::string key("k");
            key += std::to_string(random() % 60);
            auto& bucket = model[HashKey<LPCSTR>(key.c_str()) % buckets];
            const auto found = std::find(bucket.begin(), bucket.end(), key);
            if (random() % 3 == 0) {
                EXPECT_EQ(found != bucket.end(), map.RemoveKey(key.c_str()) != FALSE);
                if (found != bucket.end())
                    bucket.erase(found);
            } else {
                map.SetAt(key.c_str(), step);
                if (found == bucket.end())
                    bucket.insert(bucket.begin(), key);
            }
            std::vector<std::string> expected, walked, paired;
            for (const auto& chain : model)
                expected.insert(expected.end(), chain.begin(), chain.end());
            for (POSITION p = map.GetStartPosition(); p;) {
                CString name;
                int value;
                map.GetNextAssoc(p, name, value);
                walked.push_back(name.GetString());
            }
            for (const auto* pair = map.PGetFirstAssoc(); pair; pair = map.PGetNextAssoc(pair))
                paired.push_back(pair->key.GetString());
            ASSERT_EQ(expected, walked) << "step " << step;
            ASSERT_EQ(expected, paired) << "step " << step;
            ASSERT_EQ(static_cast<int>(expected.size()), map.GetCount());
        }
    }
}

TEST(CMap, MakesAndDestroysEachElementOnce)
{
    {
        CMap<int, int, Counted, const Counted&> map;
        for (int i = 0; i < 50; ++i)
            map.SetAt(i, "a longer text than fits inside");
        EXPECT_EQ(50, Counted::s_living);
        for (int i = 0; i < 50; i += 2)
            map.RemoveKey(i);
        EXPECT_EQ(25, Counted::s_living);
        for (int i = 1; i < 50; i += 2)
            map.RemoveKey(i);
        EXPECT_EQ(0, Counted::s_living);
        map[3].text = "again";
    }
    EXPECT_EQ(0, Counted::s_living);
}

TEST(CMap, ReadyMadeOnesWork)
{
    CMapStringToString texts;
    texts.SetAt("key", "value");
    CString value;
    EXPECT_TRUE(texts.Lookup("key", value));
    EXPECT_STREQ("value", value);
    CMapPtrToPtr pointers;
    pointers[&texts] = &value;
    void* found = nullptr;
    EXPECT_TRUE(pointers.Lookup(&texts, found));
    EXPECT_EQ(&value, found);
}
