#pragma once

#include "client/model/Field.h"

/// The small records that several others share.
namespace io::swagger::client::model {

/// Whether a change was carried out.
class ResultState : public Model {
    MODEL_FIELD(bool, resultState, ResultState)
};

class DeptResponse : public Model {
    MODEL_FIELD(utility::string_t, deptId, DeptId)
    MODEL_FIELD(utility::string_t, deptName, DeptName)
};

class UserResponse : public Model {
    MODEL_FIELD(utility::string_t, username, Username)
    MODEL_FIELD(utility::string_t, realname, Realname)
    MODEL_FIELD(utility::string_t, userHeadUuid, UserHeadUuid)
};

/// A file attached to a confirmation, as it is saved and as it comes back. (Spelled so.)
class Attachement : public Model {
    MODEL_FIELD(utility::string_t, id, Id)
    MODEL_FIELD(utility::string_t, name, Name)
    MODEL_FIELD(utility::string_t, uuid, Uuid)
    MODEL_FIELD(utility::string_t, md5, Md5)
    MODEL_FIELD(int32_t, size, Size)
    MODEL_FIELD(utility::string_t, extension, Extension)
    MODEL_FIELD(utility::string_t, thumbnailUuid, ThumbnailUuid)
    MODEL_FIELD(utility::string_t, thumbnailMd5, ThumbnailMd5)
    MODEL_FIELD(int32_t, thumbnailSize, ThumbnailSize)
};
class AttachementResponse : public Attachement {};
class AttachementSaveRequest : public Attachement {};

}  // namespace io::swagger::client::model
