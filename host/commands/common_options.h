// Options that several commands have.
#pragma once

#include <string_view>

#include "host/calls/call_rows.h"
#include "host/options.h"
#include "host/record_writer.h"

namespace vintrel::host {

inline constexpr Option kModelOption{"--model", "CODE", "the exchange; \"vintrel-host models\" lists the codes"};
inline constexpr Option kFormatOption{"--format", "FORMAT", "table (default), csv or json (one object per line)"};
inline constexpr Option kSeparatorOption{"--separator", "MARK",
                                         "of csv: one character, or tab; a comma when not given"};
inline constexpr Option kWidthOption{"--width", "COLUMNS",
                                     "of a table, which leaves columns out to fit; 0 leaves none out.\n"
                                     "The console's width when not given"};
inline constexpr Option kValuesOption{
    "--values", "FORM",
    "exchange (default): dates and numbers as they stand in the record, 04.03.24 and\n"
    "00065; plain: 2024-03-04 and 65"};

/// What kFormatOption, kSeparatorOption and kWidthOption say. @throws Failure (Usage)
Presentation PresentationOf(const Options& options);
/// Tells what a table leaves out. @param columns  "" for nothing
void TellLeftOut(const std::string& columns);
/// What kValuesOption says. @throws Failure (Usage)
Values ValuesOf(const Options& options);

/// What commands that read a capture call it.
inline constexpr std::string_view kCaptureWord = "the capture (a file, or - for the standard input)";

}  // namespace vintrel::host
