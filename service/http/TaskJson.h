#pragma once

#include "service/domain/Tasks.h"
#include "service/http/Json.h"

namespace disclosure {

/// The records of the task operations, read from bodies that their schemas have accepted, and written.
TaskContent taskContentOf(const rapidjson::Value& body);
TaskChange taskChangeOf(const rapidjson::Value& body);
std::vector<TaskAttachment> attachmentsOf(const rapidjson::Value& body);
LogEntry logEntryOf(const rapidjson::Value& body);
PushConfig pushConfigOf(const rapidjson::Value& body);

void writeTask(JsonWriter& writer, const Task& task, std::int64_t now);
void writeOwnTask(JsonWriter& writer, const OwnTask& task);
void writeLogEntry(JsonWriter& writer, const LogEntry& entry);
void writePushConfig(JsonWriter& writer, const PushConfig& config);

}  // namespace disclosure
