#include "platform/portable/zone_file.h"

#include <algorithm>

namespace t_genproc::portable {
namespace {

namespace chrono = std::chrono;

constexpr std::size_t kHeaderSize = 44, kVersionAt = 4, kCountsAt = 20, kCountSize = 4, kTypeSize = 6;
constexpr chrono::hours kLargestOffset(26);

/// Big-endian, with sign.
std::int64_t number(std::string_view bytes) {
    std::uint64_t value = (bytes.front() & 0x80) != 0 ? ~std::uint64_t{0} : 0;
    for (const char byte : bytes) value = value << 8 | static_cast<unsigned char>(byte);
    return static_cast<std::int64_t>(value);
}

/// The parts of a block that matter here.
struct Block {
    std::string_view times;
    std::string_view typeNumbers;  // one byte for each time
    std::string_view types;        // in seconds, whether it is daylight time, and a name
};

std::string_view taken(std::string_view& bytes, std::uint64_t count) {
    const std::string_view result = bytes.substr(0, static_cast<std::size_t>(count));
    bytes.remove_prefix(result.size());
    return result;
}

/// Takes a header and the block that it describes.
std::optional<Block> takeBlock(std::string_view& bytes, std::size_t timeSize) {
    if (!bytes.starts_with("TZif") || bytes.size() < kHeaderSize) return {};
    const std::string_view header = taken(bytes, kHeaderSize);
    const auto count = [&](std::size_t index) {
        const std::size_t at = kCountsAt + index * kCountSize;
        return static_cast<std::uint64_t>(number(header.substr(at, kCountSize))) & 0xFFFFFFFF;
    };
    const std::uint64_t universal = count(0), standard = count(1), leaps = count(2), times = count(3),
                        types = count(4), names = count(5);
    const std::uint64_t behind = names + leaps * (timeSize + 4) + standard + universal;
    if (types == 0 || times * (timeSize + 1) + types * kTypeSize + behind > bytes.size()) return {};
    Block block;
    block.times = taken(bytes, times * timeSize);
    block.typeNumbers = taken(bytes, times);
    block.types = taken(bytes, types * kTypeSize);
    taken(bytes, behind);
    return block;
}

std::optional<chrono::seconds> offsetOf(const Block& block, std::size_t type) {
    if (type >= block.types.size() / kTypeSize) return {};
    const chrono::seconds offset(number(block.types.substr(type * kTypeSize, 4)));
    if (chrono::abs(offset) > kLargestOffset) return {};
    return offset;
}

std::optional<Zone> zoneOf(const Block& block, std::size_t timeSize) {
    const std::optional<chrono::seconds> first = offsetOf(block, 0);
    if (!first) return {};
    Zone zone{.firstOffset = *first, .changes = {}, .rule = {}};
    zone.changes.reserve(block.typeNumbers.size());
    for (std::size_t i = 0; i < block.typeNumbers.size(); ++i) {
        const chrono::sys_seconds at(chrono::seconds(number(block.times.substr(i * timeSize, timeSize))));
        const auto offset = offsetOf(block, static_cast<unsigned char>(block.typeNumbers[i]));
        const bool isInOrder = zone.changes.empty() || zone.changes.back().at < at;
        if (!offset || !isInOrder) return {};
        zone.changes.push_back({at, *offset});
    }
    return zone;
}

}  // namespace

chrono::seconds Zone::offsetAt(chrono::sys_seconds time) const {
    const auto isBefore = [](chrono::sys_seconds point, const OffsetChange& change) {
        return point < change.at;
    };
    const auto next = std::upper_bound(changes.begin(), changes.end(), time, isBefore);
    if (next == changes.end() && rule) return rule->offsetAt(time);
    return next == changes.begin() ? firstOffset : std::prev(next)->offset;
}

std::optional<Zone> readZoneFile(std::string_view bytes) {
    const bool isOld = bytes.size() > kVersionAt && bytes[kVersionAt] == '\0';
    const std::optional<Block> oldBlock = takeBlock(bytes, 4);
    if (!oldBlock) return {};
    if (isOld) return zoneOf(*oldBlock, 4);

    const std::optional<Block> block = takeBlock(bytes, 8);
    const bool hasRule = bytes.size() >= 2 && bytes.front() == '\n' && bytes.back() == '\n';
    if (!block || !hasRule) return {};
    std::optional<Zone> zone = zoneOf(*block, 8);
    const std::string_view rule = bytes.substr(1, bytes.size() - 2);
    if (!zone || rule.empty()) return zone;
    zone->rule = zoneRule(rule);
    return zone->rule ? zone : std::nullopt;
}

}  // namespace t_genproc::portable
