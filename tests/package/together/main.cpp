// Loads the plugins that the arguments name, in that order and so that each sees the names of those before,
// then lets each do its work, twice.
#include <cstdio>
#include <dlfcn.h>
#include <vector>

int main(int argc, char *argv[])
{
    std::vector<int (*)()> plugins;
    for (int i = 1; i < argc; ++i) {
        void *plugin = dlopen(argv[i], RTLD_NOW | RTLD_GLOBAL);
        void *work = plugin ? dlsym(plugin, "workWithDocuments") : nullptr;
        if (!work) {
            std::fprintf(stderr, "%s\n", dlerror());
            return 2;
        }
        plugins.push_back(reinterpret_cast<int (*)()>(work));
    }
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = 0; i < plugins.size(); ++i) {
            const int major = plugins[i]();
            std::printf("Qt %d\n", major);
            if (major == 0) {
                std::fprintf(stderr, "%s: documents are not read back as they were written\n", argv[i + 1]);
                return 1;
            }
        }
    }
    return 0;
}
