#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The plain records that the screens and the disclosure manager exchange. Fields ending in "Mills" are milliseconds
/// since 1970-01-01 UTC; 0 means "not set".
namespace DISCLOSUREPACKAGE {

/// A catalog, the folder that tasks are filed in.
struct CatalogRecord {
    std::wstring id;
    std::wstring name;
    std::wstring parentId;   // empty for the top catalog
    int32_t taskNumber = 0;  // tasks directly in the catalog, as the service counts them
    int32_t sort = 0;        // position among its siblings
};

/// What a page of tasks is asked by.
struct TaskQuery {
    std::wstring deptId;
    std::wstring disclosureCatalogId;
    int32_t status = 0;
    std::wstring keyword;
    int32_t dateType = 0;
    int64_t startDateMills = 0;
    int64_t endDateMills = 0;
    int32_t currentPage = 0;
    int32_t pageSize = 0;
    std::wstring orderKey;
    std::wstring orderType;

    bool operator==(const TaskQuery&) const = default;
};

/// A person who must receive the briefing.
struct TaskReceiveUserRecord {
    std::wstring id;
    std::wstring disclosureTaskId;
    std::wstring userName;
    std::wstring userRealname;
    std::wstring userHeadUuid;
    int32_t isConfirm = 0;
    int64_t confirmDateMills = 0;
};

/// A linked viewport.
struct TaskViewportRecord {
    std::wstring id;
    std::wstring disclosureTaskId;
    int32_t ppid = 0;
    std::wstring viewportId;
    std::wstring viewportName;
    std::wstring viewportFileKey;
};

/// A linked rebar node.
struct TaskNodeRecord {
    std::wstring id;
    std::wstring disclosureTaskId;
    int32_t ppid = 0;
    std::wstring nodeId;
    std::wstring nodeName;
    std::wstring uuid;
    std::wstring thumbnailUuid;
};

/// A linked document.
struct TaskDocRecord {
    std::wstring id;
    std::wstring disclosureTaskId;
    int32_t ppid = 0;
    std::wstring name;
    std::wstring uuid;  // file key
    std::wstring md5;
    int32_t size = 0;  // bytes
    std::wstring extension;
    int32_t sourceType = 0;  // 0 the project's document store, 1 uploaded from the local disk
    std::wstring refDocId;   // the document in the store; empty for an uploaded one
};

/// A file attached to the discloser's confirmation.
struct AttachementRecord {  // spelled so
    std::wstring id;
    std::wstring name;
    std::wstring uuid;
    std::wstring md5;
    int32_t size = 0;
    std::wstring extension;
    std::wstring thumbnailUuid;
    std::wstring thumbnailMd5;
    int32_t thumbnailSize = 0;
};

/// A disclosure task.
struct TaskRecord {
    std::wstring id;
    std::wstring deptId;
    std::wstring disclosureCatalogId;
    std::wstring name;
    std::wstring disclosureUserName;
    int64_t constructionStartDateMills = 0;
    int64_t constructionEndDateMills = 0;
    int64_t planDisclosureDateMills = 0;
    int64_t actualDisclosureDateMills = 0;
    int64_t expiryDateMills = 0;
    int32_t isPublish = 0;
    std::wstring remark;
    int32_t status = 0;
    std::wstring updateBy;
    int64_t updateDateMills = 0;
    std::vector<TaskReceiveUserRecord> disclosureTaskReceiveUserList;
    std::vector<TaskViewportRecord> disclosureTaskViewportList;
    std::vector<TaskNodeRecord> disclosureTaskNodeList;
    std::vector<TaskDocRecord> disclosureTaskDocList;
    std::wstring deptName;
    std::wstring disclosureUserRealname;
    std::wstring disclosureUserHeadUuid;
    int32_t isConfirm = 0;
    std::wstring confirmRemark;
    int64_t confirmDateMills = 0;
    std::vector<AttachementRecord> attachementList;
};

/// A department's reminder settings.
struct PushConfig {
    std::wstring id;
    std::wstring deptId;
    bool isNotifyAdvance = false;
    int32_t daysNotifyAdvance = 0;
    int32_t advanceNotifyFrequency = 0;
    bool isNotifyOverdue = false;
    int32_t overdueNotifyFrequency = 0;
};

/// A BIM item as the screens choose and show it.
struct LinkRecord {
    int32_t kind = 0;  // 0 a viewport, 1 a rebar node
    std::wstring identifier;
    std::wstring name;
    int32_t ppid = 0;  // the project it belongs to
};

/// A local file that was uploaded to be a task's document.
struct UploadedFileRecord {
    int32_t ppid = 0;
    std::wstring id;
    std::wstring name;  // file name without its folder
    std::wstring uuid;  // file key in the store
    std::wstring md5;
    int32_t size = 0;  // bytes
    std::wstring extension;
    int32_t sourceType = 0;
};

}  // namespace DISCLOSUREPACKAGE
