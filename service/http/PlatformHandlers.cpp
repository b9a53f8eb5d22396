#include "service/http/PlatformHandlers.h"

#include "service/http/PersonJson.h"

namespace disclosure {

Response currentUser(Call& call) {
    const auto person = call.store->person(call.username);
    if (!person)
        throw HttpError(boost::beast::http::status::found, "");
    return success([&](JsonWriter& writer) { writePerson(writer, *person); });
}

Response projects(Call& call) {
    const auto found = call.store->projectsOf(call.username);
    return success([&](JsonWriter& writer) {
        writer.StartArray();
        for (const Project& project : found) {
            writer.StartObject();
            write(writer, "ppid", project.ppid);
            write(writer, "name", project.name);
            write(writer, "deptId", project.deptId);
            writer.EndObject();
        }
        writer.EndArray();
    });
}

Response rights(Call& call) {
    return success([&](JsonWriter& writer) {
        writer.StartArray();
        for (const Right right : call.rights)
            writer.String(keyOf(right).data());
        writer.EndArray();
    });
}

Response departments(Call& call) {
    const auto found = call.store->departmentsFrom(call.deptId);
    return success([&](JsonWriter& writer) {
        writer.StartArray();
        for (const Department& department : found) {
            writer.StartObject();
            write(writer, "deptId", department.id);
            write(writer, "deptName", department.name);
            write(writer, "parentId", department.parentId);
            writer.EndObject();
        }
        writer.EndArray();
    });
}

Response users(Call& call) {
    const auto found = call.store->peopleFrom(call.deptId);
    return success([&](JsonWriter& writer) {
        writer.StartArray();
        for (const Person& person : found)
            writePerson(writer, person);
        writer.EndArray();
    });
}

}  // namespace disclosure
