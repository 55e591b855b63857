/// Local time, UTC and internet dates.
#pragma once

namespace t_genproc {

class Library;

class cTimeProcs {
   public:
    explicit cTimeProcs(Library& library);
    cTimeProcs(const cTimeProcs&) = delete;
    cTimeProcs& operator=(const cTimeProcs&) = delete;
    ~cTimeProcs();

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
