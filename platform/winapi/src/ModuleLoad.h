// A load that is under way, and whether a library refused to come in during it.
#pragma once

// While it lives, the calling thread loads a module.
class ModuleLoad
{
public:
    ModuleLoad();
    ~ModuleLoad();
    ModuleLoad(const ModuleLoad&) = delete;
    ModuleLoad& operator=(const ModuleLoad&) = delete;

    bool Refused() const { return m_refused; }

    // Tells the innermost load of this thread that an entry refused; false when there is none.
    static bool Refuse();

private:
    ModuleLoad* m_outer;
    bool m_refused = false;
};
