/// The folders and constants that the application needs before its first window.
#pragma once

#include <memory>

namespace t_genproc {

class Library;
class cAPIprocs;
class cGenProcs;

class cStartProcs {
   public:
    explicit cStartProcs(Library& library);
    cStartProcs(const cStartProcs&) = delete;
    cStartProcs& operator=(const cStartProcs&) = delete;
    ~cStartProcs();

    /// A flag of the host's: True from creation on. The end of the instance leaves it as it stands.
    bool ClassActive() const { return classActive_; }
    void ClassActive(bool active) { classActive_ = active; }

   protected:
    void Class_Initialize();
    void Class_Terminate() noexcept;

   private:
    Library& library_;
    std::unique_ptr<cGenProcs> genProcs_;
    std::unique_ptr<cAPIprocs> apiProcs_;
    bool classActive_ = false;
};

}  // namespace t_genproc
