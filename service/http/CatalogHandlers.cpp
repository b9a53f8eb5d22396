#include "service/http/CatalogHandlers.h"

#include "service/domain/Catalogs.h"

namespace disclosure {

Response listCatalogs(Call& call) {
    const auto catalogs = call.store->catalogs(call.deptId);
    return success([&](JsonWriter& writer) {
        writer.StartArray();
        for (const Catalog& catalog : catalogs) {
            writer.StartObject();
            write(writer, "id", catalog.id);
            write(writer, "name", catalog.name);
            write(writer, "parentId", catalog.parentId);
            write(writer, "sort", catalog.sort);
            write(writer, "taskNumber", catalog.taskNumber);
            writer.EndObject();
        }
        writer.EndArray();
    });
}

Response saveCatalog(Call& call) {
    Catalogs(*call.store)
        .save(call.deptId, textOf(call.body, "id"), textOf(call.body, "name"), textOf(call.body, "parentId"));
    return done();
}

Response renameCatalog(Call& call) {
    Catalogs(*call.store).rename(call.catalog.value(), textOf(call.body, "name"));
    return done();
}

Response moveCatalog(Call& call) {
    const bool up = numberOf(call.body, "offset", 0) == 0;
    Catalogs(*call.store).move(call.catalog.value(), up ? ICatalogStore::Side::Before : ICatalogStore::Side::After);
    return done();
}

Response deleteCatalog(Call& call) {
    Catalogs(*call.store)
        .remove(call.catalog.value(), numberOf(call.body, "isContainsTask", 0) == 1, call.mayWithTasks, call.username,
                call.now);
    return done();
}

}  // namespace disclosure
