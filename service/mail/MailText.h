#pragma once

#include <cstdint>
#include <string>

#include "service/ports/ReminderRecords.h"

namespace disclosure {

/// The mail as it goes over the wire, in ASCII and with CRLF: text and subject may hold anything and stay text and
/// subject. `from` and `to` must be addresses (`isMailAddress`), else it throws std::invalid_argument. `time` is in
/// milliseconds since 1970-01-01 UTC.
std::string mailText(const Mail& mail, const std::string& from, const std::string& to, std::int64_t time);

}  // namespace disclosure
