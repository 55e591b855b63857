#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "platform/linux_desktop/desktop.h"

namespace t_genproc::linux_desktop {

/// As much of a block as a DeviceSettings or DeviceNames keeps.
template <class Record>
Record copyOf(std::span<const std::byte> block) {
    Record record;
    std::ranges::copy(block.first(std::min(block.size(), Record::kSize)), record.bytes().begin());
    return record;
}

/// Blocks of bytes behind handles.
class GlobalMemory {
   public:
    /// Nothing where there is no such block.
    std::span<std::byte> bytes(MemoryBlock block) const {
        const auto found = blocks_.find(block);
        return found == nullptr ? std::span<std::byte>() : *found;
    }
    void free(MemoryBlock block) { blocks_.remove(block); }

    /// Puts a block with `bytes` in the place of `block`.
    void replace(MemoryBlock& block, std::vector<std::byte> bytes) {
        free(block);
        block = blocks_.add(std::make_shared<std::vector<std::byte>>(std::move(bytes)));
    }

   private:
    Handles<std::vector<std::byte>> blocks_{1};
};

}  // namespace t_genproc::linux_desktop
