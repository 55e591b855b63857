/// Sequential text files by number.
///
///     const std::int16_t fileNo = files.freeFile();
///     files.openForAppend(fileNo, "C:\\Jobs\\notes.txt");
///     files.printLine(fileNo, "Station 4 re-observed");
///     files.close(fileNo);
///
/// Numbers run from 1 to 511. Lines end with CR LF when they are written and with CR LF, LF or CR when they
/// are read. What is written reaches the file at the latest when it is closed; where it cannot, closing
/// raises that error too. Text is converted as Files::encode does.
///
/// Errors of every member: 52, the number is out of range or not open; 54, the file is open for the other
/// direction; and those of raiseOnFailure.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/folders.h"

namespace t_genproc {

class NumberedFiles {
   public:
    NumberedFiles(Files& files, Folders& folders) : files_(files), folders_(folders) {}
    NumberedFiles(const NumberedFiles&) = delete;
    NumberedFiles& operator=(const NumberedFiles&) = delete;
    ~NumberedFiles();  // closes what is open, dropping failures

    /// The lowest number from 1 to 255 that is not in use. Error 67: all are.
    std::int16_t freeFile() const;

    /// Error 55: the number is in use, or a file of that full name is open already and one of the two uses
    /// writes.
    void openForInput(std::int16_t fileNo, const std::string& fileName);
    void openForOutput(std::int16_t fileNo, const std::string& fileName);  // created, or cut to nothing
    void openForAppend(std::int16_t fileNo, const std::string& fileName);  // created where missing

    /// The number is free again afterwards, whatever fails. A number that is not open is no error.
    void close(std::int16_t fileNo);
    /// Closes without writing what has not reached the file yet. Nothing fails.
    void abandon(std::int16_t fileNo) noexcept;

    bool endOfFile(std::int16_t fileNo);
    /// The next line, without its end. Error 62: there is none.
    std::string lineInput(std::int16_t fileNo);

    /// Writes text, leaving the line open or ending it.
    void print(std::int16_t fileNo, std::string_view text);
    void printLine(std::int16_t fileNo, std::string_view text);

   private:
    struct OpenFile {
        FileHandle handle = 0;
        FileUse use = FileUse::Read;
        std::string fullName{};
        std::string buffer{};      // read: what is not handed out yet; write: what is not in the file yet
        std::size_t position = 0;  // read: where the next line starts in `buffer`
        bool exhausted = false;    // read: the file holds no more than `buffer`
        SystemError failure = SystemError::Success;  // write: the first one
    };

    void open(std::int16_t fileNo, const std::string& fileName, FileUse use);
    OpenFile& find(std::int16_t fileNo);
    OpenFile& findForReading(std::int16_t fileNo);
    OpenFile& findForWriting(std::int16_t fileNo);
    bool readMore(OpenFile& file);
    std::size_t lineLength(OpenFile& file);
    void skip(OpenFile& file, char expected);
    void flush(OpenFile& file);

    Files& files_;
    Folders& folders_;
    std::map<std::int16_t, OpenFile> open_;
};

}  // namespace t_genproc
