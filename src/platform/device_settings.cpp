#include "platform/device_settings.h"

#include <algorithm>

namespace t_genproc {
namespace {

constexpr std::size_t kFields = 40;

std::uint16_t word(std::span<const std::byte> bytes, std::size_t offset) {
    return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes[offset]) |
                                      std::to_integer<unsigned>(bytes[offset + 1]) << 8);
}

void word(std::span<std::byte> bytes, std::size_t offset, unsigned value) {
    bytes[offset] = static_cast<std::byte>(value & 0xFFU);
    bytes[offset + 1] = static_cast<std::byte>(value >> 8 & 0xFFU);
}

}  // namespace

std::int16_t DeviceSettings::get(Member member) const {
    return static_cast<std::int16_t>(word(bytes_, static_cast<std::size_t>(member)));
}

void DeviceSettings::set(Member member, std::int16_t value) {
    word(bytes_, static_cast<std::size_t>(member), static_cast<std::uint16_t>(value));
}

std::uint32_t DeviceSettings::fields() const {
    return word(bytes_, kFields) | std::uint32_t{word(bytes_, kFields + 2)} << 16;
}

void DeviceSettings::fields(std::uint32_t fields) {
    word(bytes_, kFields, fields & 0xFFFFU);
    word(bytes_, kFields + 2, fields >> 16);
}

std::string_view DeviceNames::from(Name name) const {
    const std::size_t offset = word(bytes_, static_cast<std::size_t>(name));
    if (offset < kHeaderSize || offset >= kSize) return {};
    const auto* const characters = reinterpret_cast<const char*>(bytes_.data());
    return {characters + offset, kSize - offset};
}

bool DeviceNames::assign(std::string_view driver, std::string_view device, std::string_view output) {
    if (kHeaderSize + driver.size() + device.size() + output.size() + 3 > kSize) return false;
    bytes_ = {};
    std::size_t offset = kHeaderSize;
    const auto append = [&](Name name, std::string_view text) {
        word(bytes_, static_cast<std::size_t>(name), static_cast<unsigned>(offset));
        std::ranges::copy(std::as_bytes(std::span(text)),
                          bytes_.begin() + static_cast<std::ptrdiff_t>(offset));
        offset += text.size() + 1;
    };
    append(Name::Driver, driver);
    append(Name::Device, device);
    append(Name::Output, output);
    return true;
}

}  // namespace t_genproc
