#include <DynModuleMgr.h>

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

using Log = std::vector<std::string>;

class Module : public CDynModule
{
public:
    Module(const char* name, Log& ended) : m_name(name), m_ended(ended) {}
    Module(const Module&) = default;
    ~Module() override { m_ended.push_back(m_name); }

private:
    std::string m_name;
    Log& m_ended;
};

TEST(DynModuleMgr, KeepsModulesByName)
{
    CDynModuleMgr manager;
    auto* mesh = new CDynModule;
    auto* lower = new CDynModule;
    CDynModule refused;
    EXPECT_EQ(1, manager.AddDynModule("Mesh", mesh));
    EXPECT_EQ(1, manager.AddDynModule("mesh", lower));
    EXPECT_EQ(0, manager.AddDynModule("Mesh", &refused));
    EXPECT_EQ(mesh, manager.GetDynModule("Mesh"));
    EXPECT_EQ(lower, manager.GetDynModule("mesh"));
    EXPECT_EQ(nullptr, manager.GetDynModule("MESH"));
    EXPECT_EQ(0, manager.DelDynModule("MESH"));
    EXPECT_EQ(1, manager.GetDynModule("Mesh")->Initialize());
}

TEST(DynModuleMgr, RefusesNulls)
{
    CDynModuleMgr manager;
    CDynModule module;
    EXPECT_EQ(0, manager.AddDynModule(nullptr, &module));
    EXPECT_EQ(0, manager.AddDynModule("Null", nullptr));
    EXPECT_EQ(0, manager.DelDynModule(nullptr));
    EXPECT_EQ(nullptr, manager.GetDynModule(nullptr));
    EXPECT_EQ(1, manager.AddDynModule("Null", &module)) << "the name is still free";
    manager.DelDynModule("Null");
}

TEST(DynModuleMgr, DeletesItsModulesOnce)
{
    Log ended;
    Module refused("refused", ended);
    {
        CDynModuleMgr manager;
        manager.AddDynModule("A", new Module("a", ended));
        manager.AddDynModule("B", new Module("b", ended));
        manager.AddDynModule("A", &refused);
        EXPECT_THAT(ended, IsEmpty());
    }
    EXPECT_THAT(ended, UnorderedElementsAre("a", "b"));
}

TEST(DynModuleMgr, LosesAModuleThatEnds)
{
    Log ended;
    CDynModuleMgr manager;
    auto* module = new Module("a", ended);
    manager.AddDynModule("A", module);
    manager.AddDynModule("B", new Module("b", ended));
    delete module;
    EXPECT_EQ(nullptr, manager.GetDynModule("A"));
    EXPECT_NE(nullptr, manager.GetDynModule("B"));
    EXPECT_EQ(0, manager.DelDynModule("A"));
    EXPECT_THAT(ended, ElementsAre("a"));
}

TEST(DynModuleMgr, GivesAModuleBack)
{
    Log ended;
    {
        CDynModuleMgr first;
        CDynModuleMgr second;
        Module module("m", ended);
        EXPECT_EQ(1, first.AddDynModule("A", &module));
        EXPECT_EQ(1, first.DelDynModule("A"));
        EXPECT_EQ(0, first.DelDynModule("A"));
        EXPECT_EQ(nullptr, first.GetDynModule("A"));
        EXPECT_EQ(1, first.AddDynModule("Again", &module)) << "under another name, in the emptied table";
        EXPECT_EQ(&module, first.GetDynModule("Again"));
        EXPECT_EQ(1, first.DelDynModule("Again"));
        EXPECT_EQ(1, second.AddDynModule("Elsewhere", &module));
        EXPECT_EQ(1, second.DelDynModule("Elsewhere"));
        EXPECT_THAT(ended, IsEmpty());
    }
    EXPECT_THAT(ended, ElementsAre("m"));
}

TEST(DynModuleMgr, SetsBucketsWhileEmpty)
{
    CDynModuleMgr manager;
    for (const int size : {31, 1, 0, -5, 11}) {
        SCOPED_TRACE(size);
        EXPECT_EQ(1, manager.Initialize(size));
        auto* a = new CDynModule;
        auto* b = new CDynModule;
        EXPECT_EQ(1, manager.AddDynModule("A", a));
        EXPECT_EQ(1, manager.AddDynModule("B", b));
        EXPECT_EQ(0, manager.Initialize(7));
        EXPECT_EQ(a, manager.GetDynModule("A"));
        EXPECT_EQ(b, manager.GetDynModule("B"));
        delete a;
        delete b;
    }
}

// Bucket by bucket, the newest first, as one-letter names hash to their codes.
TEST(DynModuleMgr, EndsModulesInTheOrderOfItsTable)
{
    const struct {
        int buckets;
        Log order;
    } rows[] = {{11, {"V", "K", "A", "L"}}, {1, {"A", "L", "V", "K"}}, {31, {"A", "K", "L", "V"}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.buckets);
        Log ended;
        {
            CDynModuleMgr manager;
            manager.Initialize(row.buckets);
            for (const char* name : {"K", "V", "L", "A"}) // 75, 86, 76, 65
                manager.AddDynModule(name, new Module(name, ended));
        }
        EXPECT_EQ(row.order, ended);
    }
}

TEST(DynModuleMgr, ACopyTakesTheOriginalOut)
{
    Log ended;
    CDynModuleMgr manager;
    auto module = std::make_unique<Module>("m", ended);
    manager.AddDynModule("M", module.get());
    {
        const Module copy(*module);
    }
    EXPECT_EQ(nullptr, manager.GetDynModule("M"));
    EXPECT_EQ(1, manager.AddDynModule("M", module.get())) << "it is unregistered and may be registered";
    manager.DelDynModule("M");
}

// Objects that the back pointer alone could not take care of. Sanitizers see what is left dangling.
TEST(DynModuleMgr, LeavesNothingDangling)
{
    const struct {
        const char* label;
        std::function<void(Log&)> run;
    } rows[] = {
        {"a copy outlives the manager",
         [](Log& ended) {
             auto manager = std::make_unique<CDynModuleMgr>();
             auto* module = new Module("m", ended);
             manager->AddDynModule("M", module);
             CDynModule copy(*module);
             manager.reset();
         }},
        {"two names",
         [](Log& ended) {
             CDynModuleMgr manager;
             auto* module = new Module("m", ended);
             manager.AddDynModule("M", module);
             manager.AddDynModule("Alias", module);
         }},
        {"two names, the module first",
         [](Log& ended) {
             CDynModuleMgr manager;
             auto* module = new Module("m", ended);
             manager.AddDynModule("M", module);
             manager.AddDynModule("Alias", module);
             delete module;
             EXPECT_EQ(nullptr, manager.GetDynModule("M"));
             EXPECT_EQ(nullptr, manager.GetDynModule("Alias"));
         }},
        {"two managers",
         [](Log& ended) {
             CDynModuleMgr first;
             CDynModuleMgr second;
             auto* module = new Module("m", ended);
             first.AddDynModule("M", module);
             second.AddDynModule("M", module);
         }},
        {"one name of two given up",
         [](Log& ended) {
             CDynModuleMgr manager;
             auto* module = new Module("m", ended);
             manager.AddDynModule("M", module);
             manager.AddDynModule("Alias", module);
             EXPECT_EQ(1, manager.DelDynModule("Alias"));
             delete module;
             EXPECT_EQ(nullptr, manager.GetDynModule("M"));
         }},
        {"registered, then assigned another",
         [](Log& ended) {
             CDynModuleMgr manager;
             auto* module = new Module("m", ended);
             manager.AddDynModule("M", module);
             static_cast<CDynModule&>(*module) = CDynModule();
             delete module;
             EXPECT_EQ(nullptr, manager.GetDynModule("M"));
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        Log ended;
        row.run(ended);
        EXPECT_THAT(ended, ElementsAre("m"));
    }
}

// A module that looks at its manager, and deletes another module, as the manager ends it.
class Nosy : public CDynModule
{
public:
    Nosy(CDynModuleMgr& manager, CDynModule* victim, Log& log)
        : m_manager(manager), m_victim(victim), m_log(log)
    {
    }
    ~Nosy() override
    {
        delete m_victim;
        for (const char* name : {"K", "L"})
            m_log.push_back(m_manager.GetDynModule(name) ? "there" : "gone");
        m_log.push_back(std::to_string(m_manager.DelDynModule("K")));
    }

private:
    CDynModuleMgr& m_manager;
    CDynModule* m_victim;
    Log& m_log;
};

TEST(DynModuleMgr, EndsModulesThatLookAtIt)
{
    Log log;
    {
        CDynModuleMgr manager;
        auto* victim = new Module("victim", log);
        manager.AddDynModule("K", new Nosy(manager, victim, log)); // ended first
        manager.AddDynModule("L", victim);
        manager.AddDynModule("A", new Module("last", log));
    }
    EXPECT_THAT(log, ElementsAre("victim", "gone", "gone", "0", "last"));
}

} // namespace
