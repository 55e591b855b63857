/// Operating-system services.
#pragma once

namespace t_genproc {

class Library;

class cAPIprocs {
   public:
    explicit cAPIprocs(Library& /*library*/) {}
    cAPIprocs(const cAPIprocs&) = delete;
    cAPIprocs& operator=(const cAPIprocs&) = delete;
    ~cAPIprocs() = default;

    /// A flag of the host's: False until the host sets it.
    bool ClassActive() const { return classActive_; }
    void ClassActive(bool active) { classActive_ = active; }

   private:
    bool classActive_ = false;
};

}  // namespace t_genproc
