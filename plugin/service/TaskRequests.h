#pragma once

#include <memory>

#include "client/model/TaskRequestModels.h"
#include "sdk/packages/disclosure/Records.h"

/// The changes that the screens ask for as requests to the service.
namespace DISCLOSUREPACKAGE {

/// Creates `task`; a task, link or document without an id is given a new one in the request.
std::shared_ptr<io::swagger::client::model::DisclosureTaskSaveRequest> ToSaveRequest(const TaskRecord& task);

/// Turns `loaded`, the task as the service has it, into `task`: its own fields all of them, its lists by what was added
/// and removed. A date of 0 clears the date.
std::shared_ptr<io::swagger::client::model::DisclosureTaskUpdateRequest> ToUpdateRequest(const TaskRecord& task,
                                                                                         const TaskRecord& loaded);

std::shared_ptr<io::swagger::client::model::DisclosureTaskPushConfigSaveRequest> ToSaveRequest(
    const PushConfig& config);
std::shared_ptr<io::swagger::client::model::DisclosureTaskPushConfigUpdateRequest> ToUpdateRequest(
    const PushConfig& config);

std::shared_ptr<io::swagger::client::model::AttachementSaveRequest> ToSaveRequest(const AttachementRecord& file);

}  // namespace DISCLOSUREPACKAGE
