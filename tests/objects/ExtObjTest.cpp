#include <ExtObj.h>

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Log = std::vector<std::string>;

// A part of any of the three kinds that tells when it ends.
template <class Base>
class Part : public Base
{
public:
    Part(const char* name, Log& ended, std::function<void(CExtObj*)> atEnd = {})
        : m_name(name), m_ended(ended), m_atEnd(std::move(atEnd))
    {
    }
    ~Part() override
    {
        m_ended.push_back(m_name);
        if (m_atEnd)
            m_atEnd(this->GetExtObj());
    }

private:
    std::string m_name;
    Log& m_ended;
    std::function<void(CExtObj*)> m_atEnd;
};

struct Interfaces {
    using Base = CExtObjIntf;
    static int Add(CExtObj& object, const char* name, Base* part) { return object.AddIntf(name, part); }
    static Base* Get(CExtObj& object, const char* name) { return object.GetIntf(name); }
};
struct Implementations {
    using Base = CExtObjImpl;
    static int Add(CExtObj& object, const char* name, Base* part) { return object.AddImpl(name, part); }
    static Base* Get(CExtObj& object, const char* name) { return object.GetImpl(name); }
};
struct States {
    using Base = CExtObjState;
    static int Add(CExtObj& object, const char* name, Base* part) { return object.AddState(name, part); }
    static Base* Get(CExtObj& object, const char* name) { return object.GetState(name); }
};

template <class Kind>
class ExtObjParts : public testing::Test
{
};
using Kinds = testing::Types<Interfaces, Implementations, States>;
TYPED_TEST_SUITE(ExtObjParts, Kinds, );

TYPED_TEST(ExtObjParts, AreFoundByName)
{
    using Base = typename TypeParam::Base;
    CExtObj object;
    auto* part = new Base;
    auto* lower = new Base;
    Base refused;
    EXPECT_EQ(nullptr, TypeParam::Get(object, "Thermal"));
    EXPECT_EQ(nullptr, part->GetExtObj());
    EXPECT_EQ(1, TypeParam::Add(object, "Thermal", part));
    EXPECT_EQ(1, TypeParam::Add(object, "thermal", lower));
    EXPECT_EQ(0, TypeParam::Add(object, "Thermal", &refused));
    EXPECT_EQ(part, TypeParam::Get(object, "Thermal"));
    EXPECT_EQ(lower, TypeParam::Get(object, "thermal"));
    EXPECT_EQ(nullptr, TypeParam::Get(object, "THERMAL"));
    EXPECT_EQ(&object, part->GetExtObj());
    EXPECT_EQ(nullptr, refused.GetExtObj());
}

TYPED_TEST(ExtObjParts, NullsAreRefused)
{
    typename TypeParam::Base part;
    CExtObj object;
    EXPECT_EQ(0, TypeParam::Add(object, nullptr, &part));
    EXPECT_EQ(0, TypeParam::Add(object, "Null", nullptr));
    EXPECT_EQ(nullptr, TypeParam::Get(object, nullptr));
    EXPECT_EQ(nullptr, part.GetExtObj());
    EXPECT_EQ(1, TypeParam::Add(object, "Null", new typename TypeParam::Base)) << "the name is still free";
}

TYPED_TEST(ExtObjParts, CopiesCarryTheOwnerOnly)
{
    using Base = typename TypeParam::Base;
    CExtObj object;
    auto* part = new Base;
    TypeParam::Add(object, "A", part);
    Base copy(*part);
    Base assigned;
    assigned = *part;
    EXPECT_EQ(&object, copy.GetExtObj());
    EXPECT_EQ(&object, assigned.GetExtObj());
    EXPECT_EQ(part, TypeParam::Get(object, "A"));
}

TYPED_TEST(ExtObjParts, EndOnce)
{
    using P = Part<typename TypeParam::Base>;
    Log ended;
    P refused("refused", ended);
    {
        CExtObj object;
        auto* twice = new P("twice", ended);
        TypeParam::Add(object, "A", twice);
        TypeParam::Add(object, "B", twice);
        TypeParam::Add(object, "A", &refused);
        EXPECT_THAT(ended, IsEmpty());
    }
    EXPECT_THAT(ended, ElementsAre("twice"));
}

TEST(ExtObj, KeepsItsTablesApart)
{
    CExtObj object;
    auto* intf = new CExtObjIntf;
    auto* impl = new CExtObjImpl;
    auto* state = new CExtObjState;
    EXPECT_EQ(1, object.AddState("Same", state));
    EXPECT_EQ(1, object.AddIntf("Same", intf));
    EXPECT_EQ(1, object.AddImpl("Same", impl));
    EXPECT_EQ(intf, object.GetIntf("Same"));
    EXPECT_EQ(impl, object.GetImpl("Same"));
    EXPECT_EQ(state, object.GetState("Same"));
}

TEST(ExtObj, EndsInterfacesThenImplementationsThenStates)
{
    Log log;
    {
        CExtObj object;
        object.AddState("A", new Part<CExtObjState>("state", log));
        object.AddImpl("B", new Part<CExtObjImpl>("impl", log, [&log](CExtObj* owner) {
                           log.push_back(owner->GetIntf("C") ? "an interface" : "no interface");
                           log.push_back(owner->GetState("A") ? "a state" : "no state");
                       }));
        // One letter hashes to its code; 11 buckets: 'C' is in 1, 'A' in 10, 'N' in 1 before 'C'.
        object.AddIntf("C", new Part<CExtObjIntf>("C", log));
        object.AddIntf("A", new Part<CExtObjIntf>("A", log));
        object.AddIntf("N", new Part<CExtObjIntf>("N", log));
    }
    EXPECT_THAT(log, ElementsAre("N", "C", "A", "impl", "no interface", "a state", "state"));
}

} // namespace
