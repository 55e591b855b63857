/// A printer and a display of which a test says what they answer, and which tell what they were asked.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <type_traits>
#include <vector>

#include "platform/printing.h"

namespace t_genproc::test {

struct ScriptedDevices {
    std::string calls;  // a blank behind each
    std::map<std::int32_t, std::int32_t> caps;
    std::map<MemoryBlock, std::vector<std::byte>> blocks;
    int locked = 0;

    DeviceContext device = 7;
    std::string openedSettings;  // the bytes that the device was opened with
    std::function<std::int32_t(PrintDialog&)> onPrintDialog = [](PrintDialog&) { return kDialogConfirmed; };
    std::function<std::int32_t(PageSetupDialog&)> onPageSetup = [](PageSetupDialog&) {
        return kDialogConfirmed;
    };
    std::function<std::intptr_t(const FormatRange&)> format = [](const FormatRange&) { return -1; };

    std::string failing;  // a call of graphics that gives 0
    SystemError reason = SystemError::InvalidParameter;

    template <class... Words>
    void note(const Words&... words) {
        const auto add = [this](const auto& word) {
            if constexpr (std::is_arithmetic_v<std::remove_cvref_t<decltype(word)>>) {
                calls += std::to_string(word) + ' ';
            } else {
                calls += std::string(word) + ' ';
            }
        };
        (add(words), ...);
    }
    template <class Value, class... Words>
    Outcome<Value> outcome(const std::string& call, Value value, const Words&... words) {
        note(call, words...);
        if (call == failing) return {.error = reason};
        return {value};
    }
};

struct ScriptedPrinting : Printing {
    explicit ScriptedPrinting(ScriptedDevices& of) : devices(of) {}
    ScriptedDevices& devices;

    std::int32_t PrintDlgA(PrintDialog& dialog) override {
        devices.note("PrintDlg", dialog.owner, dialog.flags, dialog.fromPage, dialog.toPage, dialog.minPage,
                     dialog.maxPage);
        return devices.onPrintDialog(dialog);
    }
    std::int32_t PageSetupDlgA(PageSetupDialog& dialog) override {
        devices.note("PageSetupDlg", dialog.owner, dialog.flags, dialog.margin.left, dialog.margin.top);
        return devices.onPageSetup(dialog);
    }
    std::size_t GlobalSize(MemoryBlock block) override { return devices.blocks[block].size(); }
    std::byte* GlobalLock(MemoryBlock block) override {
        if (!devices.blocks.contains(block)) return nullptr;
        ++devices.locked;
        return devices.blocks[block].data();
    }
    void GlobalUnlock(MemoryBlock /*block*/) override { --devices.locked; }
    void GlobalFree(MemoryBlock block) override { devices.note("GlobalFree", block); }
    std::size_t lstrlenA(const std::string& text) override {
        return std::min(text.find(char{}), text.size());
    }
    DeviceContext CreateDCA(const std::string& device, std::span<const std::byte> settings) override {
        devices.note("CreateDC", "[" + device + "]");
        devices.openedSettings.assign(reinterpret_cast<const char*>(settings.data()), settings.size());
        return devices.device;
    }
    std::int32_t StartDocA(DeviceContext context, const DocumentInformation& document) override {
        devices.note("StartDoc", context, document.size, document.documentName, "[" + document.output + "]");
        return 1;
    }
    std::int32_t page(const char* call, DeviceContext context) {
        devices.note(call, context);
        return 1;
    }
    std::int32_t StartPage(DeviceContext context) override { return page("StartPage", context); }
    std::int32_t EndPage(DeviceContext context) override { return page("EndPage", context); }
    std::int32_t EndDoc(DeviceContext context) override { return page("EndDoc", context); }
    std::intptr_t SendMessageA(WindowHandle window, std::uint32_t message, bool render,
                               const FormatRange* range) override {
        devices.note(message == kFormatRange && (render == (range != nullptr)) ? "Format" : "?", window);
        if (range == nullptr) return 0;
        devices.note(range->firstCharacter, range->endCharacter);
        return devices.format(*range);
    }
};

struct ScriptedGraphics : Graphics {
    explicit ScriptedGraphics(ScriptedDevices& of) : devices(of) {}
    ScriptedDevices& devices;
    Rectangle window{10, 20, 110, 70};

    WindowHandle GetForegroundWindow() override { return 5; }
    Outcome<Rectangle> GetWindowRect(WindowHandle) override { return {window}; }
    Outcome<DeviceContext> GetDC(WindowHandle of) override {
        return devices.outcome<DeviceContext>("GetDC", 1, of);
    }
    Outcome<DeviceContext> GetWindowDC(WindowHandle of) override {
        return devices.outcome<DeviceContext>("GetWindowDC", 2, of);
    }
    bool ReleaseDC(WindowHandle of, DeviceContext context) override {
        devices.note("ReleaseDC", of, context);
        return true;
    }
    Outcome<DeviceContext> CreateCompatibleDC(DeviceContext context) override {
        return devices.outcome<DeviceContext>("CreateCompatibleDC", 3, context);
    }
    bool DeleteDC(DeviceContext context) override {
        devices.note("DeleteDC", context);
        return true;
    }
    std::int32_t GetDeviceCaps(DeviceContext context, std::int32_t index) override {
        return context == 0 || context == 3 ? 0 : devices.caps[index];
    }
    Outcome<GraphicsObject> SelectObject(DeviceContext context, GraphicsObject object) override {
        return devices.outcome<GraphicsObject>("SelectObject", 40, context, object);
    }
    bool DeleteObject(GraphicsObject object) override {
        devices.note("DeleteObject", object);
        return true;
    }
    Outcome<GraphicsObject> CreateCompatibleBitmap(DeviceContext context, std::int32_t width,
                                                   std::int32_t height) override {
        return devices.outcome<GraphicsObject>("CreateCompatibleBitmap", 41, context, width, height);
    }
    Outcome<bool> BitBlt(DeviceContext target, std::int32_t x, std::int32_t y, std::int32_t width,
                         std::int32_t height, DeviceContext source, std::int32_t left, std::int32_t top,
                         std::uint32_t operation) override {
        return devices.outcome("BitBlt", true, target, x, y, width, height, source, left, top, operation);
    }
    /// One entry fewer than asked for.
    Outcome<std::vector<PaletteEntry>> GetSystemPaletteEntries(DeviceContext context, std::uint32_t start,
                                                               std::uint32_t count) override {
        return devices.outcome("GetSystemPaletteEntries", std::vector<PaletteEntry>(count - 1), context,
                               start);
    }
    Outcome<GraphicsObject> CreatePalette(const LogicalPalette& palette) override {
        return devices.outcome<GraphicsObject>("CreatePalette", 42, palette.version, palette.entries.size());
    }
    Outcome<GraphicsObject> SelectPalette(DeviceContext context, GraphicsObject palette,
                                          bool background) override {
        return devices.outcome<GraphicsObject>("SelectPalette", 43, context, palette, background);
    }
    Outcome<std::uint32_t> RealizePalette(DeviceContext context) override {
        return devices.outcome<std::uint32_t>("RealizePalette", 256, context);
    }
    ObjectPointer OleCreatePictureIndirect(const PictureDescription& picture, bool own) override {
        devices.note("Picture", picture.pictureType, picture.bitmap, picture.palette, own);
        return nullptr;
    }
    GraphicsObject CreateFontIndirectA(const LogicalFont& font) override {
        devices.note("Font", font.faceName, font.height, font.weight, font.charSet, font.quality);
        return 44;
    }
    std::uint32_t SetTextColor(DeviceContext, std::uint32_t colour) override {
        devices.note("Colour", colour);
        return 0;
    }
    std::uint32_t SetTextAlign(DeviceContext, std::uint32_t align) override {
        devices.note("Align", align);
        return 0;
    }
    bool TextOutA(DeviceContext, std::int32_t x, std::int32_t y, const std::string& text) override {
        devices.note("Text", x, y, text);
        return false;
    }
};

}  // namespace t_genproc::test
