#include "platform/windows/ansi.h"

#include <windows.h>

#include <limits>
#include <stdexcept>

namespace t_genproc {
namespace {

int lengthForCall(std::size_t length) {
    if (length > std::numeric_limits<int>::max()) throw std::length_error("text too long to convert");
    return static_cast<int>(length);
}

std::wstring widen(UINT codePage, std::string_view bytes) {
    const int length = lengthForCall(bytes.size());
    std::wstring wide(
        static_cast<std::size_t>(::MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0)),
        L'\0');
    ::MultiByteToWideChar(codePage, 0, bytes.data(), length, wide.data(), lengthForCall(wide.size()));
    return wide;
}

std::string narrow(UINT codePage, const std::wstring& wide) {
    const int length = lengthForCall(wide.size());
    const int needed = ::WideCharToMultiByte(codePage, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    ::WideCharToMultiByte(codePage, 0, wide.data(), length, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

}  // namespace

std::optional<std::string> toAnsi(std::string_view text) {
    std::string bytes = toAnsiWithLoss(text);
    if (fromAnsi(bytes) != text || text.find('\0') != std::string_view::npos) return std::nullopt;
    return bytes;
}

std::string toAnsiWithLoss(std::string_view text) { return narrow(CP_ACP, widen(CP_UTF8, text)); }

std::string fromAnsi(std::string_view bytes) { return narrow(CP_UTF8, widen(CP_ACP, bytes)); }

std::string fromWide(const std::wstring& text) { return narrow(CP_UTF8, text); }

}  // namespace t_genproc
