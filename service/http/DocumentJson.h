#pragma once

#include "service/domain/Documents.h"
#include "service/http/Json.h"

namespace disclosure {

/// The members of a body that has passed its schema.
DocumentChange documentChangeOf(const rapidjson::Value& body);

void writeFolder(JsonWriter& writer, const DocumentFolder& folder);
void writeDocument(JsonWriter& writer, const Document& document);
void writeContent(JsonWriter& writer, const DocumentContent& content);

}  // namespace disclosure
