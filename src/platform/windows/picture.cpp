#include "platform/windows/picture.h"

#include <windows.h>
// After <windows.h>.
#include <ocidl.h>
#include <olectl.h>
// After both.
#include <gdiplus.h>

#include <cstdint>
#include <memory>
#include <string>

#include "platform/file_system.h"
#include "platform/picture.h"
#include "platform/system_error.h"
#include "platform/windows/adapters.h"

namespace t_genproc {
namespace {

constexpr CLSID kPngEncoder{0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Com = std::unique_ptr<Interface, Release>;

/// GDI+, while it is used.
class GdiPlus {
   public:
    GdiPlus() {
        const Gdiplus::GdiplusStartupInput input;
        isThere_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
    }
    GdiPlus(const GdiPlus&) = delete;
    GdiPlus& operator=(const GdiPlus&) = delete;
    ~GdiPlus() {
        if (isThere_) Gdiplus::GdiplusShutdown(token_);
    }
    bool isThere() const { return isThere_; }

   private:
    ULONG_PTR token_ = 0;
    bool isThere_ = false;
};

/// Whatever goes wrong here, it is for want of memory, or the bitmap is gone.
std::string pngOf(HBITMAP bitmap, HPALETTE palette) {
    const GdiPlus gdiPlus;
    IStream* made = nullptr;
    if (!gdiPlus.isThere() || ::CreateStreamOnHGlobal(nullptr, TRUE, &made) != S_OK) return {};
    const Com<IStream> stream(made);
    Gdiplus::Bitmap pixels(bitmap, palette);
    if (pixels.Save(stream.get(), &kPngEncoder, nullptr) != Gdiplus::Ok) return {};
    HGLOBAL memory = nullptr;
    STATSTG state{};
    if (stream->Stat(&state, STATFLAG_NONAME) != S_OK) return {};
    if (::GetHGlobalFromStream(stream.get(), &memory) != S_OK) return {};
    const auto* const bytes = static_cast<const char*>(::GlobalLock(memory));
    if (bytes == nullptr) return {};
    std::string png(bytes, state.cbSize.LowPart);
    ::GlobalUnlock(memory);
    return png;
}

HANDLE handle(OLE_HANDLE number) { return LongToHandle(static_cast<LONG>(number)); }

/// 0 where the picture does not tell.
template <class Value>
Value read(IPicture& picture, HRESULT (STDMETHODCALLTYPE IPicture::*member)(Value*)) {
    Value value{};
    return (picture.*member)(&value) == S_OK ? value : Value{};
}

class WindowsPicture final : public Picture {
   public:
    explicit WindowsPicture(Com<IPicture> picture)
        : Picture({.handle = static_cast<std::int32_t>(read(*picture, &IPicture::get_Handle)),
                   .palette = static_cast<std::int32_t>(read(*picture, &IPicture::get_hPal)),
                   .type = read(*picture, &IPicture::get_Type),
                   .width = static_cast<std::int32_t>(read(*picture, &IPicture::get_Width)),
                   .height = static_cast<std::int32_t>(read(*picture, &IPicture::get_Height))}),
          picture_(std::move(picture)) {}

    void saveAsPng(const std::string& fileName) override {
        const std::string png = pngOf(static_cast<HBITMAP>(handle(read(*picture_, &IPicture::get_Handle))),
                                      static_cast<HPALETTE>(handle(read(*picture_, &IPicture::get_hPal))));
        if (png.empty()) raiseOnFailure(SystemError::NotEnoughMemory);
        writeFile(*makeFiles(), fileName, png);
    }

   private:
    Com<IPicture> picture_;
};

}  // namespace

ObjectPointer makePicture(const PictureDescription& description, bool own) {
    PICTDESC record{};
    record.cbSizeofstruct = sizeof record;
    record.picType = description.pictureType;
    record.bmp.hbitmap = reinterpret_cast<HBITMAP>(description.bitmap);
    record.bmp.hpal = reinterpret_cast<HPALETTE>(description.palette);
    void* made = nullptr;
    if (::OleCreatePictureIndirect(&record, IID_IDispatch, own, &made) != S_OK) return nullptr;
    const Com<IDispatch> dispatch(static_cast<IDispatch*>(made));
    if (dispatch->QueryInterface(IID_IPicture, &made) != S_OK) return nullptr;
    return std::make_shared<WindowsPicture>(Com<IPicture>(static_cast<IPicture*>(made)));
}

}  // namespace t_genproc
