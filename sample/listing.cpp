#include "listing.h"

#include <algorithm>

namespace tavoru {

std::vector<Listed> listing(t_genproc::Files& files, const std::string& folder) {
    std::vector<t_genproc::FoundFile> found = files.FindFirstFileA(folder + "*").value;
    std::ranges::sort(found, {}, &t_genproc::FoundFile::name);
    std::vector<Listed> all;
    for (const auto& [name, attributes] : found) {
        if (name == "." || name == "..") continue;
        const std::string path = folder + name + (attributes.folder ? "\\" : "");
        all.push_back({path, attributes.size, attributes.lastWrite});
        if (!attributes.folder) continue;
        const std::vector<Listed> below = listing(files, path);
        all.insert(all.end(), below.begin(), below.end());
    }
    return all;
}

}  // namespace tavoru
