#include <algorithm>

#include "platform/portable/adapters.h"

namespace t_genproc::portable {
namespace {

/// A system without printers: every dialog is cancelled, no printer is found.
class NoPrinting final : public Printing {
   public:
    std::int32_t PrintDlgA(PrintDialog& /*dialog*/) override { return 0; }
    std::int32_t PageSetupDlgA(PageSetupDialog& /*dialog*/) override { return 0; }

    std::size_t GlobalSize(MemoryBlock /*block*/) override { return 0; }
    std::byte* GlobalLock(MemoryBlock /*block*/) override { return nullptr; }
    void GlobalUnlock(MemoryBlock /*block*/) override {}
    void GlobalFree(MemoryBlock /*block*/) override {}
    std::size_t lstrlenA(const std::string& text) override {
        return std::min(text.find(char{}), text.size());
    }

    DeviceContext CreateDCA(const std::string& /*device*/, std::span<const std::byte> /*settings*/) override {
        return 0;
    }
    std::int32_t StartDocA(DeviceContext /*context*/, const DocumentInformation& /*document*/) override {
        return 0;
    }
    std::int32_t StartPage(DeviceContext /*context*/) override { return 0; }
    std::int32_t EndPage(DeviceContext /*context*/) override { return 0; }
    std::int32_t EndDoc(DeviceContext /*context*/) override { return 0; }

    std::intptr_t SendMessageA(WindowHandle /*window*/, std::uint32_t /*message*/, bool /*render*/,
                               const FormatRange* /*range*/) override {
        return 0;
    }
};

}  // namespace

std::unique_ptr<Printing> makePrinting() { return std::make_unique<NoPrinting>(); }

}  // namespace t_genproc::portable
