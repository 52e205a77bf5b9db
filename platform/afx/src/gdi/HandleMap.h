// Which objects of a thread stand for which handles.
#pragma once

#include "../PerThread.h"

#include <memory>
#include <unordered_map>

// `setHandle` gives an `Object` a handle, which its destructor would delete, or null. Those that are made
// here are of the class `Made`, which derives from it or is the same.
template <class Object, class Made, auto setHandle>
class HandleMap
{
public:
    HandleMap() = default;
    ~HandleMap() { DeleteTemporary(); }
    HandleMap(const HandleMap&) = delete;
    HandleMap& operator=(const HandleMap&) = delete;

    // The thread's map; null at the thread's end.
    static HandleMap* Current() { return PerThread<HandleMap>::Current(); }

    // The object that owns the handle if it is of the right class, else a temporary one.
    template <class Key>
    Made* FindOrMake(Key key)
    {
        if (Made* permanent = dynamic_cast<Made*>(FindPermanent(key)))
            return permanent;
        std::unique_ptr<Made>& object = m_temporary[key];
        if (!object) {
            object = std::make_unique<Made>();
            setHandle(*object, key);
        }
        return object.get();
    }

    void Add(void* key, Object* object) { m_permanent.insert_or_assign(key, object); }
    void Remove(void* key, const Object* object)
    {
        if (FindPermanent(key) == object)
            m_permanent.erase(key);
    }

    void DeleteTemporary()
    {
        while (!m_temporary.empty())
            DeleteTemporary(m_temporary.begin()->first);
    }
    void DeleteTemporary(void* key)
    {
        if (const auto entry = m_temporary.extract(key))
            setHandle(*entry.mapped(), nullptr);
    }

private:
    Object* FindPermanent(void* key) const
    {
        const auto found = m_permanent.find(key);
        return found == m_permanent.end() ? nullptr : found->second;
    }

    std::unordered_map<void*, Object*> m_permanent;
    std::unordered_map<void*, std::unique_ptr<Made>> m_temporary;
};
