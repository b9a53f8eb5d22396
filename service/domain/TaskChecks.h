#pragma once

#include <string>
#include <vector>

#include "service/ports/TaskRecords.h"

namespace disclosure {

inline constexpr std::size_t LongestKey = 128;                 // of ids and keys given by others, in UTF-16 units
inline constexpr std::size_t LongestFileName = 255;            // the same
inline constexpr std::int64_t LastDate = 253'402'300'799'999;  // the end of the year 9999

/// Looks at what a task may hold apart from what is stored, and brings it into its stored form: the name without the
/// blanks around it, and 0 for a date that is none. Throws `Refusal`.
void checkContent(TaskContent& content);
void checkRemark(const std::string& remark);
void checkAttachments(const std::vector<TaskAttachment>& attachments);
void checkField(const std::string& text, std::size_t longest);
void checkReminders(const PushConfig& config);
/// How many tasks are to be deleted at once.
void checkChosen(std::size_t count);

}  // namespace disclosure
