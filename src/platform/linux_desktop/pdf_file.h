/// Pages in a PDF file, which takes its place once it is complete.
#pragma once

#include <string>

#include "platform/linux_desktop/surface.h"
#include "platform/portable/posix.h"

namespace t_genproc::linux_desktop {

/// The pages are written beside the file, under a hidden name, and replace it when they are finished. Without
/// that, or when anything fails, nothing of them is left. A device is written as the pages come.
class PdfFile {
   public:
    /// `width` and `height` of the pages are points.
    PdfFile(const std::string& path, const std::string& title, double width, double height);
    PdfFile(const PdfFile&) = delete;
    PdfFile& operator=(const PdfFile&) = delete;
    ~PdfFile();

    /// One unit a point, the origin at the top left.
    cairo_t* drawing() { return drawing_.get(); }
    void endPage();
    void finish();

    /// Why it cannot be written; empty while all is well.
    std::string failure() const;

   private:
    static cairo_status_t write(void* closure, const unsigned char* bytes, unsigned length);
    void open();
    void openBeside();
    void discard();

    std::string path_;
    std::string unfinished_;  // the hidden name; empty where there is none
    portable::Descriptor file_;
    int error_ = 0;  // of the system
    Surface surface_;
    Drawing drawing_;
};

}  // namespace t_genproc::linux_desktop
