// Makes, lists and checks the message database.

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iostream>
#include <set>

#include "databases.h"
#include "frame/library.h"
#include "help_windows.h"
#include "messages.h"
#include "platform_choice.h"
#include "tavoru_host.h"
#include "wrong_use.h"

namespace {

namespace fs = std::filesystem;
using tavoru::Messages;

constexpr const char* kUsage =
    "Usage: make_messages SOURCE DATABASE       makes the database of a text\n"
    "       make_messages --list DATABASE       shows its numbers and texts\n"
    "       make_messages --check WINDOW FILE   compares a text or a database with a window of the sample\n";

/// A database file of the system, as the library sees it.
struct Database {
    /// Throws std::runtime_error: it is a folder, or in none.
    explicit Database(const fs::path& path)
        : drive(tavoru::openDrive(folderOf(path))), name(drive.root + path.filename().string()) {}

    static fs::path folderOf(const fs::path& path) {
        if (fs::is_directory(path)) throw std::runtime_error(path.string() + " is a folder");
        fs::path folder = fs::absolute(path).parent_path();
        if (!fs::is_directory(folder)) throw std::runtime_error("there is no folder " + folder.string());
        return folder;
    }

    tavoru::Drive drive;
    std::string name;
};

/// Tells on the error output how far the work has come, on one line; of short work, nothing.
auto progressLine(std::size_t all) {
    using Clock = std::chrono::steady_clock;
    using std::chrono::milliseconds;
    return [all, next = Clock::now() + milliseconds(500), isShown = false](std::size_t done) mutable {
        const auto now = Clock::now();
        if (now < next && !(isShown && done == all)) return;
        next = now + milliseconds(200);
        isShown = true;
        std::cerr << '\r' << done << " of " << all << " texts" << (done == all ? "\n" : "") << std::flush;
    };
}

int make(const fs::path& source, const fs::path& path) {
    std::error_code none;
    if (fs::equivalent(source, path, none)) throw tavoru::WrongUse("the database would replace the text");
    const Messages messages = tavoru::readMessages(source);
    const Database database(path);
    tavoru::makeMessages(messages, database.drive.platform, database.name, progressLine(messages.size()));
    return 0;
}

int list(const fs::path& path) {
    const Database database(path);
    for (const auto& [number, text] : tavoru::storedMessages(database.drive.platform, database.name)) {
        std::cout << number << " | " << text << '\n';
    }
    return 0;
}

/// A database is enciphered: somewhere in it is a zero byte.
bool isText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::istreambuf_iterator<char> begin(file), end;
    return std::find(begin, end, '\0') == end;
}

std::set<std::int16_t> numbersOf(const tavoru::Window& window) {
    std::set<std::int16_t> numbers;
    for (const auto& part : window.parts()) numbers.insert(part.number());
    return numbers;
}

int check(const std::string& windowName, const fs::path& path) {
    Database database(path);
    t_genproc::Platform& platform = database.drive.platform;
    tavoru::TavoruHost host(platform);
    t_genproc::Library library(host, platform);
    const tavoru::Window window(library, windowName, true);
    const Messages messages =
        isText(path) ? tavoru::readMessages(path) : tavoru::storedMessages(platform, database.name);

    int findings = 0;
    const auto tell = [&](const std::string& finding) {
        std::cout << finding << '\n';
        ++findings;
    };
    for (const auto& part : window.parts()) {
        const auto found = messages.find(part.number());
        if (part.number() != 0 && (found == messages.end() || found->second.empty())) {
            tell(part.name + " has the number " + std::to_string(part.number()) + ", which has no text");
        }
    }
    const std::set<std::int16_t> used = numbersOf(window);
    std::set<std::int16_t> usedAnywhere;
    for (const std::string_view name : tavoru::Window::names()) {
        usedAnywhere.merge(numbersOf(tavoru::Window(library, name, true)));
    }
    for (const auto& [number, text] : messages) {
        if (!(window.isOwn(number) ? used : usedAnywhere).contains(number)) {
            tell("No control has the number " + std::to_string(number) + ": " + text);
        }
        if (messages.lower_bound(number)->second != text) {
            tell("Another text has the number " + std::to_string(number) + " too: " + text);
        }
    }
    return findings == 0 ? 0 : 1;
}

int run(const std::vector<std::string>& words) {
    if (words.size() == 2 && words[0] == "--list") return list(words[1]);
    if (words.size() == 3 && words[0] == "--check") return check(words[1], words[2]);
    if (words.size() == 2 && !words[0].starts_with("--")) return make(words[0], words[1]);
    std::cerr << kUsage;
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    const auto fail = [](int exitCode, const std::exception& error) {
        std::cerr << "make_messages: " << error.what() << '\n';
        return exitCode;
    };
    try {
        const std::vector<std::string> words(argv + 1, argv + argc);
        return tavoru::withDatabase(words.empty() ? "" : words.back(), [&] { return run(words); });
    } catch (const tavoru::WrongUse& error) {
        return fail(2, error);
    } catch (const std::exception& error) {
        return fail(1, error);
    }
}
