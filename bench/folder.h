/// A temporary folder (TMPDIR says where) that is removed with its owner.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <iterator>
#include <string>

namespace t_genproc::bench {

class Folder {
   public:
    Folder()
        : path_(std::filesystem::temp_directory_path() / ("t_genproc_bench_" + std::to_string(::getpid()))) {
        std::filesystem::create_directory(path_);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::string file(const std::string& name) const { return (path_ / name).string(); }

    std::ptrdiff_t count() const { return std::distance(std::filesystem::directory_iterator(path_), {}); }

   private:
    std::filesystem::path path_;
};

}  // namespace t_genproc::bench
