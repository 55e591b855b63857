#include "platform/numbered_files.h"

#include "runtime/errors.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

constexpr std::int16_t kLastNumber = 511;
constexpr std::int16_t kLastFreeNumber = 255;
constexpr std::size_t kBlock = std::size_t{16} * 1024;
constexpr std::string_view kEndOfLine = "\r\n";

void requireNumber(std::int16_t fileNo) {
    if (fileNo < 1 || fileNo > kLastNumber) throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
}

}  // namespace

NumberedFiles::~NumberedFiles() {
    for (auto& [number, file] : open_) {
        if (file.use != FileUse::Read) flush(file);
        files_.CloseHandle(file.handle);
    }
}

std::int16_t NumberedFiles::freeFile() const {
    for (std::int16_t number = 1; number <= kLastFreeNumber; ++number) {
        if (!open_.contains(number)) return number;
    }
    throw RuntimeError(ErrorNumber::TooManyFiles);
}

void NumberedFiles::openForInput(std::int16_t fileNo, const std::string& fileName) {
    open(fileNo, fileName, FileUse::Read);
}

void NumberedFiles::openForOutput(std::int16_t fileNo, const std::string& fileName) {
    open(fileNo, fileName, FileUse::Replace);
}

void NumberedFiles::openForAppend(std::int16_t fileNo, const std::string& fileName) {
    open(fileNo, fileName, FileUse::Append);
}

void NumberedFiles::open(std::int16_t fileNo, const std::string& fileName, FileUse use) {
    requireNumber(fileNo);
    if (open_.contains(fileNo)) throw RuntimeError(ErrorNumber::FileAlreadyOpen);

    const Outcome<std::string> fullName = folders_.GetFullPathNameA(fileName);
    raiseOnFailure(fullName.error);
    for (const auto& [number, other] : open_) {
        const bool onlyReaders = use == FileUse::Read && other.use == FileUse::Read;
        if (!onlyReaders && text::equalIgnoringCase(other.fullName, fullName.value)) {
            throw RuntimeError(ErrorNumber::FileAlreadyOpen);
        }
    }

    const auto place = open_.emplace(fileNo, OpenFile{.use = use, .fullName = fullName.value}).first;
    const Outcome<FileHandle> handle = files_.CreateFileA(fullName.value, use);
    if (!handle) open_.erase(place);
    raiseOnFailure(handle.error);
    place->second.handle = handle.value;
}

void NumberedFiles::close(std::int16_t fileNo) {
    requireNumber(fileNo);
    const auto found = open_.find(fileNo);
    if (found == open_.end()) return;
    OpenFile file = std::move(found->second);
    open_.erase(found);

    if (file.use != FileUse::Read) flush(file);
    const SystemError closed = files_.CloseHandle(file.handle);
    raiseOnFailure(file.failure);
    raiseOnFailure(closed);
}

void NumberedFiles::abandon(std::int16_t fileNo) noexcept {
    const auto found = open_.find(fileNo);
    if (found == open_.end()) return;
    files_.CloseHandle(found->second.handle);
    open_.erase(found);
}

bool NumberedFiles::endOfFile(std::int16_t fileNo) {
    OpenFile& file = findForReading(fileNo);
    return file.position == file.buffer.size() && !readMore(file);
}

std::string NumberedFiles::lineInput(std::int16_t fileNo) {
    if (endOfFile(fileNo)) throw RuntimeError(ErrorNumber::InputPastEnd);
    OpenFile& file = findForReading(fileNo);
    const std::size_t length = lineLength(file);
    std::string line = files_.decode(std::string_view(file.buffer).substr(file.position, length));
    file.position += length;
    skip(file, '\r');
    skip(file, '\n');
    return line;
}

void NumberedFiles::print(std::int16_t fileNo, std::string_view text) {
    OpenFile& file = findForWriting(fileNo);
    file.buffer += files_.encode(text);
    if (file.buffer.size() >= kBlock) flush(file);
    raiseOnFailure(file.failure);
}

void NumberedFiles::printLine(std::int16_t fileNo, std::string_view text) {
    print(fileNo, text);
    print(fileNo, kEndOfLine);
}

NumberedFiles::OpenFile& NumberedFiles::find(std::int16_t fileNo) {
    requireNumber(fileNo);
    const auto found = open_.find(fileNo);
    if (found == open_.end()) throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
    return found->second;
}

NumberedFiles::OpenFile& NumberedFiles::findForReading(std::int16_t fileNo) {
    OpenFile& file = find(fileNo);
    if (file.use != FileUse::Read) throw RuntimeError(ErrorNumber::BadFileMode);
    return file;
}

NumberedFiles::OpenFile& NumberedFiles::findForWriting(std::int16_t fileNo) {
    OpenFile& file = find(fileNo);
    if (file.use == FileUse::Read) throw RuntimeError(ErrorNumber::BadFileMode);
    return file;
}

/// Drops what was handed out and adds the next block; False at the end of the file.
bool NumberedFiles::readMore(OpenFile& file) {
    if (file.exhausted) return false;
    file.buffer.erase(0, file.position);
    file.position = 0;
    const Outcome<std::string> block = files_.ReadFile(file.handle, kBlock);
    raiseOnFailure(block.error);
    file.buffer += block.value;
    file.exhausted = block.value.empty();
    return !file.exhausted;
}

/// The bytes of the next line, which are in the buffer from then on.
std::size_t NumberedFiles::lineLength(OpenFile& file) {
    for (std::size_t searched = 0;;) {
        const std::size_t end = file.buffer.find_first_of(kEndOfLine, file.position + searched);
        if (end != std::string::npos) return end - file.position;
        searched = file.buffer.size() - file.position;
        if (!readMore(file)) return searched;
    }
}

void NumberedFiles::skip(OpenFile& file, char expected) {
    const bool atEnd = file.position == file.buffer.size() && !readMore(file);
    if (!atEnd && file.buffer[file.position] == expected) ++file.position;
}

void NumberedFiles::flush(OpenFile& file) {
    if (file.failure == SystemError::Success) file.failure = files_.WriteFile(file.handle, file.buffer);
    file.buffer.clear();
}

}  // namespace t_genproc
