/// Instant Help: a line about the control in use, in the help panel of its window.
///
///     cInstHelp help{library};
///     help.SetHelpID_Compute(form);
///     help.LoadInstantHelp(form, 4000, 4099, 18700, 19028, "C:\\Programs\\Tavoru\\Messages.db");
///     help.DisplayHelpBox(form, control);
///
/// A window has its own `HelpContextID`, a `Height`, the panel `pnlHelp` (`Caption`, `Height`) and the menu
/// entry `MenuIhelp` (`Checked`). Every member raises 438 where a window or a control lacks what is needed,
/// 91 where Nothing is given for it, 424 where it is no object.
#pragma once

#include <optional>

#include "instanthelp/help_texts.h"
#include "platform/database.h"
#include "runtime/variant.h"

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

    // ---- The texts of a window (instanthelp/help_records.cpp)

    /// The help context numbers of the window's own controls, and of those that windows share.
    std::int16_t minHelpID() const { return minHelpID_; }
    std::int16_t maxHelpID() const { return maxHelpID_; }
    std::int16_t minHelpIDg() const { return minHelpIDg_; }
    std::int16_t maxHelpIDg() const { return maxHelpIDg_; }
    void minHelpID(std::int16_t number) { minHelpID_ = number; }
    void maxHelpID(std::int16_t number) { maxHelpID_ = number; }
    void minHelpIDg(std::int16_t number) { minHelpIDg_ = number; }
    void maxHelpIDg(std::int16_t number) { maxHelpIDg_ = number; }

    /// Reads the texts of both ranges, and the window's own, from the message database, once for each range.
    /// Where `MenuIhelp` is not checked, only folds the panel away; where the file or its table is missing,
    /// tells the user, folds the panel away and unchecks `MenuIhelp`. Raises what DatabaseEngine, Database
    /// and RecordSet do (3031 another password, 3015 no index, 3265 no such field, 3260 locked); 13, 6: a
    /// help number that is no number, or beyond 16 bits; 91: the platform has no databases. The texts read so
    /// far stay.
    void LoadInstantHelp(const ObjectPointer& currentForm, std::int16_t minID, std::int16_t maxID,
                         std::int16_t minIDgeneral, std::int16_t maxIDgeneral,
                         const std::string& instHelpDBname);

    /// Opens the message database, which then stays open until the end of the next load, unless it is
    /// `alreadyOpen` (error 91: it is not). `tableExists`: it has a table of exactly this name. Otherwise
    /// tells the user.
    void OpenMessageDB(const std::string& instHelpDBname, const std::string& tableName, bool alreadyOpen,
                       bool& tableExists);

    /// No effect.
    void InstantHelpSave(bool instantHelpSaved, bool level2 = false);
    void InstantHelpRestore(bool instantHelpSaved, bool level2 = false);

    // ---- The numbers of shared groups of controls (instanthelp/help_numbers.cpp)

    void SetHelpID_Parameters(const ObjectPointer& formName);
    void SetHelpID_Adjust(const ObjectPointer& formName);
    void SetHelpID_Compute(const ObjectPointer& formName);
    void SetHelpID_DatasetButtons(const ObjectPointer& formName);
    /// `exitSaveOK` tells what the exit button does: "OK", "EXIT", "EXITSAVE" or "OKSAVE", in any letters;
    /// anything else leaves its number as it is.
    void SetHelpID_EditButtons(const ObjectPointer& formName, const std::string& exitSaveOK);
    void SetHelpID_HVSpin(const ObjectPointer& formName);

    /// Makes the label a transparent frame around the combo box, 30 units wide on every side.
    void SetDummyCBO(const ObjectPointer& dummyLabel, const ObjectPointer& comboBox);

    // ---- The panel (instanthelp/help_display.cpp)

    /// Shows the text of the control's `HelpContextID`, or that there is none. No effect for 0, for the
    /// number that was shown last, and where `MenuIhelp` is not checked.
    void DisplayHelpBox(const ObjectPointer& currentForm, const ObjectPointer& currentControl);
    /// Shows the window's own text, by the same rule, for 0 as well.
    void DisplayFormHelp(const ObjectPointer& thisForm);

   protected:
    void Class_Initialize();
    void Class_Terminate() noexcept;

   private:
    void LoadHelpRecords(const std::string& instHelpDBname, const ObjectPointer& currentForm,
                         HelpTexts& texts, std::int16_t lowest, std::int16_t highest);
    void InstantHelp_Saver();
    void InstantHelp_Restorer();

    Library& library_;
    bool classActive_ = false;

    std::int16_t minHelpID_ = 0, maxHelpID_ = 0, minHelpIDg_ = 0, maxHelpIDg_ = 0;
    HelpTexts controlTexts_, generalTexts_;
    std::string windowText_;
    std::unique_ptr<Database> database_;  // no longer than until the end of a load
    std::optional<std::int32_t> lastShown_;
};

}  // namespace t_genproc
