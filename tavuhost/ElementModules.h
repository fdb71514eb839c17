// Modules of other authors that add element types to the toolkit. Each links
// against the toolkit and registers its factories while it loads, so it is
// loaded after the toolkit module and unloaded before it.
#pragma once

#include <string>
#include <vector>

class ElementModules {
public:
    ElementModules() = default;
    ~ElementModules() { UnloadAll(); }
    ElementModules(const ElementModules&) = delete;
    ElementModules& operator=(const ElementModules&) = delete;

    // False with a message on standard error when the module cannot be loaded.
    bool Load(const std::string& path);
    // In the reverse order of loading.
    void UnloadAll();

private:
    std::vector<void*> Handles;
};
