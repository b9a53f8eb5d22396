#pragma once

#include "service/domain/Records.h"
#include "service/http/Json.h"

namespace disclosure {

/// Writes what everybody may know of a person.
inline void writePerson(JsonWriter& writer, const Person& person) {
    writer.StartObject();
    write(writer, "username", person.username);
    write(writer, "realname", person.realname);
    write(writer, "userHeadUuid", person.headUuid);
    write(writer, "deptId", person.deptId);
    writer.EndObject();
}

}  // namespace disclosure
