/// Reads and writes of settings files, beside other ways to do the same.
#include <benchmark/benchmark.h>

#include <iostream>
#include <stdexcept>

#include "folder.h"
#include "peers.h"
#include "table_reporter.h"

namespace t_genproc::bench {
namespace {

constexpr double kMiddle = 0.5, kLast = 1;  // where in a text a key stands
constexpr std::size_t kCopies = 4;          // more files than any peer keeps in memory

template <class Body>
void add(const std::string& table, const std::string& column, const NamedPeer& peer, Body body) {
    const auto run = [=](benchmark::State& state) mutable {
        const std::unique_ptr<Peer> made = peer.make();
        body(*made);
        for (auto _ : state) body(*made);
    };
    benchmark::RegisterBenchmark(cellName(table, column, peer.name).c_str(), run)
        ->UseRealTime()
        ->Unit(benchmark::kMicrosecond);
}

/// A peer that does not do its work is not worth measuring.
void mustRead(const NamedPeer& peer, const Entry& entry) {
    if (&peer != &peers().front() && peer.make()->read(entry) != entry.value)
        throw std::runtime_error(std::string(peer.name) + " does not read " + entry.key + "=" + entry.value);
}

/// Reads of the entries in turn.
void addReads(const std::string& column, const std::vector<Entry>& entries) {
    for (const NamedPeer& peer : peers()) {
        for (const Entry& entry : entries) mustRead(peer, entry);
        add("Reading one key", column, peer, [entries, i = std::size_t{0}](Peer& made) mutable {
            benchmark::DoNotOptimize(made.read(entries[i++ % entries.size()]));
        });
    }
}

Entry changed(Entry entry) {
    entry.value.back() ^= 1;  // another digit or letter
    return entry;
}

void addWrites(const std::string& column, const std::string& file) {
    for (const NamedPeer& peer : peers()) {
        const std::string copy = file + "." + peer.name;
        std::filesystem::copy_file(file, copy);
        const Entry entry = changed(entryAt(copy, kMiddle));
        peer.make()->write(entry);
        mustRead(peer, entry);
        add("Writing one key", column, peer,
            [next = entry](Peer& made) mutable { made.write(next = changed(next)); });
    }
}

void addSaves(const std::string& file) {
    for (const NamedPeer& peer : peers()) {
        const std::string copy = file + ".save." + peer.name;
        std::filesystem::copy_file(file, copy);
        std::filesystem::copy_file(file + ".program", copy + ".program");
        const std::vector<Entry> writes = writesOfSave(copy);
        add("INISettingsSave", std::to_string(writes.size()) + " writes, 4 KB", peer,
            [writes](Peer& made) { made.save(writes); });
    }
}

/// An entry at `share` of each copy of the file.
std::vector<Entry> entriesOfCopies(const std::string& file, double share) {
    std::vector<Entry> entries{entryAt(file, share)};
    while (entries.size() < kCopies) {
        entries.push_back(entries.front());
        entries.back().file += " copy " + std::to_string(entries.size());
        std::filesystem::copy_file(file, entries.back().file, std::filesystem::copy_options::skip_existing);
    }
    return entries;
}

void addAll(const Folder& folder) {
    const std::string usual = folder.file("4 KB");
    makeSettingsFile(usual, 4 << 10);
    addReads("4 KB", entriesOfCopies(usual, kMiddle));
    addReads("4 KB, last key", entriesOfCopies(usual, kLast));
    addReads("4 KB, one file", {entryAt(usual, kMiddle)});
    addWrites("4 KB", usual);
    addSaves(usual);

    for (const auto& [name, size] : {std::pair{"64 KB", 64 << 10}, {"1 MB", 1 << 20}, {"4 MB", 4 << 20}}) {
        const std::string file = folder.file(name);
        makeSettingsFile(file, static_cast<std::size_t>(size));
        addReads(name, entriesOfCopies(file, kMiddle));
        addWrites(name, file);
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
        TableReporter tables(std::cout);
        benchmark::RunSpecifiedBenchmarks(&tables);
    } catch (const std::exception& error) {
        std::cerr << "settings_bench: " << error.what() << '\n';
        return 1;
    }
}
