/// What a settings file and its folder look like when the process that writes it is killed.
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <random>
#include <stdexcept>
#include <thread>

#include "folder.h"
#include "peers.h"

namespace t_genproc::bench {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kKills = 200;
constexpr int kLongestLife = 8000;  // microseconds

struct Damage {
    int torn = 0;             // files that are neither the old nor the new text
    int strays = 0;           // kills that left another file in the folder
    std::ptrdiff_t most = 0;  // other files at once
    std::ptrdiff_t left = 0;  // other files in the end, when each kill has been followed by a good write
    double longestWait = 0;   // milliseconds, of these good writes
};

/// Lets another process write the two entries in turn and kills it after `microseconds`.
void killWriter(Peer& peer, const Entry& one, const Entry& other, int microseconds) {
    const pid_t child = ::fork();
    if (child < 0) throw std::runtime_error("no new process");
    if (child == 0) {
        for (bool next = true;; next = !next) peer.write(next ? one : other);
    }
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

Damage killWriters(Peer& peer, const Folder& folder, const Entry& one, const Entry& other) {
    const auto textAfter = [&](const Entry& entry) {
        peer.write(entry);
        return textOf(entry.file);
    };
    textAfter(one);  // brings the text into the peer's own form
    const std::string otherText = textAfter(other), oneText = textAfter(one);

    std::mt19937 random(1);
    std::uniform_int_distribution<int> life(0, kLongestLife);
    Damage damage;
    for (int i = 0; i < kKills; ++i) {
        const std::ptrdiff_t before = folder.count();
        killWriter(peer, one, other, life(random));
        const std::ptrdiff_t after = folder.count();
        damage.strays += after > before ? 1 : 0;
        damage.most = std::max(damage.most, after - 1);

        const std::string text = textOf(one.file);
        if (text != oneText && text != otherText) {
            ++damage.torn;
            std::ofstream(one.file, std::ios::binary) << oneText;
        }
        const Clock::time_point start = Clock::now();
        peer.write(one);
        damage.longestWait = std::max(damage.longestWait, Milliseconds(Clock::now() - start).count());
        if (textOf(one.file) != oneText) throw std::runtime_error("a write after a kill failed");
    }
    damage.left = folder.count() - 1;
    return damage;
}

void report(const NamedPeer& named) {
    const Folder folder;
    const std::string file = folder.file("settings.ini");
    makeSettingsFile(file, 4 << 10);
    std::filesystem::remove(file + ".program");

    Entry one = entryAt(file, 0.5), other = one;
    one.value = "1";
    other.value = std::string(100, '2');
    const Damage damage = killWriters(*named.make(), folder, one, other);
    std::printf("| %s | %d | %d | %td | %td | %.1f ms |\n", named.name, damage.torn, damage.strays,
                damage.most, damage.left, damage.longestWait);
}

}  // namespace
}  // namespace t_genproc::bench

int main() {
    using namespace t_genproc::bench;
    std::printf(
        "| %d kills | torn files | kills that left another file | other files, at most | left in the end | "
        "longest wait |\n"
        "|---|---|---|---|---|---|\n",
        kKills);
    try {
        for (const NamedPeer& named : peers().subspan(2)) report(named);
    } catch (const std::exception& error) {
        std::cerr << "kill_writers: " << error.what() << '\n';
        return 1;
    }
}
