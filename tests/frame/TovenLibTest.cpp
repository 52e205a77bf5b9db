#include <TovenLib.h>

#include <gtest/gtest.h>

namespace {

class HostLib : public ITovenLib
{
public:
    void Slot0() override {}
};

TEST(TovenLib, TheLastObjectIsTheInstanceUntilAnyIsDestroyed)
{
    EXPECT_EQ(ITovenLib::Instance(), nullptr);
    HostLib first;
    {
        HostLib second;
        EXPECT_EQ(ITovenLib::Instance(), &second);
        const HostLib copy(first);
        EXPECT_EQ(ITovenLib::Instance(), &second) << "a copy is not registered";
        second = copy;
    }
    EXPECT_EQ(ITovenLib::Instance(), nullptr) << "the first is not looked for";
    HostLib third;
    EXPECT_EQ(ITovenLib::Instance(), &third);
    {
        HostLib copy(third);
    }
    EXPECT_EQ(ITovenLib::Instance(), nullptr) << "any destructor clears it";
}

} // namespace
