/// Making databases, of texts among others, and telling of their failures.
#pragma once

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

#include "platform/files.h"
#include "runtime/errors.h"

namespace tavoru {

/// Works with a database; a failure is told with the name of its file.
template <class Body>
auto withDatabase(const std::string& fileName, Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const t_genproc::RuntimeError& error) {
        throw std::runtime_error(fileName + ": " + error.what());
    }
}

/// Has `make` make the database under another name, then puts it in the place of `fileName`, a backslash
/// path. Of a failure nothing stays, and the old one is not touched.
void replaceDatabase(t_genproc::Files& files, const std::string& fileName,
                     const std::function<void(const std::string& newName)>& make);

/// Hands on the lines of a text, without blanks around them, blank lines and comments ("# ..."). What `take`
/// throws becomes std::runtime_error, with file and line.
void takeLines(const std::filesystem::path& source,
               const std::function<void(std::string_view line, int number)>& take);

}  // namespace tavoru
