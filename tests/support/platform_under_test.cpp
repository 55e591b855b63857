#include "support/platform_under_test.h"

#include <algorithm>
#include <iostream>
#include <random>

#include "runtime/errors.h"

namespace t_genproc::test {

PlatformUnderTest::PlatformUnderTest() {
    std::random_device random;
    do {
        onDisk_ = std::filesystem::temp_directory_path() / ("t_genproc_test_" + std::to_string(random()));
    } while (!std::filesystem::create_directory(onDisk_));
    platform = makePlatform();
}

PlatformUnderTest::~PlatformUnderTest() {
    platform = {};                                         // its services may still write
    std::filesystem::current_path(onDisk_.parent_path());  // a current folder cannot be removed everywhere
    std::filesystem::remove_all(onDisk_);
}

void PlatformUnderTest::write(const std::string& path, std::string_view bytes) {
    const Outcome<FileHandle> file = platform.files->CreateFileA(path, FileUse::Replace);
    raiseOnFailure(file.error);
    raiseOnFailure(platform.files->WriteFile(file.value, bytes));
    raiseOnFailure(platform.files->CloseHandle(file.value));
}

std::string PlatformUnderTest::read(const std::string& path) {
    const Outcome<FileHandle> file = platform.files->CreateFileA(path, FileUse::Read);
    if (!file) return "none";
    Outcome<std::string> bytes = platform.files->ReadFile(file.value, 1000000);
    raiseOnFailure(platform.files->CloseHandle(file.value));
    return bytes.value;
}

bool PlatformUnderTest::canKeep(const std::string& text) {
    return platform.files->decode(platform.files->encode(text)) == text;
}

std::string PlatformUnderTest::stored(const std::string& text) {
    return canKeep(text) ? platform.files->encode(text) : text;
}

bool isLeftOut(const std::string& deviation) {
    const bool isHere = deviation.starts_with(systemName() + ':');
    if (isHere) std::cout << "[ left out ] " << deviation << '\n';
    return isHere;
}

std::ptrdiff_t openFiles(const std::string& part) {
    std::error_code none;
    return std::ranges::count_if(std::filesystem::directory_iterator("/proc/self/fd", none), [&](auto& each) {
        return read_symlink(each, none).string().find(part) != std::string::npos;
    });
}

int errorOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

}  // namespace t_genproc::test
