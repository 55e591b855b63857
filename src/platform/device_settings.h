/// The settings of a printer and the names of it, as blocks of memory that the dialogs hand over.
///
/// The layouts are the system's (DEVMODE and DEVNAMES), all numbers of 16 bits but one, low byte first. Of
/// longer blocks only the beginning is kept; a shorter one changes only the beginning.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace t_genproc {

/// The first 122 bytes of a printer's settings: all that every printer has, nothing of its driver's own.
class DeviceSettings {
   public:
    static constexpr std::size_t kSize = 122;

    std::span<std::byte, kSize> bytes() { return bytes_; }
    std::span<const std::byte, kSize> bytes() const { return bytes_; }

    /// The members by where they stand.
    enum class Member : std::size_t {
        SpecVersion = 32,
        DriverVersion = 34,
        Size = 36,
        DriverExtra = 38,
        Orientation = 44,
        PaperSize = 46,
        PaperLength = 48,  // tenths of a millimetre
        PaperWidth = 50,
        Scale = 52,
        Copies = 54,
        DefaultSource = 56,
        PrintQuality = 58,
        Color = 60,
    };
    std::int16_t get(Member member) const;
    void set(Member member, std::int16_t value);

    /// A bit for each member that counts: DM_ORIENTATION and the like.
    std::uint32_t fields() const;
    void fields(std::uint32_t fields);

   private:
    std::array<std::byte, kSize> bytes_{};
};

/// Bits of DeviceSettings::fields.
namespace DeviceFields {
inline constexpr std::uint32_t Orientation = 1;
inline constexpr std::uint32_t PaperSize = 2;
inline constexpr std::uint32_t PaperLength = 4;
inline constexpr std::uint32_t PaperWidth = 8;
inline constexpr std::uint32_t Copies = 0x100;
inline constexpr std::uint32_t Color = 0x800;
}  // namespace DeviceFields

/// Four offsets from the beginning of the block, then the names in 200 bytes, each ended by a zero byte.
class DeviceNames {
   public:
    static constexpr std::size_t kSize = 208;
    static constexpr std::size_t kHeaderSize = 8;

    std::span<std::byte, kSize> bytes() { return bytes_; }
    std::span<const std::byte, kSize> bytes() const { return bytes_; }

    enum class Name : std::size_t { Driver = 0, Device = 2, Output = 4 };

    /// What stands at a name's offset, up to the end of the block; empty where the offset is 0 or points
    /// outside the names.
    std::string_view from(Name name) const;

    /// Lays the names out one after the other. False, and nothing changed, where they do not fit.
    bool assign(std::string_view driver, std::string_view device, std::string_view output);

   private:
    std::array<std::byte, kSize> bytes_{};
};

}  // namespace t_genproc
