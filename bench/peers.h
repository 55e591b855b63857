/// What the settings files are measured against. Each call does the whole work: it loads the file from disk,
/// and other processes see a write when it returns.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "settings_host.h"

namespace t_genproc::bench {

class Peer {
   public:
    virtual ~Peer() = default;
    /// Whether it knows nothing of keys.
    virtual bool isBare() const { return false; }
    /// The value of the entry's key.
    virtual std::string read(const Entry& entry) = 0;
    virtual void write(const Entry& entry) = 0;
    /// All `writes`, which are those of a SettingsHost.
    virtual void save(const std::vector<Entry>& writes) {
        for (const Entry& entry : writes) write(entry);
    }
};

struct NamedPeer {
    const char* name;
    std::unique_ptr<Peer> (*make)();
};

/// First the bare system calls that nobody can do without: open, read and close, or write a new file of the
/// same size and rename it over the old one. Then this library, twice, then the others.
std::span<const NamedPeer> peers();

}  // namespace t_genproc::bench
