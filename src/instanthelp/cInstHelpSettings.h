/// The Instant Help switches that the host and the settings file share.
#pragma once

namespace t_genproc {

class cInstHelpSettings {
   public:
    /// Whether Instant Help is shown.
    bool gDisplayIhelp() const { return displayIhelp_; }
    void gDisplayIhelp(bool shown) { displayIhelp_ = shown; }

    /// Whether Instant Help is on when the application starts.
    bool gInstantHelpStartUp() const { return instantHelpStartUp_; }
    void gInstantHelpStartUp(bool on) { instantHelpStartUp_ = on; }

    /// A flag of the host's: False until the host sets it.
    bool ClassActive() const { return classActive_; }
    void ClassActive(bool active) { classActive_ = active; }

   private:
    bool displayIhelp_ = false;
    bool instantHelpStartUp_ = false;
    bool classActive_ = false;
};

}  // namespace t_genproc
