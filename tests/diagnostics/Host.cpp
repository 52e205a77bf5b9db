// usage: diagnostics_host leaks | forms | set NAME VALUE | REPORT
#include "Host.h"

#include <Registry.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <stdexcept>
#include <vector>

#define MEMORY_LEAK_TESTER_INSTANCE
#include <MemoryLeakTester.h>

#include <map> // a header of the library may follow

#ifdef __SANITIZE_ADDRESS__
// Leaks are what this program is for, and freed addresses come again at once.
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options()
{
    return "quarantine_size_mb=0:thread_local_quarantine_size_kb=0:detect_leaks=0";
}
#endif

namespace {

constexpr const char* kKey = "HKEY_CURRENT_USER\\Software\\TOVEN\\TEST";

void StartPeriod(const char* period)
{
    CRegistry::WriteProfileString(kKey, "CheckMemoryNOP", period);
}

// Each plant stands in the test under the line it has here.
int Leaks()
{
#line 100 "Z:\\host\\Leaks.cpp"
    int* early = new int(1);
    StartPeriod("2");
    int* single = new int(2);
    char* array = new char[100];
    auto* text = new std::string(50, 's'); // its characters are not the statement's
    delete early;                          // not recorded: a failure
    char* unseen = new char[600];
    int* seen = new int(5); // keeps the block before it from growing into what is free behind
    plain::Release(unseen); // stays recorded
    int* nothing = nullptr;
    delete nothing; // a failure
    char* displaced = new char[5000];
    plain::Release(displaced);
    char* again = new char[5000];
    delete seen;
    return single && array && text && again == displaced ? 0 : 1;
}

struct alignas(256) Wide {
    char bytes[300];
};

struct Refusing {
    explicit Refusing(const std::string& text) : copy(text)
    {
        if (text.size() > 100)
            throw std::runtime_error("refused");
    }
    std::string copy;
};

class Pooled
{
#undef new
#undef delete
public:
    Pooled() = default;
    Pooled(const Pooled&) = delete;
    static void* operator new(std::size_t)
    {
        return s_pool;
    }
    static void operator delete(void*)
    {
    }

private:
    alignas(8) static inline char s_pool[64];
#include <MemoryLeakTester.h>
};

template <class T>
bool IsAligned(const T* object)
{
    return reinterpret_cast<std::uintptr_t>(object) % alignof(T) == 0;
}

struct Node {
    std::unique_ptr<Node> next;
    plain::Base base;
};

int* Chosen(int* number, const std::string& text)
{
    return text.empty() ? nullptr : number;
}

constexpr int Constant()
{
    int* number = new int(4);
    const int value = *number;
    delete number;
    return value;
}
static_assert(Constant() == 4);

// Every form of new, all deleted again. Nothing is left of any.
int Forms()
{
    StartPeriod("2");
    bool good = true;
#line 200 "Z:\\host\\Forms.cpp"
    delete (new int(1));
    delete[](new int[3]{1, 2, 3});
    delete[](new plain::Base[4]); // a number of elements stands in front
    delete (new (std::nothrow) double(2));
    delete[](new (std::nothrow) char[7]);
    Wide* wide = new Wide;
    good = good && IsAligned(wide);
    delete wide;
    Wide* wides = new (std::nothrow) Wide[3];
    good = good && IsAligned(wides);
    delete[] wides;
    plain::FreeAligned(::new (std::align_val_t(64)) char);
    alignas(Refusing) char storage[sizeof(Refusing)];
    (new (storage) Refusing(plain::Text().substr(0, 99)))->~Refusing();
    ::new (static_cast<void*>(storage)) Refusing("global");
    std::launder(reinterpret_cast<Refusing*>(storage))->~Refusing();
    try {
        delete (new Refusing(plain::Text()));
        good = false;
    } catch (const std::runtime_error&) {
    }
    delete[](new char[plain::Text().size()]);
    int& object = *new int(6);
    delete &object;
    void* cast = static_cast<void*>(new int(7));
    delete static_cast<int*>(cast), good = good && true;
    int* one = new int(8);
    int* two = new int(9);
    one ? delete one : delete two;
    ::delete two;
    plain::Base* base = new plain::Base;
    delete base;
    auto chain = std::unique_ptr<Node>(new Node{std::unique_ptr<Node>(new Node), {}});
    Node* last = chain.release();
    delete last;                                       // the other is deleted in a header
    delete (new Pooled);                               // nothing is freed: a failure
    delete Chosen(new int(13), std::string(100, 't')); // the text goes after the number
    {
        plain::Owner* owner = plain::MakeOwner();
        owner->number.reset(new int(14));
        delete owner; // a failure, though what it owned was recorded
    }
    for (int i = 0; i < 2; ++i)
        if (i == 1)
            delete (new std::vector<int>(100));
        else
            delete (new auto(i));
    auto* matrix = new int[2][3]{};
    delete[] matrix;
    auto* pointers = new int* [5] {};
    delete[] pointers;
    plain::Free(new int(10));
    plain::Free(new char[11]);
    char* left = new char[12]; // the only one
    good = good && left;
    const std::map<int, int> map{{1, 2}}; // blocks of no statement
    good = good && map.size() == 1;
    return good ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "leaks")
        return Leaks();
    if (mode == "forms")
        return Forms();
    if (mode == "set" && argc == 4)
        return CRegistry::WriteProfileString(kKey, argv[2], argv[3]) == 1 ? 0 : 1;
    return RunReport(mode);
}
