#pragma once

#include "service/http/Route.h"

namespace disclosure {

/// The task operations, from checked request to answer.
Response pageTasks(Call& call);
Response pageOwnTasks(Call& call);
Response taskById(Call& call);
Response saveTask(Call& call);
Response updateTask(Call& call);
Response deleteTasks(Call& call);
Response confirmByReceiver(Call& call);
Response confirmByDiscloser(Call& call);
Response urge(Call& call);
Response taskLog(Call& call);
Response saveLog(Call& call);
Response queryConditions(Call& call);
Response queryPushConfig(Call& call);
Response savePushConfig(Call& call);
Response updatePushConfig(Call& call);

}  // namespace disclosure
