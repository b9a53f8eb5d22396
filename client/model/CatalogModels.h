#pragma once

#include "client/model/Field.h"

/// The records of the catalog controller.
namespace io::swagger::client::model {

/// One catalog of the tree.
class DisclosureCatalogResponse : public Model {
    MODEL_FIELD(utility::string_t, id, Id)
    MODEL_FIELD(utility::string_t, name, Name)
    MODEL_FIELD(utility::string_t, parentId, ParentId)
    MODEL_FIELD(int32_t, sort, Sort)
    MODEL_FIELD(int32_t, taskNumber, TaskNumber)
};

class DisclosureCatalogSaveRequest : public Model {
    MODEL_FIELD(utility::string_t, id, Id)
    MODEL_FIELD(utility::string_t, deptId, DeptId)
    MODEL_FIELD(utility::string_t, name, Name)
    MODEL_FIELD(utility::string_t, parentId, ParentId)
};

/// Renames a catalog.
class DisclosureCatalogUpdateRequest : public Model {
    MODEL_FIELD(utility::string_t, id, Id)
    MODEL_FIELD(utility::string_t, name, Name)
};

class DisclosureCatalogMoveRequest : public Model {
    MODEL_FIELD(utility::string_t, id, Id)
    MODEL_FIELD(int32_t, offset, Offset)
};

class DisclosureCatalogDelRequest : public Model {
    MODEL_FIELD(utility::string_t, id, Id)
    MODEL_FIELD(int32_t, isContainsTask, IsContainsTask)  // 0 or 1
};

}  // namespace io::swagger::client::model
