/// Reads and writes of settings files, beside other ways to do the same.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <iostream>
#include <stdexcept>

#include "folder.h"
#include "peers.h"
#include "ratio_table.h"

namespace t_genproc::bench {
namespace {

constexpr double kMiddle = 0.5, kLast = 1;  // where in a text a key stands
constexpr std::size_t kCopies = 12;         // more files than any peer keeps in memory

using Works = std::vector<Work>;  // the same work by each of the peers

/// Compares each peer with `base`, which does the same as the first one.
void add(const std::string& name, const Work& base, const Works& works) {
    for (std::size_t i = 0; i < works.size(); ++i) compare(name + "/" + peers()[i].name, base, works[i]);
}

/// A peer that does not do its work is not worth measuring.
void mustRead(Peer& peer, const Entry& entry) {
    const std::string value = peer.read(entry);
    if (value != entry.value && !peer.isBare())
        throw std::runtime_error("a peer does not read " + entry.key + "=" + entry.value);
}

/// A reader of the entries in turn.
Work reader(const NamedPeer& named, const std::vector<Entry>& entries) {
    const std::shared_ptr<Peer> peer = named.make();
    for (const Entry& entry : entries) mustRead(*peer, entry);
    return [=, next = std::size_t{0}]() mutable {
        benchmark::DoNotOptimize(peer->read(entries[next++ % entries.size()]));
    };
}

Entry changed(Entry entry) {
    entry.value.back() ^= 1;  // another digit or letter
    return entry;
}

/// A writer of changing values to one key of a copy of the file.
Work writer(const NamedPeer& named, const std::string& copy) {
    const std::shared_ptr<Peer> peer = named.make();
    const Entry entry = changed(entryAt(copy, kMiddle));
    peer->write(entry);
    mustRead(*peer, entry);
    return [=, next = entry]() mutable { peer->write(next = changed(next)); };
}

Work saver(const NamedPeer& named, const std::string& copy) {
    const std::shared_ptr<Peer> peer = named.make();
    return [=, writes = writesOfSave(copy)] { peer->save(writes); };
}

/// Gives each writer a copy of `file`.
void addWriters(const std::string& name, const std::string& file,
                Work (*make)(const NamedPeer& named, const std::string& copy)) {
    const auto onCopy = [&](const NamedPeer& peer, const std::string& suffix) {
        const std::string copy = file + "." + name + "." + suffix;
        for (const char* which : {"", ".program"}) std::filesystem::copy_file(file + which, copy + which);
        return make(peer, copy);
    };
    Works works;
    for (const NamedPeer& peer : peers()) works.push_back(onCopy(peer, peer.name));
    add(name, onCopy(peers().front(), "base"), works);
}

void addReaders(const std::string& name, std::vector<Entry> entries) {
    Works works;
    for (const NamedPeer& peer : peers()) works.push_back(reader(peer, entries));
    // Whoever reads a file as the second finds it in the processor's cache.
    std::rotate(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(entries.size() / 2),
                entries.end());
    add(name, reader(peers().front(), entries), works);
}

/// The entry at `share` of the text, in many copies of the file.
std::vector<Entry> inCopies(const std::string& file, double share) {
    std::vector<Entry> entries(kCopies, entryAt(file, share));
    for (std::size_t i = 0; i < kCopies; ++i) {
        entries[i].file += "." + std::to_string(i);
        std::filesystem::copy_file(file, entries[i].file, std::filesystem::copy_options::skip_existing);
    }
    return entries;
}

void addAll(const Folder& folder) {
    const std::string small = folder.file("4K");
    makeSettingsFile(small, 4 << 10);
    addReaders("read 4 KB", inCopies(small, kMiddle));
    addReaders("read 4 KB, last key", inCopies(small, kLast));
    addReaders("read 4 KB, the same file", {entryAt(small, kMiddle)});
    addWriters("write 4 KB", small, writer);
    addWriters("INISettingsSave", small, saver);

    for (const auto& [size, kilobytes] : {std::pair{"64 KB", 64}, {"1 MB", 1024}, {"4 MB", 4096}}) {
        const std::string file = folder.file(size);
        makeSettingsFile(file, static_cast<std::size_t>(kilobytes) << 10);
        addReaders(std::string("read ") + size, inCopies(file, kMiddle));
        addWriters(std::string("write ") + size, file, writer);
    }
}

}  // namespace
}  // namespace t_genproc::bench

int main(int argc, char** argv) {
    using namespace t_genproc::bench;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    try {
        const Folder folder;
        addAll(folder);
        std::cout << "|";
        for (const NamedPeer& peer : peers()) std::cout << " | " << peer.name;
        std::cout << " |\n|---|---|---|---|---|---|---|\n";
        RatioTable table;
        benchmark::RunSpecifiedBenchmarks(&table);
    } catch (const std::exception& error) {
        std::cerr << "settings_bench: " << error.what() << '\n';
        return 1;
    }
}
