/// Run-time errors, known by their number.
///
///     throw RuntimeError(ErrorNumber::Overflow);
///
/// The number is what a host acts on; the source names the procedure that failed last, and the description is
/// the standard one of the number, but where an error has its own.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace t_genproc {

/// The numbers that the library itself raises or acts on. A host or an object may raise any other.
enum class ErrorNumber : std::int32_t {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    CannotPerformOperation = 17,
    InternalError = 51,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    BadFileMode = 54,
    FileAlreadyOpen = 55,
    DeviceInputOutput = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEnd = 62,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccess = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidUseOfNull = 94,
    NoSuchControlArrayElement = 340,
    InvalidPropertyValue = 380,
    PropertyReadOnly = 383,
    ObjectRequired = 424,
    NoSuchMember = 438,
    WrongNumberOfArguments = 450,
    PrinterError = 482,

    // Databases and record sets
    TableAlreadyExists = 3010,
    NoSuchIndex = 3015,
    NoCurrentIndex = 3019,
    UpdateWithoutEdit = 3020,
    NoCurrentRecord = 3021,
    DuplicateValue = 3022,
    DatabaseFileNotFound = 3024,
    DatabaseReadOnly = 3027,
    NotAValidPassword = 3031,
    DiskOrNetwork = 3043,
    NotAValidPath = 3044,
    NoSuchTable = 3078,
    DatabaseAlreadyExists = 3204,
    DatabaseLocked = 3260,
    ItemNotFound = 3265,
    UnrecognizedDatabase = 3343,
};

/// The source of an error that starts inside the library, until the first procedure reports it.
inline constexpr std::string_view kLibrarySource = "t_genproc";

/// The standard description of `number`, for example "File not found" of 53; a number without one has
/// "Application-defined or object-defined error". It ends in a zero byte.
std::string_view errorDescription(std::int32_t number) noexcept;

class RuntimeError : public std::exception {
   public:
    explicit RuntimeError(ErrorNumber number, std::string_view source = kLibrarySource);
    explicit RuntimeError(std::int32_t number, std::string_view source = kLibrarySource);
    RuntimeError(std::int32_t number, std::string_view source, std::string description);

    std::int32_t number() const noexcept { return number_; }
    bool is(ErrorNumber number) const noexcept { return number_ == static_cast<std::int32_t>(number); }
    const std::string& source() const noexcept { return source_; }
    std::string_view description() const noexcept {
        return description_.empty() ? errorDescription(number_) : description_;
    }
    const char* what() const noexcept override { return description().data(); }

   private:
    std::int32_t number_;
    std::string source_;
    std::string description_;  // empty: the standard one
};

}  // namespace t_genproc
