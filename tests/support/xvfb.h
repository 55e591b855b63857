/// X displays without a screen, for windows of tests.
#pragma once

#include <sys/types.h>

#include <string>

namespace t_genproc::test {

/// Ends with its owner, or with the test program. Beside its own screen, of 24 bits, it has one of 16 and one
/// of 8 bits.
class Xvfb {
   public:
    explicit Xvfb(const std::string& name = {});  ///< ":7"; without a name, one that is free
    Xvfb(const Xvfb&) = delete;
    Xvfb& operator=(const Xvfb&) = delete;
    ~Xvfb();
    const std::string& name() const { return name_; }

   private:
    std::string name_ = ":";
    pid_t process_ = -1;
};

/// The display of all tests, started when first asked for.
const std::string& displayOfTests();

}  // namespace t_genproc::test
