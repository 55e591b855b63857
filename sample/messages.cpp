#include "messages.h"

#include <charconv>
#include <stdexcept>

#include "databases.h"
#include "instanthelp/message_database.h"
#include "runtime/text.h"

namespace tavoru {
namespace {

namespace text = t_genproc::text;
namespace MessageTable = t_genproc::MessageTable;

std::int16_t helpNumber(const std::string& digits) {
    std::int16_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, failure] = std::from_chars(digits.data(), end, number);
    if (failure == std::errc::result_out_of_range) {
        throw std::runtime_error(digits + " is not from -32768 to 32767");
    }
    if (failure != std::errc() || stop != end) throw std::runtime_error('"' + digits + "\" is no number");
    return number;
}

}  // namespace

Messages readMessages(const std::filesystem::path& source) {
    Messages messages;
    std::map<std::int16_t, int> lines;
    takeLines(source, [&](std::string_view line, int lineNumber) {
        const std::size_t bar = line.find('|');
        if (bar == std::string_view::npos) throw std::runtime_error("there is no | behind a number");
        const std::int16_t number = helpNumber(std::string(text::trim(line.substr(0, bar))));
        const std::string message(text::trim(line.substr(bar + 1)));
        if (message.empty()) throw std::runtime_error("there is no text behind the |");
        const auto [first, isNew] = lines.try_emplace(number, lineNumber);
        if (isNew) messages.emplace(number, message);
        if (messages.find(number)->second != message) {
            throw std::runtime_error(std::to_string(number) + " has another text in line " +
                                     std::to_string(first->second));
        }
    });
    if (messages.empty()) throw std::runtime_error(source.string() + " has no texts");
    return messages;
}

Messages storedMessages(const t_genproc::Platform& platform, const std::string& fileName) {
    Messages messages;
    const auto database = t_genproc::openMessageDatabase(*platform.databases, fileName);
    database->beginReading();
    const auto table = database->openTable(MessageTable::Name);
    for (; !table->atEnd(); table->moveNext()) {
        const t_genproc::Variant message = table->get(MessageTable::Message);
        messages.emplace(t_genproc::toInt16(table->get(MessageTable::HelpContextID)),
                         t_genproc::isNull(message) ? "" : t_genproc::toText(message));
    }
    return messages;
}

void makeMessages(const Messages& messages, const t_genproc::Platform& platform, const std::string& fileName,
                  const std::function<void(std::size_t)>& progress) {
    replaceDatabase(*platform.files, fileName, [&](const std::string& newName) {
        const auto database = t_genproc::createMessageDatabase(*platform.databases, newName);
        database->beginTransaction();
        const auto table = database->openTable(MessageTable::Name);
        std::size_t done = 0;
        for (const auto& [number, message] : messages) {
            table->addNew();
            table->let(MessageTable::HelpContextID, number);
            table->let(MessageTable::Message, message);
            table->update();
            progress(++done);
        }
        database->commitTransaction();
    });
}

}  // namespace tavoru
