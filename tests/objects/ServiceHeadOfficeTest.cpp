#include <ServiceHeadOffice.h>

#include <gmock/gmock.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Log = std::vector<std::string>;

// Answers its number for code 0, otherwise the sum of code and data.
class Agency : public CServiceAgency
{
public:
    explicit Agency(int number, Log* ended = nullptr) : m_number(number), m_ended(ended) {}
    ~Agency() override
    {
        if (m_ended)
            m_ended->push_back(std::to_string(m_number));
    }
    int DoService(int nCode, void* pData) override
    {
        return nCode == 0 ? m_number : nCode + *static_cast<int*>(pData);
    }

private:
    int m_number;
    Log* m_ended;
};

// An office of a test's own: the library's lives to the process's end.
class Office : public CServiceHeadOffice
{
};

TEST(ServiceHeadOffice, AnswersByName)
{
    Office office;
    EXPECT_EQ(-1, office.ReqService("Units", 0, nullptr)) << "before the first registration";
    EXPECT_EQ(1, office.RegAgency("Units", new Agency(10)));
    EXPECT_EQ(1, office.RegAgency("units", new Agency(-1)));
    EXPECT_EQ(1, office.RegAgency("", new Agency(0)));
    Agency refused(99);
    EXPECT_EQ(0, office.RegAgency("Units", &refused));

    const struct {
        const char* name;
        int answer;
    } rows[] = {{"Units", 10}, {"units", -1}, {"", 0}, {"Unit", -1}, {"Units ", -1}, {"UNITS", -1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.answer, office.ReqService(row.name, 0, nullptr));
    }
    int data = 5;
    EXPECT_EQ(12, office.ReqService("Units", 7, &data));
}

TEST(ServiceHeadOffice, KeepsACopyOfTheName)
{
    Office office;
    char name[] = "Mesh";
    EXPECT_EQ(1, office.RegAgency(name, new Agency(3)));
    name[0] = 'm';
    EXPECT_EQ(3, office.ReqService("Mesh", 0, nullptr));
    EXPECT_EQ(-1, office.ReqService(name, 0, nullptr));
}

TEST(ServiceHeadOffice, NullsAnswerNothing)
{
    Office office;
    Agency agency(1);
    EXPECT_EQ(0, office.RegAgency(nullptr, &agency));
    EXPECT_EQ(-1, office.ReqService(nullptr, 0, nullptr));
    EXPECT_EQ(1, office.RegAgency("Taken", nullptr));
    EXPECT_EQ(-1, office.ReqService("Taken", 0, nullptr));
    EXPECT_EQ(0, office.RegAgency("Taken", &agency));
}

TEST(ServiceHeadOffice, DeletesEachAgencyOnce)
{
    Log ended;
    Agency refused(2, &ended);
    {
        Office office;
        auto* twice = new Agency(1, &ended);
        office.RegAgency("One", twice);
        office.RegAgency("Alias", twice);
        office.RegAgency("One", &refused);
        office.RegAgency("Nobody", nullptr);
        EXPECT_EQ(1, office.ReqService("Alias", 0, nullptr));
        EXPECT_THAT(ended, IsEmpty());
    }
    EXPECT_THAT(ended, ElementsAre("1"));
}

// Bucket by bucket, the newest first: the order in which services end.
TEST(ServiceHeadOffice, EndsThemInTheOrderOfItsTable)
{
    Log ended;
    {
        Office office;
        // One letter hashes to its code: 'A' is 65, bucket 3 of 31; '"' is 34, bucket 3 too; '!' is in 2.
        const char* const names[] = {"A", "!", "\""};
        int number = 0;
        for (const char* name : names)
            office.RegAgency(name, new Agency(++number, &ended));
    }
    EXPECT_THAT(ended, ElementsAre("2", "3", "1"));
}

// Asks for the other's service as it ends, and leaves a successor.
class Curious : public CServiceAgency
{
public:
    Curious(CServiceHeadOffice& office, const char* other, Log& log)
        : m_office(office), m_other(other), m_log(log)
    {
    }
    ~Curious() override
    {
        m_log.push_back(std::to_string(m_office.ReqService(m_other, 0, nullptr)));
        auto successor = std::make_unique<Agency>(8, &m_log);
        if (m_office.RegAgency("Successor", successor.get()))
            static_cast<void>(successor.release());
    }
    int DoService(int, void*) override { return 4; }

private:
    CServiceHeadOffice& m_office;
    const char* m_other;
    Log& m_log;
};

TEST(ServiceHeadOffice, MayBeAskedWhileItEnds)
{
    Log log;
    {
        Office office;
        office.RegAgency("!", new Curious(office, "A", log)); // ends first
        office.RegAgency("A", new Curious(office, "!", log));
    }
    // The other one is still there, then the first is gone. The first's successor ends with the office, the
    // second's was refused and stayed with who offered it.
    EXPECT_THAT(log, ElementsAre("4", "-1", "8", "8"));
}

TEST(ServiceHeadOffice, IsOne)
{
    CServiceHeadOffice* office = CServiceHeadOffice::Instance();
    ASSERT_NE(nullptr, office);
    EXPECT_EQ(office, CServiceHeadOffice::Instance());
    EXPECT_EQ(1, office->RegAgency("ServiceHeadOfficeTest", new Agency(6)));
    EXPECT_EQ(6, CServiceHeadOffice::Instance()->ReqService("ServiceHeadOfficeTest", 0, nullptr));
}

TEST(ServiceHeadOffice, SeveralThreadsMayAsk)
{
    Office office;
    for (int i = 0; i < 100; ++i)
        office.RegAgency(std::to_string(i).c_str(), new Agency(i));
    std::atomic<int> wrong{0};
    const auto ask = [&office, &wrong] {
        for (int i = 0; i < 1000; ++i)
            wrong += office.ReqService(std::to_string(i % 101).c_str(), 0, nullptr) !=
                     (i % 101 < 100 ? i % 101 : -1);
    };
    std::thread first(ask);
    std::thread second(ask);
    ask();
    first.join();
    second.join();
    EXPECT_EQ(0, wrong);
}

TEST(ServiceHeadOffice, FindsEachOfMany)
{
    Office office;
    constexpr int kCount = 1000;
    for (int i = 0; i < kCount; ++i)
        ASSERT_EQ(1, office.RegAgency(std::to_string(i).c_str(), new Agency(i)));
    for (int i = 0; i < kCount; ++i)
        ASSERT_EQ(i, office.ReqService(std::to_string(i).c_str(), 0, nullptr));
}

} // namespace
