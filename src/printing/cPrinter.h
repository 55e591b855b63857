/// One printer: its selection, its page set-up and the documents that go to it.
#pragma once

#include <cstdint>

namespace t_genproc {

class Library;

class cPrinter {
   public:
    explicit cPrinter(Library& library);
    cPrinter(const cPrinter&) = delete;
    cPrinter& operator=(const cPrinter&) = delete;
    ~cPrinter() = default;

    /// A flag of the host's: False until the host sets it.
    bool ClassActive() const { return classActive_; }
    void ClassActive(bool active) { classActive_ = active; }

   protected:
    void Class_Initialize();

    /// In the unit of the page-setup dialog: thousandths of an inch or hundredths of a millimetre.
    struct PageMargins {
        std::int32_t left = 0;
        std::int32_t top = 0;
        std::int32_t right = 0;
        std::int32_t bottom = 0;
    };
    const PageMargins& margins() const { return margins_; }
    std::int32_t colourRequest() const { return colourRequest_; }

   private:
    Library& library_;
    PageMargins margins_;
    std::int32_t colourRequest_ = 0;
    bool classActive_ = false;
};

}  // namespace t_genproc
