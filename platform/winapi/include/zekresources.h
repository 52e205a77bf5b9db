// Resources that zek_add_resources compiled into a program, library or module: the source that it generates
// tells the adapter of them.
#pragma once

// Announces the bytes from `first` to `last`, a compiled resource file, while the object lives. They belong
// to the module that they lie in. Threads: any.
class __attribute__((visibility("default"))) ZekResources
{
public:
    ZekResources(const void* first, const void* last);
    ~ZekResources();
    ZekResources(const ZekResources&) = delete;
    ZekResources& operator=(const ZekResources&) = delete;

private:
    const void* m_first;
};
