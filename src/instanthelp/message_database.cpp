#include "instanthelp/message_database.h"

#include <array>

namespace t_genproc {
namespace {

constexpr std::array<std::uint8_t, 32> kEnciphered{
    0x7D, 0xD5, 0xC9, 0xAB, 0x9D, 0xC3, 0x41, 0x98, 0x92, 0x45, 0xC5, 0xAC, 0xE7, 0x49, 0x95, 0x00,
    0xE6, 0xBB, 0xD6, 0xCC, 0x5C, 0xF7, 0x74, 0xBA, 0x97, 0x4D, 0x71, 0x46, 0xF1, 0x4D, 0x82, 0x0E};

/// Deciphered when it is needed, so that it does not stand in the program for anyone to read.
std::string password() {
    volatile std::uint32_t start = 0x72D57B09;  // volatile: the compiler must not do it ahead
    std::uint32_t state = start;
    std::string deciphered;
    for (const std::uint8_t byte : kEnciphered) {
        state ^= state << 13U;
        state ^= state >> 17U;
        state ^= state << 5U;
        deciphered += static_cast<char>(byte ^ state >> 24U);
    }
    return deciphered;
}

t_gencvf::TableDefinition messageTable() {
    using t_gencvf::FieldType;
    const std::string number(MessageTable::HelpContextID);
    return {std::string(MessageTable::Name),
            {{number, FieldType::Integer}, {std::string(MessageTable::Message), FieldType::Text}},
            {{std::string(MessageTable::Index), number}}};
}

}  // namespace

std::unique_ptr<Database> openMessageDatabase(DatabaseEngine& engine, const std::string& fileName) {
    return engine.openDatabase(fileName, password());
}

std::unique_ptr<Database> createMessageDatabase(DatabaseEngine& engine, const std::string& fileName) {
    std::unique_ptr<Database> database = engine.createDatabase(fileName, password());
    database->createTable(messageTable());
    return database;
}

}  // namespace t_genproc
