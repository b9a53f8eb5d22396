#include "plugin/service/TaskRecords.h"

#include "plugin/service/ServiceCall.h"

namespace DISCLOSUREPACKAGE {

using namespace model;

TaskReceiveUserRecord ToRecord(const DisclosureTaskReceiveUserResponse& user) {
    return {.id = FromService(user.getId()),
            .disclosureTaskId = FromService(user.getDisclosureTaskId()),
            .userName = FromService(user.getUserName()),
            .userRealname = FromService(user.getUserRealname()),
            .userHeadUuid = FromService(user.getUserHeadUuid()),
            .isConfirm = user.getIsConfirm(),
            .confirmDateMills = user.getConfirmDateMills()};
}

TaskViewportRecord ToRecord(const DisclosureTaskViewportResponse& viewport) {
    return {.id = FromService(viewport.getId()),
            .disclosureTaskId = FromService(viewport.getDisclosureTaskId()),
            .ppid = viewport.getPpid(),
            .viewportId = FromService(viewport.getViewportId()),
            .viewportName = FromService(viewport.getViewportName()),
            .viewportFileKey = FromService(viewport.getViewportFileKey())};
}

TaskNodeRecord ToRecord(const DisclosureTaskNodeResponse& node) {
    return {.id = FromService(node.getId()),
            .disclosureTaskId = FromService(node.getDisclosureTaskId()),
            .ppid = node.getPpid(),
            .nodeId = FromService(node.getNodeId()),
            .nodeName = FromService(node.getNodeName()),
            .uuid = FromService(node.getUuid()),
            .thumbnailUuid = FromService(node.getThumbnailUuid())};
}

TaskDocRecord ToRecord(const DisclosureTaskDocResponse& doc) {
    return {.id = FromService(doc.getId()),
            .disclosureTaskId = FromService(doc.getDisclosureTaskId()),
            .ppid = doc.getPpid(),
            .name = FromService(doc.getName()),
            .uuid = FromService(doc.getUuid()),
            .md5 = FromService(doc.getMd5()),
            .size = doc.getSize(),
            .extension = FromService(doc.getExtension()),
            .sourceType = doc.getSourceType(),
            .refDocId = FromService(doc.getRefDocId())};
}

AttachementRecord ToRecord(const AttachementResponse& file) {
    return {.id = FromService(file.getId()),
            .name = FromService(file.getName()),
            .uuid = FromService(file.getUuid()),
            .md5 = FromService(file.getMd5()),
            .size = file.getSize(),
            .extension = FromService(file.getExtension()),
            .thumbnailUuid = FromService(file.getThumbnailUuid()),
            .thumbnailMd5 = FromService(file.getThumbnailMd5()),
            .thumbnailSize = file.getThumbnailSize()};
}

TaskRecord ToRecord(const DisclosureTaskResponse& task) {
    return {.id = FromService(task.getId()),
            .deptId = FromService(task.getDeptId()),
            .disclosureCatalogId = FromService(task.getDisclosureCatalogId()),
            .name = FromService(task.getName()),
            .disclosureUserName = FromService(task.getDisclosureUserName()),
            .constructionStartDateMills = task.getConstructionStartDateMills(),
            .constructionEndDateMills = task.getConstructionEndDateMills(),
            .planDisclosureDateMills = task.getPlanDisclosureDateMills(),
            .actualDisclosureDateMills = task.getActualDisclosureDateMills(),
            .expiryDateMills = task.getExpiryDateMills(),
            .isPublish = task.getIsPublish(),
            .remark = FromService(task.getRemark()),
            .status = task.getStatus(),
            .updateBy = FromService(task.getUpdateBy()),
            .updateDateMills = task.getUpdateDateMills(),
            .disclosureTaskReceiveUserList = ToRecords(task.getDisclosureTaskReceiveUserList()),
            .disclosureTaskViewportList = ToRecords(task.getDisclosureTaskViewportList()),
            .disclosureTaskNodeList = ToRecords(task.getDisclosureTaskNodeList()),
            .disclosureTaskDocList = ToRecords(task.getDisclosureTaskDocList()),
            .deptName = FromService(task.getDeptName()),
            .disclosureUserRealname = FromService(task.getDisclosureUserRealname()),
            .disclosureUserHeadUuid = FromService(task.getDisclosureUserHeadUuid()),
            .isConfirm = task.getIsConfirm(),
            .confirmRemark = FromService(task.getConfirmRemark()),
            .confirmDateMills = task.getConfirmDateMills(),
            .attachementList = ToRecords(task.getAttachementList())};
}

PushConfig ToRecord(const DisclosureTaskPushConfigResponse& config) {
    return {.id = FromService(config.getId()),
            .deptId = FromService(config.getDeptId()),
            .isNotifyAdvance = config.getIsNotifyAdvance() != 0,
            .daysNotifyAdvance = config.getDaysNotifyAdvance(),
            .advanceNotifyFrequency = config.getAdvanceNotifyFrequency(),
            .isNotifyOverdue = config.getIsNotifyOverdue() != 0,
            .overdueNotifyFrequency = config.getOverdueNotifyFrequency()};
}

OperationLogRecord ToRecord(const DisclosureTaskOperationLogResponse& entry) {
    return {.id = FromService(entry.getId()),
            .deptId = FromService(entry.getDeptId()),
            .disclosureTaskId = FromService(entry.getDisclosureTaskId()),
            .userName = FromService(entry.getUserName()),
            .opDateMills = entry.getOpDateMills(),
            .opType = entry.getOpType(),
            .refSourceId = FromService(entry.getRefSourceId()),
            .sourceName = FromService(entry.getSourceName()),
            .sourceUuid = FromService(entry.getSourceUuid()),
            .sourceMd5 = FromService(entry.getSourceMd5()),
            .sourceSize = entry.getSourceSize(),
            .sourceExtension = FromService(entry.getSourceExtension()),
            .userRealname = FromService(entry.getUserRealname()),
            .userHeadUuid = FromService(entry.getUserHeadUuid())};
}

OwnTaskRecord ToRecord(const DisclosureTask4StatusResponse& task) {
    return {.id = FromService(task.getId()),
            .name = FromService(task.getName()),
            .planDisclosureDateMills = task.getPlanDisclosureDateMills(),
            .expiryDateMills = task.getExpiryDateMills(),
            .actualDisclosureDateMills = task.getActualDisclosureDateMills(),
            .status = task.getStatus()};
}

TaskCondition ToRecord(const DeptResponse& department) {
    return {.key = FromService(department.getDeptId()), .name = FromService(department.getDeptName()), .headUuid = {}};
}

TaskCondition ToRecord(const UserResponse& user) {
    return {.key = FromService(user.getUsername()),
            .name = FromService(user.getRealname()),
            .headUuid = FromService(user.getUserHeadUuid())};
}

}  // namespace DISCLOSUREPACKAGE
