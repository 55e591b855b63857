/// Instant Help: the help texts of the control in use.
#pragma once

namespace t_genproc {

class Library;

class cInstHelp {
   public:
    explicit cInstHelp(Library& library);
    cInstHelp(const cInstHelp&) = delete;
    cInstHelp& operator=(const cInstHelp&) = delete;
    ~cInstHelp();

    /// A flag of the host's: True from creation on.
    bool ClassActive() const { return classActive_; }
    void ClassActive(bool active) { classActive_ = active; }

   protected:
    void Class_Initialize();
    void Class_Terminate() noexcept;

   private:
    Library& library_;
    bool classActive_ = false;
};

}  // namespace t_genproc
