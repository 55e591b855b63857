#include <algorithm>

#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "host/object.h"
#include "instanthelp/cInstHelp.h"
#include "instanthelp/message_database.h"
#include "runtime/errors.h"

namespace t_genproc {
namespace {

using t_gencvf::LateBound, t_gencvf::RecordSet, t_gencvf::SeekComparison;

void foldPanel(const LateBound& form) {
    form["Height"] = toDouble(form["Height"].get()) - toDouble(form["pnlHelp"]["Height"].get());
    form["pnlHelp"]["Height"] = 0;
}

/// Closes the message database, whichever way a load ends.
class ClosedAtTheEnd {
   public:
    explicit ClosedAtTheEnd(std::unique_ptr<Database>& database) : database_(database) {}
    ClosedAtTheEnd(const ClosedAtTheEnd&) = delete;
    ClosedAtTheEnd& operator=(const ClosedAtTheEnd&) = delete;
    ~ClosedAtTheEnd() { database_.reset(); }

   private:
    std::unique_ptr<Database>& database_;
};

std::string messageOf(RecordSet& record) {
    const Variant message = record.get(MessageTable::Message);
    return isNull(message) ? "" : toText(message);
}

}  // namespace

void cInstHelp::LoadInstantHelp(const ObjectPointer& currentForm, std::int16_t minID, std::int16_t maxID,
                                std::int16_t minIDgeneral, std::int16_t maxIDgeneral,
                                const std::string& instHelpDBname) {
    procedure(library_, "(Class Module) cInstHelp::Sub LoadInstantHelp", [&] {
        minHelpID_ = minID;
        maxHelpID_ = maxID;
        minHelpIDg_ = minIDgeneral;
        maxHelpIDg_ = maxIDgeneral;
        LoadHelpRecords(instHelpDBname, currentForm, controlTexts_, minID, maxID);
        LoadHelpRecords(instHelpDBname, currentForm, generalTexts_, minIDgeneral, maxIDgeneral);
    });
}

void cInstHelp::OpenMessageDB(const std::string& instHelpDBname, const std::string& tableName,
                              bool alreadyOpen, bool& tableExists) {
    procedure(library_, "(Class Module) cInstHelp::Sub OpenMessageDB", [&] {
        const Platform& platform = library_.platform();
        tableExists = false;
        if (cGenProcs(library_).FileExist(instHelpDBname)) {
            if (!alreadyOpen) {
                if (platform.databases == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
                database_ = openMessageDatabase(*platform.databases, instHelpDBname);
            }
            if (database_ == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
            const std::vector<std::string> names = database_->tableNames();
            tableExists = std::ranges::find(names, tableName) != names.end();
        }
        if (tableExists) return;
        platform.windows->MessageBoxA("Message database  '" + instHelpDBname +
                                          "'  or required table does not exist !!\r\n"
                                          "Enable Instant Help again after database has been recovered",
                                      "Tavoru procedures", MessageStyle::Exclamation | MessageStyle::Ok);
    });
}

void cInstHelp::LoadHelpRecords(const std::string& instHelpDBname, const ObjectPointer& currentForm,
                                HelpTexts& texts, std::int16_t lowest, std::int16_t highest) {
    procedure(library_, "(Class Module) cInstHelp::Sub LoadHelpRecords", [&] {
        const ClosedAtTheEnd closed(database_);
        const LateBound form(currentForm);
        form["pnlHelp"]["Caption"] = "";
        if (!toBoolean(form["MenuIhelp"]["Checked"].get())) {
            foldPanel(form);
            return;
        }
        bool tableExists = false;
        OpenMessageDB(instHelpDBname, std::string(MessageTable::Name), false, tableExists);
        if (!tableExists) {
            foldPanel(form);
            form["MenuIhelp"]["Checked"] = false;
            return;
        }
        database_->beginReading();
        const std::unique_ptr<RecordSet> records = database_->openTable(MessageTable::Name);
        records->setIndex(MessageTable::Index);
        if (records->atEnd()) return;

        const bool hasText = records->seek(SeekComparison::Equal, form["HelpContextID"].get());
        windowText_ = hasText ? messageOf(*records) : "(No general help available)";
        texts.startAt(lowest);
        if (!records->seek(SeekComparison::GreaterOrEqual, lowest)) return;
        for (; !records->atEnd(); records->moveNext()) {
            const std::int32_t number = toInt32(records->get(MessageTable::HelpContextID));
            if (number > highest) return;
            texts.set(number, messageOf(*records));
        }
    });
}

void cInstHelp::InstantHelpSave(bool /*instantHelpSaved*/, bool /*level2*/) { InstantHelp_Saver(); }
void cInstHelp::InstantHelpRestore(bool /*instantHelpSaved*/, bool /*level2*/) { InstantHelp_Restorer(); }
void cInstHelp::InstantHelp_Saver() {}
void cInstHelp::InstantHelp_Restorer() {}

}  // namespace t_genproc
