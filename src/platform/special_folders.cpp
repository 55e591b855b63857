#include "platform/special_folders.h"

#include <algorithm>
#include <array>

namespace t_genproc {
namespace {

constexpr std::int32_t kWithoutFlags = 0xFF;

// Where Windows keeps a folder under the same path as another one, so does this table. The numbers that are
// left out stand for nothing.
constexpr auto kFolders = std::to_array<SpecialFolderEntry>({
    {0x00, "CSIDL_DESKTOP", "%USER%\\Desktop"},
    {0x01, "CSIDL_INTERNET", ""},
    {0x02, "CSIDL_PROGRAMS", "%USER%\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs"},
    {0x03, "CSIDL_CONTROLS", ""},
    {0x04, "CSIDL_PRINTERS", ""},
    {0x05, "CSIDL_PERSONAL", "%USER%\\Documents"},
    {0x06, "CSIDL_FAVORITES", "%USER%\\Favorites"},
    {0x07, "CSIDL_STARTUP", "%USER%\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs\\StartUp"},
    {0x08, "CSIDL_RECENT", "%USER%\\AppData\\Roaming\\Microsoft\\Windows\\Recent"},
    {0x09, "CSIDL_SENDTO", "%USER%\\AppData\\Roaming\\Microsoft\\Windows\\SendTo"},
    {0x0A, "CSIDL_BITBUCKET", ""},
    {0x0B, "CSIDL_STARTMENU", "%USER%\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu"},
    {0x0D, "CSIDL_MYMUSIC", "%USER%\\Music"},
    {0x0E, "CSIDL_MYVIDEO", "%USER%\\Videos"},
    {0x10, "CSIDL_DESKTOPDIRECTORY", "%USER%\\Desktop"},
    {0x11, "CSIDL_DRIVES", ""},
    {0x12, "CSIDL_NETWORK", ""},
    {0x13, "CSIDL_NETHOOD", "%USER%\\AppData\\Roaming\\Microsoft\\Windows\\Network Shortcuts"},
    {0x14, "CSIDL_FONTS", "C:\\Windows\\Fonts"},
    {0x15, "CSIDL_TEMPLATES", "%USER%\\AppData\\Roaming\\Microsoft\\Windows\\Templates"},
    {0x16, "CSIDL_COMMON_STARTMENU", "C:\\ProgramData\\Microsoft\\Windows\\Start Menu"},
    {0x17, "CSIDL_COMMON_PROGRAMS", "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs"},
    {0x18, "CSIDL_COMMON_STARTUP", "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\StartUp"},
    {0x19, "CSIDL_COMMON_DESKTOPDIRECTORY", "C:\\Users\\Public\\Desktop"},
    {0x1A, "CSIDL_APPDATA", "%USER%\\AppData\\Roaming"},
    {0x1B, "CSIDL_PRINTHOOD", "%USER%\\AppData\\Roaming\\Microsoft\\Windows\\Printer Shortcuts"},
    {0x1C, "CSIDL_LOCAL_APPDATA", "%USER%\\AppData\\Local"},
    {0x1D, "CSIDL_ALTSTARTUP", "%USER%\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs\\StartUp"},
    {0x1E, "CSIDL_COMMON_ALTSTARTUP", "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\StartUp"},
    {0x1F, "CSIDL_COMMON_FAVORITES", "%USER%\\Favorites"},
    {0x20, "CSIDL_INTERNET_CACHE", "%USER%\\AppData\\Local\\Microsoft\\Windows\\INetCache"},
    {0x21, "CSIDL_COOKIES", "%USER%\\AppData\\Local\\Microsoft\\Windows\\INetCookies"},
    {0x22, "CSIDL_HISTORY", "%USER%\\AppData\\Local\\Microsoft\\Windows\\History"},
    {0x23, "CSIDL_COMMON_APPDATA", "C:\\ProgramData"},
    {0x24, "CSIDL_WINDOWS", "C:\\Windows"},
    {0x25, "CSIDL_SYSTEM", "C:\\Windows\\System32"},
    {0x26, "CSIDL_PROGRAM_FILES", "C:\\Program Files"},
    {0x27, "CSIDL_MYPICTURES", "%USER%\\Pictures"},
    {0x28, "CSIDL_PROFILE", "%USER%"},
    {0x29, "CSIDL_SYSTEMX86", "C:\\Windows\\SysWOW64"},
    {0x2A, "CSIDL_PROGRAM_FILESX86", "C:\\Program Files (x86)"},
    {0x2B, "CSIDL_PROGRAM_FILES_COMMON", "C:\\Program Files\\Common Files"},
    {0x2C, "CSIDL_PROGRAM_FILES_COMMONX86", "C:\\Program Files (x86)\\Common Files"},
    {0x2D, "CSIDL_COMMON_TEMPLATES", "C:\\ProgramData\\Microsoft\\Windows\\Templates"},
    {0x2E, "CSIDL_COMMON_DOCUMENTS", "C:\\Users\\Public\\Documents"},
    {0x2F, "CSIDL_COMMON_ADMINTOOLS",
     "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\Administrative Tools"},
    {0x30, "CSIDL_ADMINTOOLS",
     "%USER%\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs\\Administrative Tools"},
    {0x31, "CSIDL_CONNECTIONS", ""},
    {0x35, "CSIDL_COMMON_MUSIC", "C:\\Users\\Public\\Music"},
    {0x36, "CSIDL_COMMON_PICTURES", "C:\\Users\\Public\\Pictures"},
    {0x37, "CSIDL_COMMON_VIDEO", "C:\\Users\\Public\\Videos"},
    {0x38, "CSIDL_RESOURCES", "C:\\Windows\\Resources"},
    {0x39, "CSIDL_RESOURCES_LOCALIZED", "C:\\Windows\\Resources\\0409"},
    {0x3A, "CSIDL_COMMON_OEM_LINKS", "C:\\ProgramData\\OEM Links"},
    {0x3B, "CSIDL_CDBURN_AREA", "%USER%\\AppData\\Local\\Microsoft\\Windows\\Burn\\Burn"},
    {0x3D, "CSIDL_COMPUTERSNEARME", ""},
});

}  // namespace

std::span<const SpecialFolderEntry> specialFolders() { return kFolders; }

const SpecialFolderEntry* findSpecialFolder(std::int32_t identifier) {
    const auto* const found =
        std::ranges::find(kFolders, identifier & kWithoutFlags, &SpecialFolderEntry::identifier);
    return found == kFolders.end() ? nullptr : found;
}

}  // namespace t_genproc
