/// The printer that writes PDF files, and those of CUPS.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/graphics.h"
#include "platform/papers.h"
#include "platform/printer_options.h"

namespace t_genproc::linux_desktop {

/// A paper that a printer takes.
struct Sheet {
    std::string media{};  ///< as CUPS calls it; empty where it knows none of the size
    PaperSize size{};
    Rectangle unprintable{};  ///< from each edge, hundredths of a millimetre
};

struct Printer {
    std::string name{};
    bool writesFile = true;  ///< a PDF file; otherwise CUPS prints it
    std::int32_t resolution = 600;
    PaperSize paper{2100, 2970};  ///< where settings ask for none
    std::vector<Sheet> sheets{};  ///< upright

    /// What settings ask for, turned as they want it.
    Sheet sheet(const DeviceSettings& settings) const;
};

/// What settings give for `member`; `otherwise` where they leave it to the printer.
std::int16_t chosen(const DeviceSettings& settings, std::uint32_t field, DeviceSettings::Member member,
                    std::int16_t otherwise);

/// None where there is no such printer.
std::optional<Printer> findPrinter(const std::string& name);
/// CUPS' default printer, or the one that writes PDF files.
std::string defaultPrinter();

struct PrintJob {
    std::string title{};
    std::string file{};
    std::string media{};
    std::int16_t copies = 1;
    bool monochrome = false;
};
/// Sends a PDF file to a printer of CUPS; gives why it could not, or nothing.
std::string sendToPrinter(const std::string& printer, const PrintJob& job);

}  // namespace t_genproc::linux_desktop
