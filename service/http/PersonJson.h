#pragma once

#include "service/http/Json.h"
#include "service/ports/Records.h"

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
